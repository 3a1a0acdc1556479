#include "ui/uiwindow.h"

#include "render/viewsystem.h"
#include "tests/support/headlessinterface.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{
using eButtonType = UISystemButton::eButtonType;
using eStyle = UIWindow::eStyle;

constexpr unsigned int All = UIWindow::TitleBar | UIWindow::Movable | UIWindow::Sizable;
constexpr sPoint Corner(100, 100);
constexpr sSize Size(200, 100);
}

class UIWindowTest : public testing::Test
{
protected:
    // A window that lives and has been laid out.
    UIWindow* addWindow(unsigned int attribute, bool buttons = false)
    {
        UIWindow* window =
            mInterface.add(new UIWindow(eStyle::Convex, attribute, buttons, buttons, buttons, 0, nullptr));
        window->setPosition(Corner);
        window->setSize(Size);
        mInterface.runFrames(2);
        return window;
    }

    void drag(const sPoint& position) { mInterface.movePointer(position), mInterface.runFrame(); }

    HeadlessInterface mInterface;
    UISystem& mSystem = *mInterface.mSystem;
};

TEST_F(UIWindowTest, IsMovedByItsTitleBarInsideTheViewAlone)
{
    constexpr std::tuple<unsigned int, sPoint, unsigned int, bool> Rows[] = {
        {3, {102, 102}, 1, true},  {3, {298, 118}, 1, true},  {3, {101, 110}, 1, false}, {3, {110, 119}, 1, false},
        {3, {110, 110}, 4, false}, {2, {110, 110}, 1, false}, {1, {110, 110}, 1, false}, {3, {299, 199}, 1, false},
    };
    for (const auto& [attribute, place, button, moves] : Rows)
    {
        UIWindow* window = addWindow(attribute);
        mInterface.press(place, button);
        drag(place + sPoint(40, 50));
        mInterface.release(button);
        EXPECT_EQ(window->getRelRegion(), sRect(Size) + (moves ? Corner + sPoint(40, 50) : Corner)) << place.x;
        mSystem.removeAllWindow();
    }

    UIWindow* window = addWindow(All);
    ViewSystem::getInstance()->setViewport(UIPainter::InterfaceView, {0, 0, 800, 600});
    mInterface.press({150, 110});
    for (const auto& [pointer, position] :
         {std::pair(sPoint(-30, 400), sPoint(-50, 390)), {{800, -900}, {749, -10}}, {{160, 700}, {110, 589}}})
    {
        drag(pointer);
        EXPECT_EQ(window->getPosition(), position);
    }
}

TEST_F(UIWindowTest, ClosesByButtonAndKeyAndDoesNothingAtTheOtherButtons)
{
    UIWindow* window = addWindow(All, true);
    EXPECT_EQ(window->getClientRegion(), sRect(2, 20, 198, 86));
    EXPECT_EQ(window->findShortcut(131, 3), nullptr);
    for (const auto& [type, left] :
         {std::pair(eButtonType::Minimize, 156), {eButtonType::Maximize, 170}, {eButtonType::Close, 184}})
    {
        ASSERT_EQ(mSystem.getWindowList().size(), 1u);
        const sPoint middle = Corner + sPoint(left + 7, 10);
        UIBase* hit = window->intersect(middle, sRect::Max);
        ASSERT_EQ(hit->getRelRegion(), sRect(left, 3, left + 14, 17));
        EXPECT_EQ(static_cast<UISystemButton*>(hit)->getButtonType(), type);
        mInterface.click(middle);
    }
    EXPECT_TRUE(mSystem.getWindowList().empty());
    window = addWindow(0);
    EXPECT_EQ(window->getClientRegion(), sRect(2, 2, 198, 98));
    window->findShortcut(131, 2)->shortcut(window);
    EXPECT_TRUE(mSystem.isListedForRemoval(window));
}
