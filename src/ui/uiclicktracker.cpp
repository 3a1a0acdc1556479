#include "ui/uiclicktracker.h"

bool UIClickTracker::press(UIBase* target, unsigned int button, std::uint64_t now)
{
    const std::uint32_t elapsed = static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(mLastTime);
    const bool second = (mLastButton & button) && mLastTarget == target && elapsed < DoubleClickTime;

    mLastButton = button;
    mLastTarget = second ? nullptr : target;
    if (!second)
        mLastTime = now;
    return second;
}
