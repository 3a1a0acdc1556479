#include "ui/uilist.h"

#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "tests/support/elements.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"

#include <gtest/gtest.h>

#include <deque>

namespace
{
struct sThing : public ObjectBase
{
    void makePropertyList(PropertyList& list) override { list.addReference("number", number); }

    int number = 7;
};

// Notes which rows and cells are drawn.
class RecordingList : public UIList
{
public:
    void drawRow(UIPainter* painter, PropertyList* properties, const sRect& rect, unsigned int row) override
    {
        mRows.emplace_back(row, rect.top);
        UIList::drawRow(painter, properties, rect, row);
    }

    void drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                    unsigned int row, unsigned int column) override
    {
        mCells.push_back(rect);
        UIList::drawColumn(painter, property, rect, alignment, row, column);
    }

    void notify() { ++mChosen; }

    std::vector<std::pair<unsigned int, int>> mRows;
    std::vector<sRect> mCells;
    unsigned int mChosen = 0;
};
}

class UIListTest : public testing::Test
{
protected:
    UIListTest()
    {
        constexpr unsigned int Type = ValueTraits<int>::type;
        mList.addColumn("number", Type, 60, UIList::eColumnAlignment::Left);
        mList.addColumn("absent", Type, 300, UIList::eColumnAlignment::Left);
        mList.addColumn("number", Type, 50, UIList::eColumnAlignment::Right);
        mList.setFunction(&mList, &RecordingList::notify);
        mList.setSize({200, 122});
    }

    void fill(unsigned int count)
    {
        mObjects.clear();
        while (mObjects.size() < count)
            mObjects.addLast(&mThings.emplace_back());
        mList.setObjectList(&mObjects);
        updateFrame(mList);
    }

    // Each returns the row that is selected then.
    unsigned int press(int y, unsigned int button = 1) { return send(UIMouseDownMessage(sPoint(20, y), button)); }
    unsigned int type(unsigned int key, unsigned int with = 0) { return send(UIKeyDownMessage(key, with)); }
    unsigned int send(const UIMessage& message)
    {
        mList.sendMessage(message);
        return mList.getSelectRow();
    }

    // Behind the bar of the construction, which is out of use, and the headers.
    UIBase* getBar() { return getChild(mList, 4); }

    HeadlessSystems mSystems;
    ObjectList mObjects;
    std::deque<sThing> mThings;
    RecordingList mList;
};

TEST_F(UIListTest, HasABarFromTheFirstRowThatDoesNotFit)
{
    for (const auto& [count, shown] : {std::pair(6u, false), std::pair(7u, true), std::pair(0u, false)})
    {
        fill(count);
        EXPECT_EQ(getBar()->isVisible(), shown) << count;
        EXPECT_FALSE(getChild(mList, 0)->isVisible());
    }
    EXPECT_EQ(getBar()->getRelRegion(), sRect(187, 17, 199, 121));
    EXPECT_EQ(getChild(mList, 3)->getRelRegion(), sRect(105, 1, 155, 17)) << "300 is kept as 44";
}

TEST_F(UIListTest, SelectsAndChoosesRows)
{
    EXPECT_EQ(press(20), UIList::NoRow) << "no objects";
    fill(3);
    EXPECT_EQ(press(16), UIList::NoRow) << "the header";
    EXPECT_EQ(press(33, 2), UIList::NoRow);
    EXPECT_EQ(press(33, 3), 1u);
    EXPECT_EQ(press(65), 1u) << "below the last";
    EXPECT_EQ(type(UIKeyCode::DownArrow), 2u);
    EXPECT_EQ(type(UIKeyCode::DownArrow), 2u);
    EXPECT_EQ(type(UIKeyCode::UpArrow, UIKeyCode::WithShift), 2u);
    EXPECT_EQ(mList.mChosen, 1u);
    EXPECT_EQ(type(UIKeyCode::Return), 2u);
    mList.setSelectRow(0);
    fill(3);
    EXPECT_EQ(type(UIKeyCode::UpArrow), 0u) << "new objects keep the selection";
    mList.refresh();
    EXPECT_EQ(type(UIKeyCode::UpArrow), UIList::NoRow);
    EXPECT_EQ(type(UIKeyCode::Return), UIList::NoRow);
    EXPECT_EQ(type(UIKeyCode::DownArrow), 0u);
    EXPECT_EQ(mList.mChosen, 2u);
}

TEST_F(UIListTest, PaintsTheVisibleOfFiveThousandRows)
{
    fill(5000);
    send(UIMouseWheelMessage(sPoint(0, -40000)));
    paintFrame(mSystems, mList);
    EXPECT_EQ(mList.mRows.size(), 9u);
    EXPECT_EQ(mList.mRows.front(), std::make_pair(2498u, -15));
    EXPECT_EQ(mList.mRows.back(), std::make_pair(2506u, 113));
    EXPECT_EQ(press(17), 2500u);
}

TEST_F(UIListTest, PrintsTheColumnsOfARowThatHaveItsProperty)
{
    fill(1);
    mObjects.addLast(nullptr);
    mList.setObjectList(&mObjects);
    mThings.back().number = 70;
    mList.setSelectRow(0);
    const auto draws = paintFrame(mSystems, mList);
    EXPECT_EQ(mList.mRows.size(), 2u);
    EXPECT_EQ(mList.mCells, (std::vector<sRect>{{1, 17, 60, 33}, {105, 17, 154, 33}}));
    EXPECT_EQ(draws[0].vertices[4].color, UIColorScheme::mDefaultClientRegionSelectColor) << "behind the background";
    EXPECT_EQ(draws[1].vertices[0].color, UIColorScheme::mDefaultClientSelectFontColor);
    EXPECT_EQ(draws[1].vertices.size(), 8u) << "the present value has two digits";
    EXPECT_EQ(draws[2].vertices[0].x, 154 - 12);
}
