#include "application/commandline.h"
#include "application/gallery.h"
#include "application/playtarget.h"
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

// What is wrong with the animation that is to be shown, and with the directory of the data; empty if nothing is.
// Asked before there is a window. `line` gets the directory and the logical name.
std::string resolvePlay(sCommandLine& line)
{
    sPlayTarget target;
    if (!line.play.empty() && !findPlayTarget(line.play, target))
        return line.play + " does not lie in a directory \"intermediate\"";
    if (!target.root.empty() && !line.root.empty() && !isSameDirectory(target.root, line.root))
        return line.play + " does not lie in " + line.root;
    if (!target.root.empty())
        line.root = target.root;

    Platform::forceResourceDirectory(line.root.c_str());
    char root[PathSize];
    if (!Platform::getResourceDirectory(root, sizeof(root)))
        return "there is no directory for the data" + (line.root.empty() ? std::string() : ": " + line.root);
    if (line.play.empty())
        return std::string();

    const std::string fault = Viewer::checkFile(std::string(root) + "/intermediate/" + target.name + ".asq.xml");
    line.play = target.name;
    return fault;
}

void showAlert(const char* title, const char* message)
{
    if (Platform* platform = Platform::getInstance())
        platform->alert(title, message);
}

int runProgram(const sCommandLine& line)
{
    TestApp application(&Initializer);
    application.setup();
    application.setFrameLimit(line.frames);
    if (line.gallery && application.getWindowHandle())
        Gallery::openAll();
    const bool isPlayer = !line.play.empty() && application.getWindowHandle();
    if (isPlayer && !application.play(line.play.c_str()))
        return refuse(line.play + " is not an animation");
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
        line.error = resolvePlay(line);
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
