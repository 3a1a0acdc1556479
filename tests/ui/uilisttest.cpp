#include "ui/uilist.h"

#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "tests/support/elements.h"
#include "ui/uikeycode.h"

#include <gtest/gtest.h>

namespace
{
struct sThing : ObjectBase
{
    void makePropertyList(PropertyList& list) override { list.addReference("number", number); }

    int number = 70;
};

// Notes which rows are drawn, and where.
struct RecordingList : UIList
{
    void drawRow(UIPainter* painter, PropertyList* properties, const sRect& rect, unsigned int row) override
    {
        mRows.emplace_back(row, rect.top);
        UIList::drawRow(painter, properties, rect, row);
    }

    void notify() { ++mChosen; }

    std::vector<std::pair<unsigned int, int>> mRows;
    unsigned int mChosen = 0;
};
}

class UIListTest : public testing::Test
{
protected:
    UIListTest()
    {
        mObjects.setContentStability(false);
        using enum UIList::eColumnAlignment;
        mList.addColumn("number", ValueTraits<int>::type, 60, Right);
        mList.addColumn("absent", ValueTraits<int>::type, 300, Left);
        mList.setFunction(&mList, &RecordingList::notify);
        mList.setSize({200, 122});
    }

    void fill(unsigned int count)
    {
        mObjects.setCount(0);
        while (mObjects.size() < count)
            mObjects.addLast(new sThing);
        mList.setObjectList(&mObjects);
        mList.updateRegion(sRect::Max, sRect::Max);
    }

    // Each returns the row that is selected then.
    unsigned int press(int y, unsigned int button = 1) { return send(UIMouseDownMessage(sPoint(20, y), button)); }
    unsigned int type(unsigned int key, unsigned int with = 0) { return send(UIKeyDownMessage(key, with)); }
    unsigned int send(const UIMessage& message) { return mList.sendMessage(message), mList.getSelectRow(); }

    HeadlessSystems mSystems;
    ObjectList mObjects;
    RecordingList mList;
};

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
    EXPECT_EQ(mList.mChosen, 2u);
}

TEST_F(UIListTest, PaintsTheVisibleOfFiveThousandRows)
{
    fill(5000);
    send(UIMouseWheelMessage(sPoint(0, -40000)));
    runFrame(mSystems, mList);
    EXPECT_EQ(mList.mRows.size(), 9u);
    EXPECT_EQ(mList.mRows.front(), std::make_pair(2498u, -15));
    EXPECT_EQ(mList.mRows.back(), std::make_pair(2506u, 113));
    EXPECT_EQ(press(17), 2500u);
}
