#include "tests/support/monkeystage.h"

#include "animation/animresource.h"
#include "animation/animtool.h"
#include "application/exhibitwindow.h"
#include "application/gallery.h"
#include "resource/resourcesystem.h"
#include "tests/support/held.h"
#include "ui/systeminfowindow.h"
#include "ui/uisystem.h"

#include <filesystem>
#include <iterator>

namespace
{
// Null is an animation without a name.
constexpr const char* AnimationTable[] = {nullptr, "walk", "parade"};

void openExhibit(unsigned int number)
{
    const std::span<const sExhibit> exhibits = Gallery::getExhibits();
    Gallery::open(exhibits[number % exhibits.size()]);
}

// Nothing for one whose file has been spoilt.
void openEditor(const char* name)
{
    const Held<AnimResource> animation(ResourceSystem::getInstance()->createResource<AnimResource>(name));
    if (animation.get())
        UISystem::getInstance()->addWindow(new AnimTool(animation.get()));
}

void openInspector()
{
    UISystem::getInstance()->addWindow(new SystemInfoWindow);
}

void openProgram()
{
    for (const char* name : AnimationTable)
        openEditor(name);
    openInspector();
}

void openOfProgram(unsigned int number)
{
    constexpr unsigned int KindNum = std::size(AnimationTable) + 2;
    const unsigned int kind = number % KindNum;
    if (kind < std::size(AnimationTable))
        openEditor(AnimationTable[kind]);
    else if (kind == std::size(AnimationTable))
        openInspector();
    else
        openExhibit(number / KindNum);
}

void copySamples(const std::string& root)
{
    std::filesystem::copy(SAMPLE_DIRECTORY, root + "/intermediate", std::filesystem::copy_options::recursive);
}
}

const sMonkeyStage sMonkeyStage::Gallery = {"gallery", [](const std::string&) {}, ::Gallery::openAll, openExhibit};
const sMonkeyStage sMonkeyStage::Program = {"program", copySamples, openProgram, openOfProgram};
