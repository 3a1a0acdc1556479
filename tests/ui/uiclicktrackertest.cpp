#include "ui/uiclicktracker.h"

#include "ui/uibase.h"

#include <gtest/gtest.h>

TEST(UIClickTrackerTest, TellsTheSecondPressOfADoubleClick)
{
    UIBase a;
    UIBase b;
    const struct
    {
        const char* what;
        UIBase* target;
        unsigned int button;
        unsigned int pause;
        bool second;
    } presses[] = {
        {"the first", &a, 1, 0, false},       {"in time", &a, 1, 249, true},       {"the third", &a, 1, 1, false},
        {"the fourth", &a, 1, 1, true},       {"plain again", &a, 1, 1, false},    {"too late", &a, 1, 250, false},
        {"another element", &b, 1, 1, false}, {"another button", &b, 2, 1, false}, {"a common button", &b, 3, 1, true},
    };
    UIClickTracker tracker;
    // The low half of the milliseconds wraps on the way.
    std::uint64_t now = 0xFFFFFFFFull - 100;
    for (const auto& row : presses)
        EXPECT_EQ(tracker.press(row.target, row.button, now += row.pause), row.second) << row.what;
}
