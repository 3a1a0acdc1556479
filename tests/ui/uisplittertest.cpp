#include "ui/uisplitter.h"

#include "tests/support/elements.h"

#include <gtest/gtest.h>

class UISplitterTest : public testing::Test
{
protected:
    using eDirection = UISplitter::eSplitDirection;
    using eBase = UISplitter::eSplitBase;

    // The base pane is at least 10 by 20.
    UISplitter& make(eDirection direction, eBase base, unsigned int size)
    {
        UIBase* panes[] = {new ProbeElement({0, 0}), new ProbeElement({0, 0})};
        panes[base == eBase::Second]->setMinimumSize({10, 20});
        UISplitter* splitter = new UISplitter(panes[0], panes[1], direction, size, base);
        splitter->setSize({200, 100});
        mParent.add(splitter);
        return *splitter;
    }

    ProbeElement mParent{{500, 500}};
};

TEST_F(UISplitterTest, DividesItsAreaAndFollowsTheDraggedGap)
{
    using enum eDirection;
    using enum eBase;
    const struct
    {
        eDirection direction;
        eBase base;
        unsigned int size;
        sRect first, second;
        int position;
        unsigned int draggedSize;
    } cases[] = {
        {Above, First, 40, {0, 0, 200, 36}, {0, 40, 200, 100}, 60, 60},
        {Above, Second, 40, {0, 0, 200, 60}, {0, 64, 200, 100}, 60, 40},
        {Beside, First, 40, {0, 0, 36, 100}, {40, 0, 200, 100}, 5, 14},
        {Beside, Second, 40, {0, 0, 160, 100}, {164, 0, 200, 100}, 60, 140},
        {Above, First, 3, {0, 0, 200, 20}, {0, 8, 200, 100}, -1, 24}, // 8, and the pane's own minimum.
        {Above, First, 150, {0, 0, 200, 146}, {0, 150, 200, 150}, 100, 100},
        {Above, Second, 150, {0, 0, 200, 0}, {0, -46, 200, 100}, -1, 24},
        {Above, Second, 40, {0, 0, 200, 60}, {0, 64, 200, 100}, 100, 100},
    };
    for (const auto& row : cases)
    {
        UISplitter& splitter = make(row.direction, row.base, row.size);
        splitter.update(1.0f);
        EXPECT_EQ(getRegions(splitter), (std::vector<sRect>{row.first, row.second})) << row.size;
        splitter.sendMessage(UIMouseDownMessage(sPoint(38, 38), 3));
        splitter.sendMessage(
            UIMouseMoveMessage(row.direction == Beside ? sPoint(row.position, 50) : sPoint(50, row.position)));
        EXPECT_EQ(splitter.getSplitSize(), row.draggedSize) << row.position;
    }
    EXPECT_EQ(mParent.mMoved, 0u);
}

TEST_F(UISplitterTest, LetsOtherInputRiseToItsParent)
{
    UISplitter& splitter = make(eDirection::Above, eBase::First, 40);
    splitter.sendMessage(UIMouseMoveMessage(sPoint(60, 60)));
    splitter.sendMessage(UIMouseDownMessage(sPoint(38, 38), 2));
    splitter.sendMessage(UIMouseMoveMessage(sPoint(60, 60)));
    splitter.sendMessage(UIMouseWheelMessage(sPoint(0, 3)));
    EXPECT_EQ(splitter.getSplitSize(), 40u);
    EXPECT_EQ(mParent.mMoved, 2u);
    EXPECT_EQ(mParent.mWheel, sPoint(0, 3));
}
