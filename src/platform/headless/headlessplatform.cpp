#include "platform/headless/headlessplatform.h"

#include "platform/posix.h"

bool HeadlessPlatform::openWindow(const char*, unsigned int width, unsigned int height)
{
    setWindowSize(width, height);
    mWindowOpen = !mWindowRefused;
    return mWindowOpen;
}

std::uint64_t HeadlessPlatform::getCount() const
{
    return mClockStopped ? mCount : Posix::getMonotonicCount();
}

void HeadlessPlatform::sleepFor(std::uint64_t nanoseconds)
{
    if (mClockStopped)
        advance(nanoseconds);
    else
        Posix::sleepFor(nanoseconds);
}

void HeadlessPlatform::stopClock(std::uint64_t count)
{
    mClockStopped = true;
    mCount = count;
}

void HeadlessPlatform::alert(const char* title, const char* message)
{
    mAlertText = std::string(title) + ": " + message;
}

unsigned int HeadlessPlatform::getProcessorNum() const
{
    return Posix::getProcessorNum();
}

void HeadlessPlatform::pumpEvents()
{
    if (!mEvents.empty())
    {
        const sMouseEvent event = mEvents.front();
        mEvents.pop_front();
        deliverMouse(event);
    }
    else if (mQuitPosted)
    {
        mQuitPosted = false;
        deliverQuit();
    }
}
