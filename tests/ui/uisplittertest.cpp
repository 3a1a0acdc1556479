#include "ui/uisplitter.h"

#include "tests/support/elements.h"

#include <gtest/gtest.h>

namespace
{
using eDirection = UISplitter::eSplitDirection;
using eBase = UISplitter::eSplitBase;
}

class UISplitterTest : public testing::Test
{
protected:
    UISplitter& make(eDirection direction, eBase base, unsigned int size, const sSize& whole)
    {
        UIBase* panes[] = {new ProbeElement(0, 0), new ProbeElement(0, 0)};
        panes[base == eBase::Second]->setMinimumSize({10, 20});
        mSplitter = new UISplitter(panes[0], panes[1], direction, size, base);
        mSplitter->setSize(whole);
        mParent = std::make_unique<ProbeElement>(500, 500);
        mParent->add(mSplitter);
        return *mSplitter;
    }

    std::unique_ptr<ProbeElement> mParent;
    UISplitter* mSplitter = nullptr;
};

TEST_F(UISplitterTest, DividesItsAreaAroundAGapOfFour)
{
    const struct
    {
        eDirection direction;
        eBase base;
        unsigned int size;
        sRect first, second;
    } cases[] = {
        {eDirection::Above, eBase::First, 40, {0, 0, 200, 36}, {0, 40, 200, 100}},
        {eDirection::Above, eBase::Second, 40, {0, 0, 200, 60}, {0, 64, 200, 100}},
        {eDirection::Beside, eBase::First, 40, {0, 0, 36, 100}, {40, 0, 200, 100}},
        {eDirection::Beside, eBase::Second, 40, {0, 0, 160, 100}, {164, 0, 200, 100}},
        {eDirection::Above, eBase::First, 3, {0, 0, 200, 20}, {0, 8, 200, 100}}, // 8, and the pane's own minimum.
        {eDirection::Above, eBase::First, 150, {0, 0, 200, 146}, {0, 150, 200, 150}},
        {eDirection::Above, eBase::Second, 150, {0, 0, 200, 0}, {0, -46, 200, 100}},
    };
    for (const auto& row : cases)
    {
        UISplitter& splitter = make(row.direction, row.base, row.size, {200, 100});
        splitter.update(1.0f);
        EXPECT_EQ(getRegions(splitter), (std::vector<sRect>{row.first, row.second})) << row.size;
    }
    EXPECT_EQ(make(eDirection::Above, eBase::First, 3, {200, 100}).getSplitSize(), 8u);
}

TEST_F(UISplitterTest, FollowsTheDraggedGapDownToTheMinimumOfItsBase)
{
    const struct
    {
        eDirection direction;
        eBase base;
        int position;
        unsigned int size;
    } cases[] = {
        {eDirection::Above, eBase::First, 60, 60},  {eDirection::Above, eBase::First, 23, 24},
        {eDirection::Above, eBase::First, -1, 24},  {eDirection::Above, eBase::First, 100, 100},
        {eDirection::Above, eBase::Second, 60, 40}, {eDirection::Above, eBase::Second, 77, 24},
        {eDirection::Above, eBase::Second, -1, 24}, {eDirection::Above, eBase::Second, 100, 100},
        {eDirection::Beside, eBase::First, 5, 14},  {eDirection::Beside, eBase::Second, 60, 140},
    };
    for (const auto& row : cases)
    {
        UISplitter& splitter = make(row.direction, row.base, 40, {200, 100});
        const bool beside = row.direction == eDirection::Beside;
        EXPECT_EQ(splitter.getCursor(), beside ? UIBase::eCursor::LeftRight : UIBase::eCursor::UpDown);
        splitter.sendMessage(UIMouseDownMessage(sPoint(38, 38), 3));
        splitter.sendMessage(UIMouseMoveMessage(beside ? sPoint(row.position, 50) : sPoint(50, row.position)));
        EXPECT_EQ(splitter.getSplitSize(), row.size) << row.position;
        EXPECT_EQ(mParent->mMoved, 0u);
    }
}

TEST_F(UISplitterTest, LetsOtherInputRiseToItsParent)
{
    UISplitter& splitter = make(eDirection::Above, eBase::First, 40, {200, 100});
    splitter.sendMessage(UIMouseMoveMessage(sPoint(60, 60)));
    splitter.sendMessage(UIMouseDownMessage(sPoint(38, 38), 2));
    splitter.sendMessage(UIMouseMoveMessage(sPoint(60, 60)));
    splitter.sendMessage(UIMouseWheelMessage(sPoint(0, 3)));
    EXPECT_EQ(splitter.getSplitSize(), 40u);
    EXPECT_EQ(mParent->mMoved, 2u);
    EXPECT_EQ(mParent->mWheel, sPoint(0, 3));
}
