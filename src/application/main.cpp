#include "application/animationtarget.h"
#include "application/commandline.h"
#include "application/gallery.h"
#include "application/testapp.h"
#include "application/viewer.h"
#include "foundation/dev.h"
#include "platform/platform.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <malloc.h>

namespace
{
constexpr int WrongUse = 2;
constexpr unsigned int PathSize = 1024;

constexpr Application::sInitializer Initializer = {
    .title = "Test Application",
    .windowWidth = 1024,
    .windowHeight = 768,
    .frameRate = 60,
    .minFrameRate = 20,
    .maxFrameRate = 240,
};

int refuse(const std::string& reason)
{
    std::fprintf(stderr, "cellwright: %s\n", reason.c_str());
    return WrongUse;
}

// The software driver of the graphics library asks for large blocks in each frame; by default each would come from
// the system anew, and go back to it.
void keepFreedMemory()
{
    mallopt(M_MMAP_THRESHOLD, 1073741824);
    mallopt(M_TRIM_THRESHOLD, 2147483647);
    mallopt(M_TOP_PAD, 67108864);
}

bool isSameDirectory(const std::string& a, const std::string& b)
{
    std::error_code error;
    return std::filesystem::equivalent(a, b, error);
}

bool isFile(const std::string& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

// What is wrong with the animation that is to be edited or shown, and with the directory of the data; empty if
// nothing is. Asked before there is a window. `line` gets the directory and the logical name.
std::string resolveTarget(sCommandLine& line)
{
    std::string& name = line.play.empty() ? line.file : line.play;
    sAnimationTarget target;
    if (!name.empty() && !findAnimationTarget(name, target))
        return name + " does not lie in a directory \"intermediate\"";
    if (target.root.empty() && isFile(name))
        return name + " is not an animation, whose name ends in \".asq.xml\"";
    if (!target.root.empty() && !line.root.empty() && !isSameDirectory(target.root, line.root))
        return name + " does not lie in " + line.root;
    if (!target.root.empty())
        line.root = target.root;

    Platform::forceResourceDirectory(line.root.c_str());
    char root[PathSize];
    if (!Platform::getResourceDirectory(root, sizeof(root)))
        return "there is no directory for the data" + (line.root.empty() ? std::string() : ": " + line.root);
    if (name.empty())
        return std::string();

    const std::string fault = Viewer::checkFile(std::string(root) + "/intermediate/" + target.name + ".asq.xml");
    name = target.name;
    return fault;
}

void showAlert(const char* title, const char* message)
{
    if (Platform* platform = Platform::getInstance())
        platform->alert(title, message);
}

// What the user asks for instead of a new animation. False when there is no animation of that name.
bool start(TestApp& application, const sCommandLine& line)
{
    if (line.gallery)
        Gallery::openAll();
    if (!line.play.empty())
        return application.play(line.play.c_str());
    return line.file.empty() || application.edit(line.file.c_str());
}

int runProgram(const sCommandLine& line)
{
    TestApp application(&Initializer);
    application.setEditor(line.file.empty() && line.play.empty() && !line.gallery);
    application.setup();
    application.setFrameLimit(line.frames);
    if (application.getWindowHandle() && !start(application, line))
        return refuse(line.play + line.file + " is not an animation");
    return application.execute();
}
}

int main(int count, char** arguments)
{
    sCommandLine line = parseCommandLine(count, arguments);
    if (line.help)
        return std::printf("%s", sCommandLine::getHelpText()) < 0;
    if (line.version)
        return std::printf("cellwright %s\n", CELLWRIGHT_VERSION) < 0;
    if (line.error.empty())
        line.error = resolveTarget(line);
    if (!line.error.empty())
        return refuse(line.error);

    keepFreedMemory();
    if (!Platform::create(line.headless ? ePlatform::Headless : ePlatform::SDL))
        return refuse("there is no desktop to open a window on");
    dev::alert = showAlert;
    const int status = runProgram(line);
    Platform::destroy();
    return status;
}
