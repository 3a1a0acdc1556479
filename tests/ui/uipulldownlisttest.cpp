#include "ui/uipulldownlist.h"

#include "tests/support/elements.h"
#include "ui/uikeycode.h"
#include "ui/uisystem.h"

#include <gtest/gtest.h>

class UIPulldownListTest : public testing::Test
{
protected:
    UIPulldownListTest() { mParent.add(&mList); }
    ~UIPulldownListTest() override { mList.remove(); }

    // The list has room for three items.
    void fill(int count)
    {
        mList.setSize({100, 50});
        mList.clearItem();
        for (int i = 0; i < count; ++i)
            mList.addItem(std::string(1, static_cast<char>('a' + i % 26)).c_str());
        updateFrame(mParent);
    }

    void press(int y, unsigned int button = 1) { mList.sendMessage(UIMouseDownMessage(sPoint(20, y), button)); }
    unsigned int hover(int y)
    {
        mList.sendMessage(UIMouseMoveMessage(sPoint(20, y)));
        return mList.getSelectItem();
    }

    void notify()
    {
        mChosen = mList.getSelectItem();
        ++mClosed;
    }

    HeadlessSystems mSystems;
    ProbeElement mParent{{10, 10}};
    unsigned int mChosen = 0;
    unsigned int mClosed = 0;
    UIPulldownList mList{this, &UIPulldownListTest::notify};
};

TEST_F(UIPulldownListTest, ClosesWithAChoiceOrWithNone)
{
    UISystem* system = UISystem::create();
    const auto open = [this, system]
    {
        mList.show();
        system->focus(&mList);
        EXPECT_EQ(hover(17), 1u);
    };
    fill(3);
    open();
    press(60);
    press(0);
    press(40, 2);
    EXPECT_EQ(mClosed, 0u) << "no item was pressed";
    press(33);
    EXPECT_EQ(mChosen, 2u);
    EXPECT_FALSE(mList.isVisible());

    open();
    system->defocus();
    EXPECT_EQ(mChosen, UIPulldownList::NoRow) << "to hover is not to choose";

    open();
    mList.sendMessage(UIKeyDownMessage(UIKeyCode::UpArrow, 0));
    mList.sendMessage(UIKeyDownMessage(UIKeyCode::Return, 0));
    EXPECT_EQ(mChosen, 0u);
    EXPECT_EQ(mClosed, 3u);
    system->destroy();
}

TEST_F(UIPulldownListTest, KeepsTheHighlightedItemInView)
{
    fill(3);
    EXPECT_FALSE(getChild(mList, 0)->isVisible());
    fill(6);
    EXPECT_TRUE(getChild(mList, 0)->isVisible());
    EXPECT_EQ(getChild(mList, 0)->getRelRegion(), sRect(88, 0, 100, 50));
    for (const auto& [item, first] : {std::pair(2u, 0u), {5u, 2u}, {3u, 2u}, {2u, 2u}, {1u, 1u}, {0u, 0u}})
    {
        mList.setSelectItem(item);
        EXPECT_EQ(hover(1), first) << item;
    }
    mList.setSelectItem(6);
    EXPECT_EQ(mList.getSelectItem(), 0u);
}

TEST_F(UIPulldownListTest, ForgetsTheSelectionWithEachChangeOfItsItems)
{
    fill(4);
    mList.setSelectItem(2);
    mList.removeItem(1);
    mList.removeItem(3);
    EXPECT_EQ(mList.getSelectItem(), UIPulldownList::NoRow);
    EXPECT_EQ(mList.getItemCount(), 3u);
    EXPECT_EQ(mList.getItemName(1), "c");
    EXPECT_TRUE(mList.getItemName(3).empty());
    mList.setSelectItem(0);
    mList.addItem("e");
    EXPECT_EQ(mList.getSelectItem(), UIPulldownList::NoRow);
}

TEST_F(UIPulldownListTest, PaintsTheItemsInViewAndFloats)
{
    fill(1000);
    mList.setSelectItem(503);
    std::vector<sColor> texts;
    for (const sRecordedDraw& draw : paintFrame(mSystems, mParent))
        if (draw.command.state.getVertexDecl() == eVertexDecl::Textured)
            texts.push_back(draw.vertices[0].color);
    EXPECT_EQ(texts, (std::vector<sColor>{sColor::Black, sColor::Black, sColor::Black, sColor::White}));
    EXPECT_EQ(mList.getDrawRegion(), sRect(0, 0, 100, 50)) << "beyond its parent";
}
