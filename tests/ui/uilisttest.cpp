#include "ui/uilist.h"

#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "tests/support/elements.h"
#include "tests/support/headlesssystems.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

#include <deque>

namespace
{
constexpr sRect View(0, 0, 1024, 768);
constexpr unsigned int IntType = ValueTraits<int>::type;

struct sThing : public ObjectBase
{
    explicit sThing(int value) : number(value) {}
    void makePropertyList(PropertyList& list) override { list.addReference("number", number); }

    int number;
};

// Notes which rows and cells are drawn.
class RecordingList : public UIList
{
public:
    void drawRow(UIPainter* painter, PropertyList* properties, const sRect& rect, unsigned int row) override
    {
        mRows.push_back({rect, row});
        UIList::drawRow(painter, properties, rect, row);
    }

    void drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                    unsigned int row, unsigned int column) override
    {
        mCells.push_back(rect);
        UIList::drawColumn(painter, property, rect, alignment, row, column);
    }

    void notify() { ++mChosen; }

    std::vector<std::pair<sRect, unsigned int>> mRows;
    std::vector<sRect> mCells;
    unsigned int mChosen = 0;
};
}

class UIListTest : public testing::Test
{
protected:
    UIListTest()
    {
        mList.addColumn("number", IntType, 60, UIList::eColumnAlignment::Left);
        mList.addColumn("absent", IntType, 300, UIList::eColumnAlignment::Left);
        mList.addColumn("number", IntType, 50, UIList::eColumnAlignment::Right);
        mList.setFunction(&mList, &RecordingList::notify);
        mList.setSize({200, 122});
    }

    void fill(int count)
    {
        mObjects.clear();
        for (int i = 0; i < count; ++i)
            mObjects.addLast(&mThings.emplace_back(i));
        mList.setObjectList(&mObjects);
        updateFrame(mList);
    }

    std::vector<sRecordedDraw> paint()
    {
        mList.mRows.clear();
        mList.mCells.clear();
        updateFrame(mList);
        return mSystems.record(
            [this](DrawContext& context)
            {
                UIPainter painter(&context, 0);
                painter.setRegion(View, sPoint::Zero);
                mList.eventPaint(&painter);
            });
    }

    // The headers come first, then the bar that is no longer used.
    UIBase* getBar() { return getChild(mList, 4); }

    HeadlessSystems mSystems;
    ObjectList mObjects;
    std::deque<sThing> mThings;
    RecordingList mList;
};

TEST_F(UIListTest, ScrollsFromTheFirstRowThatDoesNotFit)
{
    fill(6);
    EXPECT_FALSE(getBar()->isVisible());
    fill(7);
    EXPECT_TRUE(getBar()->isVisible());
    EXPECT_EQ(getBar()->getRelRegion(), sRect(187, 17, 199, 121));
    fill(0);
    EXPECT_FALSE(getBar()->isVisible());
    EXPECT_FALSE(getChild(mList, 0)->isVisible()) << "the first bar is out of use";
    EXPECT_EQ(getChild(mList, 3)->getRelRegion(), sRect(105, 1, 155, 17)) << "the 300 pixels before it are kept as 44";
}

TEST_F(UIListTest, SelectsAndChoosesRows)
{
    const auto press = [this](int y, unsigned int button = 1)
    {
        mList.sendMessage(UIMouseDownMessage(sPoint(20, y), button));
        return mList.getSelectRow();
    };
    const auto type = [this](unsigned int key, unsigned int combination = 0)
    {
        mList.sendMessage(UIKeyDownMessage(key, combination));
        return mList.getSelectRow();
    };
    EXPECT_EQ(press(20), UIList::NoRow) << "no objects";
    fill(3);
    EXPECT_EQ(press(16), UIList::NoRow) << "the header";
    EXPECT_EQ(press(33, 2), UIList::NoRow);
    EXPECT_EQ(mList.mChosen, 0u);
    EXPECT_EQ(press(33, 3), 1u);
    EXPECT_EQ(press(65), 1u) << "below the last";
    mList.selectRow(5);
    EXPECT_EQ(mList.mChosen, 1u);

    EXPECT_EQ(type(UIKeyCode::DownArrow), 2u);
    EXPECT_EQ(type(UIKeyCode::DownArrow), 2u);
    EXPECT_EQ(type(UIKeyCode::UpArrow, UIKeyCode::WithShift), 2u);
    EXPECT_EQ(mList.mChosen, 1u);
    EXPECT_EQ(type(UIKeyCode::Return), 2u);
    EXPECT_EQ(mList.mChosen, 2u);
    mList.setSelectRow(0);
    EXPECT_EQ(type(UIKeyCode::UpArrow), 0u);

    fill(3);
    EXPECT_EQ(mList.getSelectRow(), 0u) << "new objects keep the selection";
    mList.refresh();
    EXPECT_EQ(type(UIKeyCode::UpArrow), UIList::NoRow);
    EXPECT_EQ(type(UIKeyCode::Return), UIList::NoRow);
    EXPECT_EQ(type(UIKeyCode::DownArrow), 0u);
    EXPECT_EQ(mList.mChosen, 2u);
}

TEST_F(UIListTest, PaintsTheVisibleOfFiveThousandRows)
{
    fill(5000);
    mList.sendMessage(UIMouseWheelMessage(sPoint(0, -40000)));
    paint();
    ASSERT_EQ(mList.mRows.size(), 9u);
    EXPECT_EQ(mList.mRows.front(), std::make_pair(sRect(1, -15, 199, 1), 2498u));
    EXPECT_EQ(mList.mRows.back(), std::make_pair(sRect(1, 113, 199, 129), 2506u));
    mList.sendMessage(UIMouseDownMessage(sPoint(20, 17), 1));
    EXPECT_EQ(mList.getSelectRow(), 2500u);

    mList.sendMessage(UIMouseWheelMessage(sPoint(0, -1000000)));
    paint();
    EXPECT_EQ(mList.mRows.back().second, 4999u);
    fill(2);
    paint();
    EXPECT_EQ(mList.mRows.front(), std::make_pair(sRect(1, 17, 199, 33), 0u)) << "a hidden bar does not scroll";
}

TEST_F(UIListTest, PrintsTheColumnsOfARowThatHaveItsProperty)
{
    EXPECT_EQ(paint().size(), 1u) << "without objects only the background";
    fill(1);
    mObjects.addLast(nullptr);
    mList.setObjectList(&mObjects);
    mThings.back().number = 70;
    mList.setSelectRow(0);
    const auto draws = paint();
    EXPECT_EQ(mList.mRows.size(), 2u);
    EXPECT_EQ(mList.mCells, (std::vector<sRect>{{1, 17, 60, 33}, {105, 17, 154, 33}}));
    EXPECT_EQ(draws[0].vertices[4].color, UIColorScheme::mDefaultClientRegionSelectColor);
    EXPECT_EQ(draws[1].vertices.size(), 8u) << "the present value has two digits";
    EXPECT_EQ(draws[1].vertices[0].color, UIColorScheme::mDefaultClientSelectFontColor);
    EXPECT_EQ(draws[2].vertices[0].x, 154 - 12);
}
