// The program with its real heaps and without a window, which counts what its frames take from the heaps: "play NAME"
// or "gallery", for the data below a directory. Says how many blocks it has asked for up to its first second, and in
// the one behind it. With "edit NAME" it changes an animation and says whether that could be saved.

#include "animation/animresource.h"
#include "animation/animtool.h"
#include "application/gallery.h"
#include "application/testapp.h"
#include "foundation/gpallocator.h"
#include "foundation/memorymanager.h"
#include "platform/platform.h"
#include "resource/resourcesystem.h"
#include "ui/uisystem.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace
{
constexpr Application::sInitializer Initializer = {"Frames", 1024, 768, 60, 20, 240};

// A second.
constexpr unsigned int FrameNum = 60;

// All general heaps of the program, whatever is taken from them.
unsigned int countBlocks()
{
    const auto count = [](const AllocatorBase* heap)
    {
        return static_cast<const GPAllocator*>(heap)->getCallCount();
    };
    const MemoryManager* manager = MemoryManager::getInstance();
    unsigned int sum = manager ? 0 : count(AllocatorBase::getGlobalAllocator());
    for (unsigned int i = 0; manager && i < manager->getAllocatorNum(); ++i)
        sum += count(manager->getAllocator(i));
    return sum;
}

// How many blocks the next frames ask for.
unsigned int runFrames(TestApp& application, unsigned int count)
{
    const unsigned int before = countBlocks();
    for (unsigned int i = 0; i < count; ++i)
        application.update(1.0f);
    return countBlocks() - before;
}

int edit(const char* name)
{
    TestApp application(&Initializer);
    application.setEditor(false);
    application.setup();
    AnimResource* animation = ResourceSystem::getInstance()->createResource<AnimResource>(name);
    if (!animation)
        return EXIT_FAILURE;
    AnimTool* tool = new AnimTool(animation);
    animation->release();
    UISystem::getInstance()->addWindow(tool);
    runFrames(application, 2);
    tool->eventAddSequencerTrack();
    tool->setEndFrame(tool->getEndFrame() + 1);
    runFrames(application, 2);
    tool->eventSave();
    std::printf(tool->isManagedResourceModified() ? "refused" : "saved");
    return EXIT_SUCCESS;
}

int run(const char* animation)
{
    const unsigned int before = countBlocks();
    TestApp application(&Initializer);
    application.setEditor(false);
    application.setup();
    if (!animation)
        Gallery::openAll();
    else if (!application.play(animation))
        return EXIT_FAILURE;
    runFrames(application, FrameNum);
    std::printf("%u to begin with, ", countBlocks() - before);
    std::printf("%u in a second\n", runFrames(application, FrameNum));
    return EXIT_SUCCESS;
}
}

// frameprogram DIRECTORY gallery | frameprogram DIRECTORY play NAME | frameprogram DIRECTORY edit NAME
int main(int argumentNum, char** arguments)
{
    const bool play = argumentNum == 4 && std::strcmp(arguments[2], "play") == 0;
    const bool edits = argumentNum == 4 && std::strcmp(arguments[2], "edit") == 0;
    if (!play && !edits && !(argumentNum == 3 && std::strcmp(arguments[2], "gallery") == 0))
        return EXIT_FAILURE;
    if (!Platform::create(ePlatform::Headless))
        return EXIT_FAILURE;
    Platform::forceResourceDirectory(arguments[1]);
    const int status = edits ? edit(arguments[3]) : run(play ? arguments[3] : nullptr);
    Platform::destroy();
    return status;
}
