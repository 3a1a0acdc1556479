#include "platform/platform.h"

#include "platform/dataroot.h"
#include "platform/headless/headlessplatform.h"
#include "platform/posix.h"
#include "platform/sdl/sdlplatform.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace
{
constexpr std::uint64_t FirstFiringNanoseconds = 100000000;
constexpr std::uint64_t FiringPeriodNanoseconds = 100000;
}

Platform* Platform::mpInstance = nullptr;
const char* Platform::mForcedDirectory = "";

bool Platform::create(ePlatform kind)
{
    destroy();
    Posix::catchEndSignals();
    if (kind == ePlatform::SDL)
        mpInstance = SDLPlatform::create();
    else
        mpInstance = new HeadlessPlatform;
    return mpInstance != nullptr;
}

void Platform::destroy()
{
    delete mpInstance;
    mpInstance = nullptr;
}

bool Platform::getResourceDirectory(char* path, std::size_t size)
{
    const std::string root = findDataRoot(getDataPlaces(mForcedDirectory));
    if (root.empty() || root.size() >= size)
        return false;
    std::memcpy(path, root.c_str(), root.size() + 1);
    return true;
}

bool Platform::installTimer(TimerCallback callback, void* userData)
{
    if (!isWindowOpen())
        return false;
    mTimer = {callback, userData};
    mNextFiring = getCount() + FirstFiringNanoseconds;
    return true;
}

bool Platform::installMouseHandler(MouseCallback callback, void* userData)
{
    if (!isWindowOpen())
        return false;
    mMouse = {callback, userData};
    return true;
}

void Platform::setQuitHandler(QuitCallback callback, void* userData)
{
    mQuitHandler = {callback, userData};
}

void Platform::removeHandlers()
{
    mTimer = {};
    mMouse = {};
    mQuitHandler = {};
}

void Platform::runEventLoop()
{
    mQuit = false;
    while (!mQuit && !Posix::isEndRequested())
    {
        pumpEvents();
        const std::uint64_t now = getCount();
        if (mTimer.callback && now >= mNextFiring)
            fireTimer(now);
        else
            sleepFor(mTimer.callback ? std::min(mNextFiring - now, FiringPeriodNanoseconds) : FiringPeriodNanoseconds);
    }
}

// Firings that a long frame has held up are one firing: the period counts from here.
void Platform::fireTimer(std::uint64_t now)
{
    mNextFiring = now + FiringPeriodNanoseconds;
    mTimer.callback(mTimer.userData);
}

void Platform::deliverMouse(const sMouseEvent& event)
{
    if (mMouse.callback)
        mMouse.callback(event, mMouse.userData);
}

void Platform::deliverQuit()
{
    if (mQuitHandler.callback)
        mQuitHandler.callback(mQuitHandler.userData);
    else
        quitEventLoop();
}
