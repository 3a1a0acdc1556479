#include "application/gallery.h"
#include "application/exhibitwindow.h"
#include "application/galleryelement.h"
#include "tests/support/display.h"
#include "tests/support/elements.h"
#include "tests/window/near.h"
#include "tests/window/windowdriver.h"
#include "ui/uicolor.h"
#include "ui/uidesktop.h"
#include "ui/uimainmenu.h"
#include "ui/uimenuchain.h"
#include "ui/uiscrollbar.h"
#include "ui/uisystem.h"

#include <clocale>

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

using Colors = UIColorScheme;

constexpr sColor Background(77, 77, 77, 255);
constexpr sPoint TitleBar(40, 8);

// Beside the text and the marks of a row of a menu.
constexpr sPoint RowMargin(-9, 0);
constexpr sPoint FreeDesktop(600, 700);

sPoint getCenter(const UIBase* element)
{
    const sRect region = element->getAbsRegion();
    return sPoint((region.left + region.right) / 2, (region.top + region.bottom) / 2);
}
}

// What a person does to the gallery, and what comes of it, in the state of the elements and on the screen.
class GalleryTest : public testing::Test
{
protected:
    GalleryTest()
    {
        Gallery::openAll();
        mDriver.runFrames(2);
    }

    static UISystem& ui() { return *UISystem::getInstance(); }

    // Null when there is none, or none any longer.
    static ExhibitWindow* find(const char* title)
    {
        for (ObjectBase* window : ui().getWindowList())
            if (static_cast<UIWindow*>(window)->getTitle() == title)
                return static_cast<ExhibitWindow*>(window);
        return nullptr;
    }

    // The elements of the window's form; its bars, if it has any, are its children before.
    template <typename T = UIBase>
    static T* getClient(const char* title, int index)
    {
        const UIWindow* window = find(title);
        return getChild<T>(*window, window->getFormAttribute() & UIForm::ScrollBars ? 2 : 0, index);
    }

    static UIBase* getCloseButton(const char* title)
    {
        return getChild(*find(title), find(title)->getFormAttribute() & UIForm::ScrollBars ? 3 : 1);
    }

    static unsigned int countMenus()
    {
        unsigned int num = 0;
        for (const UIMenu* menu : UIMenuChain(ui().getMenu()))
            num += menu != nullptr;
        return num;
    }

    // The point of a row of a menu, in the view.
    static sPoint getRow(const UIMenu* menu, int row) { return menu->getAbsPosition() + sPoint(20, 11 + 14 * row); }

    // Presses, moves and releases.
    void drag(const sPoint& from, const sPoint& to)
    {
        mDriver.move(from);
        mDriver.press();
        mDriver.move(to);
        mDriver.release();
    }

    static std::string getReport(const char* title)
    {
        const AutoString& report = find(title)->getReport();
        return report.empty() ? "" : report.c_str();
    }

    void expectColor(const sPoint& point, sColor color) const
    {
        EXPECT_TRUE(isNear(mDriver.read(point), color)) << "at " << point.x << ", " << point.y;
    }

    WindowDriver mDriver;
};

TEST_F(GalleryTest, AWindowIsSizedByItsGripDownToItsMinimum)
{
    const std::pair<sPoint, sSize> rows[] = {{{-50, 300}, {64, 64}}, {{1000, 700}, {232, 420}}};
    const UIWindow* window = find("Events");
    mDriver.move(sPoint(928, 448));
    mDriver.press();
    for (const auto& [pointer, size] : rows)
    {
        mDriver.move(pointer);
        EXPECT_EQ(window->getSize(), size);
    }
    mDriver.release();
    mDriver.move(FreeDesktop);
    expectColor(sPoint(1007, 538), Colors::mDefaultDarkLightColor);
    expectColor(sPoint(1009, 538), Background);
}

