#include "ui/uimenu.h"

#include "tests/support/headlessinterface.h"
#include "ui/uidesktop.h"
#include "ui/uikeycode.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using eAttribute = UIMenu::eItemAttribute;

constexpr unsigned char UsageReturn = 40;
constexpr unsigned char UsageDown = 81;
constexpr int TextMargin = 20;

// Counts what is chosen.
struct Actions
{
    void open() { log += "open "; }
    void close() { log += "close "; }

    std::string log;
};

constexpr UIMenu::sRow<Actions> Rows[] = {
    {"Open", &Actions::open},
    UIMenu::SeparatorRow<Actions>,
    {"Close", &Actions::close},
    {"Grid", nullptr, eAttribute::Check, true},
    {"Red", nullptr, eAttribute::Radio, true},
    {"Blue", nullptr, eAttribute::Radio},
};
}

class UIMenuTest : public testing::Test
{
protected:
    UIMenuTest()
    {
        mMenu->addItems(&mActions, Rows);
        mInterface.runFrame();
        mInterface.mSystem->getDesktop()->setMenu(mMenu);
    }

    const char* getSelected() const
    {
        const UIMenu::Item* item = mMenu->getSelectItem();
        return item ? item->isSeparator() ? "-" : item->getName() : "";
    }

    void sendKey(unsigned int keyCode) { mMenu->sendMessage(UIKeyDownMessage(keyCode, 0)); }

    void openContextMenu() { mInterface.click(sPoint(100, 100), 2); }

    HeadlessInterface mInterface;
    Actions mActions;
    // The desktop's.
    UIMenu* mMenu = new UIMenu;
};

TEST_F(UIMenuTest, MarksByTheMouse)
{
    const auto click = [this](int row)
    {
        mMenu->sendMessage(UIMouseUpMessage(sPoint(TextMargin, 4 + 14 * row), 1));
        return std::string(mMenu->isItemChecked("Grid") ? "grid " : "") + (mMenu->isItemChecked("Red") ? "red " : "") +
               (mMenu->isItemChecked("Blue") ? "blue" : "");
    };
    EXPECT_EQ(click(3), "red ") << "a check mark goes";
    EXPECT_EQ(click(3), "grid red ") << "and comes";
    EXPECT_EQ(click(4), "grid red ") << "a radio mark cannot be taken away by itself";
    EXPECT_EQ(click(5), "blue") << "and takes all marks of the menu";
    mMenu->setItemEnable("Open", false);
    click(0);
    EXPECT_EQ(mActions.log, "open ") << "the mouse does not ask whether an item is enabled";
    mMenu->sendMessage(UIMouseUpMessage(sPoint(TextMargin, 4), 3));
    EXPECT_EQ(mActions.log, "open ") << "nor chooses with another button";
}

TEST_F(UIMenuTest, WalksByTheKeysWithoutWrapping)
{
    const std::pair<unsigned int, const char*> steps[] = {
        {UIKeyCode::DownArrow, "Open"}, {UIKeyCode::DownArrow, "Close"}, {UIKeyCode::UpArrow, "Open"},
        {UIKeyCode::UpArrow, "Open"},   {UIKeyCode::DownArrow, "Close"}, {UIKeyCode::DownArrow, "Grid"},
        {UIKeyCode::DownArrow, "Red"},  {UIKeyCode::DownArrow, "Blue"},  {UIKeyCode::DownArrow, "Blue"},
        {UIKeyCode::BackSpace, "Blue"},
    };
    for (const auto& [key, selected] : steps)
    {
        sendKey(key);
        EXPECT_STREQ(getSelected(), selected);
    }
    mMenu->initialize();
    sendKey(UIKeyCode::UpArrow);
    EXPECT_STREQ(getSelected(), "Blue") << "up from none is the last";
    sendKey(UIKeyCode::UpArrow);
    sendKey(UIKeyCode::UpArrow);
    sendKey(UIKeyCode::Return);
    EXPECT_TRUE(mMenu->isItemChecked("Grid")) << "Return leaves the mark";
    UIMenu empty;
    empty.sendMessage(UIKeyDownMessage(UIKeyCode::DownArrow, 0));
    EXPECT_EQ(empty.getSelectItem(), nullptr);
}

TEST_F(UIMenuTest, ReturnDecidesOnlyOnceAndOnlyWhatIsEnabled)
{
    for (const bool enabled : {true, false})
    {
        mMenu->setItemEnable("Open", enabled);
        openContextMenu();
        for (const unsigned char usage : {UsageDown, UsageReturn, UsageReturn})
            mInterface.pressKey(usage);
        EXPECT_EQ(mActions.log, "open ");
        EXPECT_EQ(mInterface.mSystem->getMenu(), nullptr);
    }
    openContextMenu();
    ASSERT_EQ(mInterface.mSystem->getMenu(), mMenu);
    mInterface.mSystem->getDesktop()->setMenu(nullptr);
    EXPECT_EQ(mInterface.mSystem->getMenu(), nullptr) << "it dies while it is open";
    mInterface.runFrames(2);
}
