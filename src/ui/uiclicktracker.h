#pragma once

#include <atomic>
#include <cstdint>

class UIBase;

// Tells the second press of a double click from a plain one. The element of the last press is forgotten when it dies,
// which may happen on any thread: a new element at its address would be taken for it.
class UIClickTracker
{
public:
    static constexpr std::uint32_t DoubleClickTime = 250;

    // Records a press of the buttons of a mask, `now` in milliseconds. True for a second press of one of the former
    // buttons on the same element within DoubleClickTime. A press behind that one is plain again.
    bool press(UIBase* target, unsigned int button, std::uint64_t now);

    void forget(UIBase* element) { mLastTarget.compare_exchange_strong(element, nullptr); }

private:
    unsigned int mLastButton = 0;
    std::uint64_t mLastTime = 0;
    std::atomic<UIBase*> mLastTarget = nullptr;
};