TEST_F(GalleryTest, AButtonIsClickedWhenItIsReleasedInside)
{
    const UIBase* button = getClient("Buttons", 1);
    const sRect region = button->getAbsRegion();
    for (const auto& [place, clicked] : {std::pair(getCenter(button), true), {{-40, 400}, false}})
    {
        find("Buttons")->report("");
        mDriver.move(getCenter(button));
        mDriver.press();
        mDriver.move(place);
        expectColor(sPoint(region.left, region.top), Colors::mDefaultDarkLightColor);
        EXPECT_EQ(ui().getCapture(), button);
        mDriver.release();
        expectColor(sPoint(region.left, region.top), Colors::mDefaultHighLightColor);
        EXPECT_EQ(getReport("Buttons"), clicked ? "Plain" : "");
        EXPECT_EQ(ui().getCapture(), nullptr);
    }
    mDriver.click(getCenter(button), WindowDriver::Right);
    EXPECT_EQ(getReport("Buttons"), "");
}

TEST_F(GalleryTest, AContextMenuOpensWhereThereIsRoom)
{
    const UIMenu* menu = ui().getDesktop()->getMenu();
    const sPoint position(903, 661);
    mDriver.click({1023, 767}, WindowDriver::Right);
    EXPECT_EQ(ui().getMenu(), menu) << "the release chooses nothing";
    EXPECT_EQ(menu->getPosition(), position);
    expectColor(position + sPoint(6, 100), Colors::mDefaultMenuColor);
    mDriver.click(getRow(menu, 1));
    EXPECT_EQ(ui().getMenu(), nullptr);
    expectColor(position + sPoint(6, 100), Background);
}

TEST_F(GalleryTest, AMenuIsWalkedByTheKeys)
{
    constexpr auto Up = KeyboardSystem::UpArrow;
    constexpr auto Return = KeyboardSystem::Return;
    mDriver.click(getCenter(getClient("Menus", 2)), WindowDriver::Right);
    UIMenu* menu = ui().getMenu();
    ASSERT_NE(menu, nullptr);
    for (const auto key : {Up, Up, Up, Return, KeyboardSystem::DownArrow})
        mDriver.strike(key);
    EXPECT_EQ(countMenus(), 2u);
    const UIMenu* marks = menu->getSubMenu();
    ASSERT_NE(marks, nullptr);
    expectColor(getRow(marks, 0) + RowMargin, Colors::mDefaultMenuSelectColor);
    expectColor(getRow(marks, 1) + RowMargin, Colors::mDefaultMenuColor);
    mDriver.strike(Return);
    EXPECT_EQ(getReport("Menus"), "Check");
    EXPECT_EQ(ui().getMenu(), nullptr);
    find("Menus")->report("");
    mDriver.strike(Return);
    EXPECT_EQ(getReport("Menus"), "") << "a closed menu hears no key";
}

TEST_F(GalleryTest, AFormScrollsByWheelArrowAndThumb)
{
    const UIScrollBar* bar = getChild<UIScrollBar>(*find("Scrolled"), 1);
    const sRect region = bar->getAbsRegion();
    const auto read = [&](int top)
    {
        return mDriver.read({20, region.top + top, 90, region.top + top + 50});
    };
    const std::vector<sColor> picture = read(50);
    mDriver.move({60, region.top + 40});
    mDriver.turnWheel(-39);
    mDriver.click({region.left + 6, region.bottom - 6});
    EXPECT_EQ(bar->getBarPosition(), 76);
    EXPECT_EQ(read(10), picture) << "the content moves by as many pixels";

    const sRect thumb = bar->getBarRegion();
    const sPoint middle(region.left + 6, region.top + (thumb.top + thumb.bottom) / 2);
    drag(middle, middle + sPoint(30, 300));
    EXPECT_EQ(bar->getBarPosition(), bar->getMaximum() - static_cast<int>(bar->getBarRange()));
}

