#include "ui/uiscrollbar.h"

#include "tests/support/elements.h"

#include <gtest/gtest.h>

#include <climits>
#include <tuple>

class UIScrollBarTest : public testing::Test
{
protected:
    UIScrollBarTest() { mBar.setSize({12, 124}); }

    static void set(UIScrollBar& bar, int minimum, int maximum, unsigned int range, int position)
    {
        bar.setMinimum(minimum);
        bar.setMaximum(maximum);
        bar.setBarRange(range);
        bar.setBarPosition(position);
    }

    // Each returns where the bar is afterwards.
    int send(const UIMessage& message) { return mBar.sendMessage(message), mBar.getBarPosition(); }
    int press(int y, unsigned int button = 1) { return send(UIMouseDownMessage(sPoint(5, y), button)); }

    UIScrollBar mBar{UIScrollBar::eBarDirection::Vertical};
};

TEST_F(UIScrollBarTest, ShowsPositionAndRangeAsAThumb)
{
    const std::tuple<int, int, unsigned int, int, int, int> cases[] = {
        {0, 200, 50, 0, 12, 37},     {-100, 100, 50, 1, 62, 87},
        {0, 200, 50, 200, 112, 137}, // A position limited by the maximum alone.
        {0, 10000, 10, 0, 12, 16},   // Four pixels at least.
        {0, 5, 4, 1, 32, 112},       {0, 4, 1, 1, 0, 0},
        {0, 200, 200, 0, 0, 0},      {INT_MIN, INT_MAX, 0x80000000u, 0, 62, 112},
    };
    UIScrollBar level(UIScrollBar::eBarDirection::Horizontal);
    level.setSize({124, 12});
    for (const auto& [minimum, maximum, range, position, begin, end] : cases)
    {
        for (UIScrollBar* bar : {&mBar, &level})
            set(*bar, minimum, maximum, range, position);
        EXPECT_EQ(mBar.getBarRegion(), sRect(0, begin, end ? 12 : 0, end)) << maximum;
        EXPECT_EQ(level.getBarRegion(), sRect(begin, 0, end, end ? 12 : 0));
    }
}

TEST_F(UIScrollBarTest, StepsByArrowsAndTheWheelInItsLimits)
{
    set(mBar, 10, 100, 20, 500);
    mBar.update(1.0f);
    EXPECT_EQ(getRegions(mBar), (std::vector<sRect>{{0, 0, 12, 12}, {0, 112, 12, 124}}));
    for (const int expected : {99, 100, 100})
    {
        UIBase* arrow = *(mBar.getChildrenBegin() + (expected == 100));
        arrow->sendMessage(UIMouseUpMessage(sPoint(5, 5), 1));
        EXPECT_EQ(mBar.getBarPosition(), expected);
    }
    EXPECT_EQ(send(UIMouseWheelMessage(sPoint(50, 3))), 97) << "its own axis only";
    mBar.setBarRange(0xFFFFFFFF);
    EXPECT_EQ(mBar.getBarPosition(), 10);
    set(mBar, INT_MIN, INT_MAX, 0, INT_MAX);
    EXPECT_EQ(send(UIMouseWheelMessage(sPoint(0, -3))), INT_MAX);
}

TEST_F(UIScrollBarTest, StepsByHalfARangeBesideTheThumb)
{
    set(mBar, 0, 200, 51, 100);
    EXPECT_EQ(press(61), 74) << "before it";
    EXPECT_EQ(press(49), 74) << "its first pixel is the thumb";
    EXPECT_EQ(press(76), 100) << "behind it";
    EXPECT_EQ(press(20, 2), 100);
    mBar.disable();
    EXPECT_EQ(press(20), 100);
    mBar.enable();
    set(mBar, 0, 4, 1, 1);
    EXPECT_EQ(send(UIMouseDownMessage(sPoint::Zero, 1)), 2) << "without a thumb always forward";
}
