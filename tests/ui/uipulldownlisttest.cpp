#include "ui/uipulldownlist.h"

#include "tests/support/elements.h"
#include "tests/support/headlesssystems.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

#include <gtest/gtest.h>

class UIPulldownListTest : public testing::Test
{
protected:
    UIPulldownListTest() { mList.setSize({100, 50}); }

    void fill(int count)
    {
        mList.clearItem();
        for (int i = 0; i < count; ++i)
            mList.addItem(std::string(1, static_cast<char>('a' + i)).c_str());
        updateFrame(mList);
    }

    void notify()
    {
        mChosen = mList.getSelectItem();
        ++mClosed;
    }

    UIBase* getBar() { return getChild(mList, 0); }

    HeadlessSystems mSystems;
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
        mList.sendMessage(UIMouseMoveMessage(sPoint(20, 17)));
        EXPECT_EQ(mList.getSelectItem(), 1u);
    };
    fill(3);

    open();
    mList.sendMessage(UIMouseDownMessage(sPoint(20, 60), 1));
    mList.sendMessage(UIMouseDownMessage(sPoint(20, 0), 1));
    mList.sendMessage(UIMouseDownMessage(sPoint(20, 40), 2));
    EXPECT_EQ(mClosed, 0u) << "no item was pressed";
    mList.sendMessage(UIMouseDownMessage(sPoint(20, 33), 1));
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
    EXPECT_FALSE(getBar()->isVisible()) << "48 rows of pixels and the border";
    fill(6);
    ASSERT_TRUE(getBar()->isVisible());
    EXPECT_EQ(getBar()->getRelRegion(), sRect(88, 0, 100, 50));
    const struct
    {
        unsigned int item;
        int firstRow;
    } cases[] = {{2, 0}, {5, 32}, {3, 32}, {2, 32}, {1, 16}, {0, 0}};
    for (const auto& row : cases)
    {
        mList.setSelectItem(row.item);
        mList.sendMessage(UIMouseMoveMessage(sPoint(20, 1)));
        EXPECT_EQ(mList.getSelectItem(), static_cast<unsigned int>(row.firstRow / 16)) << row.item;
    }
    mList.setSelectItem(6);
    EXPECT_EQ(mList.getSelectItem(), 0u);
    mList.setSelectItem(UIPulldownList::NoRow);
    EXPECT_EQ(mList.getSelectItem(), UIPulldownList::NoRow);
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
    ProbeElement parent(10, 10);
    UIPulldownList* list = new UIPulldownList;
    parent.add(list);
    list->setSize({100, 50});
    for (int i = 0; i < 1000; ++i)
        list->addItem("x");
    updateFrame(parent);
    EXPECT_EQ(list->getDrawRegion(), sRect(0, 0, 100, 50)) << "beyond its parent";
    list->setSelectItem(503);
    const auto draws = mSystems.record(
        [list](DrawContext& context)
        {
            UIPainter painter(&context, 0);
            painter.setRegion(list->getDrawRegion(), sPoint::Zero);
            list->eventPaint(&painter);
        });
    std::vector<sColor> texts;
    for (const sRecordedDraw& draw : draws)
        if (draw.command.state.getVertexDecl() == eVertexDecl::Textured)
            texts.push_back(draw.vertices[0].color);
    EXPECT_EQ(texts, (std::vector<sColor>{sColor::Black, sColor::Black, sColor::Black, sColor::White}));
}