TEST_F(GalleryTest, TwoQuickPressesAreADoubleClick)
{
    const GalleryProbe* probe = getClient<GalleryProbe>("Events", 1);
    for (const auto& [pause, down, doubleClick] :
         {std::tuple(0u, 1u, 0u), {249u, 1u, 1u}, {100u, 2u, 1u}, {300u, 3u, 1u}, {250u, 4u, 1u}})
    {
        mDriver.click(getCenter(probe), WindowDriver::Left, pause);
        EXPECT_EQ(probe->getCount().down, down) << pause;
        EXPECT_EQ(probe->getCount().doubleClick, doubleClick) << pause;
    }
    EXPECT_EQ(ui().getFocus(), probe);
    expectColor(getCenter(probe) + sPoint(60, 0), Colors::mDefaultHighLightColor);
    mDriver.strike(KeyboardSystem::KeyA);
    EXPECT_EQ(probe->getCount().lastKey, static_cast<unsigned int>('A'));
}

TEST_F(GalleryTest, AModalBoxIsAnsweredBeforeAnythingElse)
{
    const sPoint plain = getCenter(getClient("Buttons", 1));
    mDriver.click(getCenter(getClient("Questions", 2)));
    UIWindow* box = ui().getActiveWindow();
    ASSERT_TRUE(box && box->isModalWindow());
    mDriver.click(plain);
    EXPECT_EQ(getReport("Buttons"), "");
    mDriver.strikeClose();
    EXPECT_EQ(ui().getActiveWindow(), box);
    expectColor(box->getAbsPosition() + sPoint(3, 3), Colors::mDefaultActiveTitleBarColor);

    const sPoint overHere(610, 426);
    expectColor(overHere, Colors::mDefaultWindowColor);
    mDriver.click(getCenter(getChild(*box, 3)));
    EXPECT_EQ(getReport("Questions"), "Answer 2");
    EXPECT_EQ(find("Question"), nullptr);
    mDriver.move(FreeDesktop);
    expectColor(overHere, sColor::White);
    mDriver.click(plain);
    EXPECT_EQ(getReport("Buttons"), "Plain");
}

TEST_F(GalleryTest, AWindowTakesItsOpenMenusWithIt)
{
    // The bar's menu, by the close button.
    mDriver.click(find("Menus")->getAbsPosition() + TitleBar);
    ASSERT_NE(ui().getMainMenu(), nullptr);
    expectColor(sPoint(400, 8), Colors::mDefaultMenuColor);
    mDriver.click(sPoint(20, 8));
    UIMenu* menu = ui().getMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->getPosition(), sPoint(0, 16));
    mDriver.click(sPoint(60, 8));
    ASSERT_NE(ui().getMenu(), nullptr);
    EXPECT_EQ(ui().getMenu()->getPosition(), sPoint(46, 16)) << "of the entry that was clicked";
    mDriver.click(sPoint(20, 8));
    mDriver.click(getRow(menu, 4));
    EXPECT_EQ(countMenus(), 2u);
    mDriver.click(getCenter(getCloseButton("Menus")));
    EXPECT_EQ(find("Menus"), nullptr);
    EXPECT_EQ(ui().getMenu(), nullptr);
    EXPECT_EQ(ui().getMainMenu(), nullptr);
    expectColor(sPoint(400, 8), Background);

    // The menu of one of its elements, by the keys, with the pointer beside the menu.
    mDriver.click(getCenter(getClient("Events", 1)), WindowDriver::Right);
    ASSERT_NE(ui().getMenu(), nullptr);
    mDriver.move(find("Events")->getAbsPosition() + TitleBar);
    mDriver.strikeClose();
    EXPECT_EQ(find("Events"), nullptr);
    EXPECT_EQ(ui().getMenu(), nullptr);
}

TEST_F(GalleryTest, TheCloseBoxIsHeardAndTheWindowLeavesTheLocaleAlone)
{
    mDriver.pressCloseBox();
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}
