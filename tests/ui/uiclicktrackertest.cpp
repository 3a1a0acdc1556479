#include "ui/uiclicktracker.h"

#include "ui/uibase.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(UIClickTrackerTest, TellsTheSecondPressOfADoubleClick)
{
    UIBase a;
    UIBase b;
    // The target, the button, the milliseconds since the press before, and whether it is a second press.
    const std::tuple<UIBase*, unsigned int, unsigned int, bool> presses[] = {
        {&a, 1, 0, false},   {&a, 1, 249, true}, {&a, 1, 1, false}, {&a, 1, 1, true}, {&a, 1, 1, false},
        {&a, 1, 250, false}, {&b, 1, 1, false},  {&b, 2, 1, false}, {&b, 3, 1, true},
    };
    UIClickTracker tracker;
    // The low half of the milliseconds wraps on the way.
    std::uint64_t now = 0xFFFFFFFFull - 100;
    for (const auto& [target, button, pause, second] : presses)
        EXPECT_EQ(tracker.press(target, button, now += pause), second) << button << " after " << pause;
}
