#include "ui/uipulldownlist.h"

#include "tests/support/elements.h"
#include "ui/uikeycode.h"
#include "ui/uisystem.h"

#include <gtest/gtest.h>

class UIPulldownListTest : public testing::Test
{
protected:
    // The list has room for three items.
    void fill(int count)
    {
        mList.setSize({100, 50});
        mList.clearItem();
        for (int i = 0; i < count; ++i)
            mList.addItem(std::string(1, static_cast<char>('a' + i % 26)).c_str());
        mList.updateRegion(sRect::Max, sRect::Max);
    }

    void press(int y, unsigned int button = 1) { mList.sendMessage(UIMouseDownMessage(sPoint(20, y), button)); }
    unsigned int hover(int y) { return mList.sendMessage(UIMouseMoveMessage(sPoint(20, y))), mList.getSelectItem(); }
    void notify() { mChosen.push_back(mList.getSelectItem()); }

    HeadlessSystems mSystems;
    std::vector<unsigned int> mChosen;
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
    EXPECT_TRUE(mList.isVisible()) << "no item was pressed";
    press(33);
    EXPECT_FALSE(mList.isVisible());
    open();
    system->defocus();
    open();
    mList.sendMessage(UIKeyDownMessage(UIKeyCode::UpArrow, 0));
    mList.sendMessage(UIKeyDownMessage(UIKeyCode::Return, 0));
    EXPECT_EQ(mChosen, (std::vector{2u, UIPulldownList::NoRow, 0u})) << "to hover is not to choose";
    system->destroy();
}

TEST_F(UIPulldownListTest, KeepsTheHighlightedItemInView)
{
    fill(3);
    EXPECT_EQ(getRegions(mList)[0], sRect::Zero) << "no bar";
    fill(6);
    EXPECT_EQ(getRegions(mList)[0], sRect(88, 0, 100, 50));
    for (const auto& [item, first] : {std::pair(3u, 0u), {5u, 2u}, {3u, 2u}, {2u, 2u}, {1u, 1u}, {0u, 0u}})
    {
        mList.setSelectItem(item);
        hover(1);
        EXPECT_EQ(hover(0), first) << item;
    }
    mList.setSelectItem(6);
    EXPECT_EQ(mList.getSelectItem(), 0u);
}
