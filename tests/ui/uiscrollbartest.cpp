#include "ui/uiscrollbar.h"

#include "tests/support/elements.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
using eDirection = UIScrollBar::eBarDirection;

struct sState
{
    int minimum, maximum;
    unsigned int range;
    int position;
};

void set(UIScrollBar& bar, const sState& state)
{
    bar.setMinimum(state.minimum);
    bar.setMaximum(state.maximum);
    bar.setBarRange(state.range);
    bar.setBarPosition(state.position);
}

void press(UIBase& element, const sPoint& position, unsigned int button = 1)
{
    element.sendMessage(UIMouseDownMessage(position, button));
}

void release(UIBase& element, const sPoint& position, unsigned int button = 1)
{
    element.sendMessage(UIMouseUpMessage(position, button));
}
}

class UIScrollBarTest : public testing::Test
{
protected:
    UIScrollBarTest() { mBar.setSize({12, 124}); }

    // Where the bar is after a press at that point of its length.
    int press(int y)
    {
        ::press(mBar, sPoint(5, y));
        return mBar.getBarPosition();
    }

    int drag(int y)
    {
        mBar.sendMessage(UIMouseMoveMessage(sPoint(5, y)));
        return mBar.getBarPosition();
    }

    UIScrollBar mBar{eDirection::Vertical};
};

TEST_F(UIScrollBarTest, ShowsPositionAndRangeAsAThumb)
{
    const struct
    {
        sState state;
        int begin, end;
    } cases[] = {
        {{0, 200, 50, 0}, 12, 37},    {{0, 200, 50, 101}, 62, 87},
        {{-100, 100, 50, 0}, 62, 87}, {{0, 200, 50, 200}, 112, 137}, // A position limited by the maximum alone.
        {{0, 10000, 10, 0}, 12, 16},                                 // Four pixels at least.
        {{0, 5, 4, 1}, 32, 112},      {{0, 4, 1, 1}, 0, 0},
        {{0, 200, 200, 0}, 0, 0},     {{INT_MIN, INT_MAX, 0x80000000u, 0}, 62, 112},
    };
    UIScrollBar level(eDirection::Horizontal);
    level.setSize({124, 12});
    for (const auto& row : cases)
    {
        set(mBar, row.state);
        set(level, row.state);
        const bool none = row.end == 0;
        EXPECT_EQ(mBar.getBarRegion(), sRect(0, row.begin, none ? 0 : 12, row.end)) << row.state.maximum;
        EXPECT_EQ(level.getBarRegion(), sRect(row.begin, 0, row.end, none ? 0 : 12));
    }
}

TEST_F(UIScrollBarTest, KeepsThePositionInItsLimits)
{
    set(mBar, {10, 100, 20, 500});
    EXPECT_EQ(mBar.getBarPosition(), 100);
    mBar.setBarRange(30);
    EXPECT_EQ(mBar.getBarPosition(), 70);
    mBar.setBarRange(0xFFFFFFFF);
    EXPECT_EQ(mBar.getBarPosition(), 10);
    mBar.setMaximum(5);
    EXPECT_EQ(mBar.getBarPosition(), 10);

    set(mBar, {INT_MIN, INT_MAX, 0, INT_MAX});
    mBar.increment();
    EXPECT_EQ(mBar.getBarPosition(), INT_MAX);
    mBar.sendMessage(UIMouseWheelMessage(sPoint(50, -3)));
    EXPECT_EQ(mBar.getBarPosition(), INT_MAX);
    mBar.sendMessage(UIMouseWheelMessage(sPoint(50, 3)));
    EXPECT_EQ(mBar.getBarPosition(), INT_MAX - 3) << "its own axis only";
}

TEST_F(UIScrollBarTest, StepsByAClickOnAnArrow)
{
    set(mBar, {0, 200, 50, 100});
    mBar.update(1.0f);
    EXPECT_EQ(getRegions(mBar), (std::vector<sRect>{{0, 0, 12, 12}, {0, 112, 12, 124}}));
    const int expected[] = {99, 100};
    for (int i = 0; i < 2; ++i)
    {
        ::press(*getChild(mBar, i), sPoint(5, 5));
        release(*getChild(mBar, i), sPoint(5, 5));
        EXPECT_EQ(mBar.getBarPosition(), expected[i]);
    }
}

TEST_F(UIScrollBarTest, StepsByHalfARangeBesideTheThumb)
{
    set(mBar, {0, 200, 51, 100});
    EXPECT_EQ(press(61), 74) << "before it";
    EXPECT_EQ(press(49), 74) << "its first pixel is the thumb";
    EXPECT_EQ(press(76), 100) << "behind it";
    mBar.disable();
    EXPECT_EQ(press(20), 100);
    mBar.enable();
    ::press(mBar, sPoint(5, 20), 2);
    EXPECT_EQ(mBar.getBarPosition(), 100);

    set(mBar, {0, 4, 1, 1});
    EXPECT_EQ(press(0), 2) << "without a thumb always forward";
}

TEST_F(UIScrollBarTest, DragsTheThumbUntilAnyRelease)
{
    for (const unsigned int button : {1u, 2u, 255u})
    {
        set(mBar, {0, 200, 50, 0});
        press(20);
        EXPECT_EQ(drag(30), 20);
        EXPECT_EQ(drag(-500), 0);
        release(mBar, sPoint(5, 20), button);
        press(100);
        EXPECT_EQ(drag(20), 25) << "this press was beside the thumb";
        release(mBar, sPoint(5, 20));
    }

    mBar.setSize({12, 24});
    press(13);
    EXPECT_EQ(drag(20), 25) << "a bar without a track stays";
}
