#include "application/application.h"

#include "application/systemmanager.h"
#include "foundation/dev.h"
#include "foundation/memorymanager.h"
#include "foundation/multithread.h"
#include "foundation/trigonometricalfunction.h"
#include "platform/platform.h"
#include "platform/posix.h"

#include <algorithm>
#include <cstdio>

REFLECT(Application, eTypeAttribute::Abstract, "ObjectBase");

namespace
{
constexpr unsigned int ButtonNum = 3;

void requirePath(bool made)
{
    if (!made)
        DEV_ERROR("Getting root path failed.");
}

// On purpose: the timer's words serve for the mouse handler as well.
void requireInstalled(bool installed)
{
    if (!installed)
        DEV_ERROR("Application : InstallEventTimer failed.\n");
}
}

Application* Application::mpInstance = nullptr;
Application::CountFunction Application::mpCountFunction = nullptr;

Application::Application(const sInitializer* initializer)
{
    DEV_TRACE("Application : start.\n");
    if (!initializer)
        return;

    mWindowWidth = initializer->windowWidth;
    mWindowHeight = initializer->windowHeight;
    mpInstance = this;
    mPacer = FramePacer(static_cast<float>(initializer->frameRate), static_cast<float>(initializer->minFrameRate),
                        static_cast<float>(initializer->maxFrameRate), 1, 1);

    Platform* platform = Platform::getInstance();
    mProcessorNum = Posix::getProcessorNum();
    if (!platform || !platform->openWindow(initializer->title, mWindowWidth, mWindowHeight))
        return;
    mpWindow = platform;

    makeRootPath();
    makeIntermediatePath();
    makeNativePath();

    MemoryManager::create();
    SystemManager::create();
    TrigonometricalFunction::initialize();
}

Application::~Application()
{
    if (mpWindow)
        mpWindow->removeHandlers();
    if (SystemManager::getInstance())
        SystemManager::getInstance()->destroy();
    if (MemoryManager::getInstance())
        MemoryManager::getInstance()->destroy();
    if (mpWindow)
        mpWindow->closeWindow();
    DEV_TRACE("Application : end.\n");
    if (mpInstance == this)
        mpInstance = nullptr;
}

void Application::makeRootPath()
{
    char directory[PathSize];
    requirePath(Platform::getResourceDirectory(directory, sizeof(directory)));
    const int length = std::snprintf(mRootPath, PathSize, "%s/", directory);
    requirePath(length > 0 && static_cast<unsigned int>(length) < PathSize);
}

void Application::makeIntermediatePath()
{
    makeSubPath(mIntermediatePath, "intermediate/");
}

void Application::makeNativePath()
{
    makeSubPath(mNativePath, "native/");
}

void Application::makeSubPath(char (&path)[PathSize], const char* name)
{
    const int length = std::snprintf(path, PathSize, "%s%s", mRootPath, name);
    requirePath(length > 0 && static_cast<unsigned int>(length) < PathSize);
}

int Application::execute()
{
    DEV_TRACE("Application : execute.\n");
    requireInstalled(mpWindow && mpWindow->installTimer(eventLoop, this));
    requireInstalled(mpWindow->installMouseHandler(eventHandler, this));
    mpWindow->setQuitHandler(quitHandler, this);
    mpWindow->runEventLoop();
    return 0;
}

void Application::quit()
{
    if (mpWindow)
        mpWindow->quitEventLoop();
}

std::uint64_t Application::getAbsoluteCount()
{
    if (mpCountFunction)
        return mpCountFunction();
    return Platform::getInstance() ? Platform::getInstance()->getCount() : Posix::getMonotonicCount();
}

void Application::setTempAllocator(AllocatorBase* allocator)
{
    if (mpTempAllocator)
        dev_assert("TempAllocator already set.", __FILE__, __LINE__);
    mpTempAllocator = allocator;
}

void Application::eventLoop(void* userData)
{
    static_cast<Application*>(userData)->checkInterval();
}

void Application::quitHandler(void* userData)
{
    static_cast<Application*>(userData)->requestQuit();
}

void Application::checkInterval()
{
    const std::uint64_t now = getAbsoluteCount();
    if (mPacer.start(now))
        return;
    if (const std::optional<float> delta = mPacer.begin(now))
        update(*delta);
    if (const unsigned int sleepTime = mPacer.getSleepTime(getAbsoluteCount()))
        Thread::sleep(sleepTime);
}

void Application::eventHandler(const sMouseEvent& event, void* userData)
{
    static_cast<Application*>(userData)->handleMouse(event);
}

void Application::handleMouse(const sMouseEvent& event)
{
    const unsigned int bit = event.button >= 1 && event.button <= ButtonNum ? 1u << (event.button - 1) : 0;
    switch (event.kind)
    {
    case eMouseEvent::Down: mMouseButton |= bit; break;
    case eMouseEvent::Up: mMouseButton &= ~bit; break;
    case eMouseEvent::Wheel: mWheelAmount[event.axis == 0 ? 0 : 1] += event.amount; break;
    case eMouseEvent::Moved:
    case eMouseEvent::Dragged: break;
    }
    if (event.hasPosition)
        moveCursor(event);
}

// On purpose: a drag may leave the window, and reports where it is then; nothing else does.
void Application::moveCursor(const sMouseEvent& event)
{
    mCursorPosition = sPoint(event.x, event.y);
    if (event.kind == eMouseEvent::Dragged)
        return;
    mCursorPosition.x = std::clamp(event.x, 0, static_cast<int>(mWindowWidth) - 1);
    mCursorPosition.y = std::clamp(event.y, 0, static_cast<int>(mWindowHeight) - 1);
}
