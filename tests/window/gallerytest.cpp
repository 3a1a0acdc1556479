#include "application/gallery.h"
#include "application/exhibitwindow.h"
#include "application/galleryelement.h"
#include "tests/support/display.h"
#include "tests/window/windowdriver.h"
#include "ui/uicolor.h"
#include "ui/uidesktop.h"
#include "ui/uimainmenu.h"
#include "ui/uimenuchain.h"
#include "ui/uiscrollbar.h"
#include "ui/uisplitter.h"
#include "ui/uisystem.h"

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

using Colors = UIColorScheme;

constexpr sColor Background(77, 77, 77, 255);
constexpr sPoint TitleBar(40, 8);

// Beside the text and the marks of a row of a menu.
constexpr sPoint RowMargin(-9, 0);
constexpr sPoint FreeDesktop(600, 700);

sPoint getCenter(const sRect& rect)
{
    return sPoint((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

sPoint getCenter(const UIBase* element)
{
    return getCenter(element->getAbsRegion());
}

// What a driver may round differently.
bool isNear(sColor found, sColor wanted)
{
    return std::abs(found.r - wanted.r) <= 1 && std::abs(found.g - wanted.g) <= 1 && std::abs(found.b - wanted.b) <= 1;
}

template <typename T = UIBase>
T* getChild(const UIBase* element, int index)
{
    return static_cast<T*>(*(element->getChildrenBegin() + index));
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

    // A bar of the window, horizontal and vertical.
    static UIScrollBar* getBar(const char* title, int index) { return getChild<UIScrollBar>(find(title), index); }

    // The elements of the window's form; its bars, if it has any, are its children before.
    template <typename T = UIBase>
    static T* getClient(const char* title, int index)
    {
        const UIWindow* window = find(title);
        return getChild<T>(getChild(window, window->getFormAttribute() & UIForm::ScrollBars ? 2 : 0), index);
    }

    static UIBase* getCloseButton(const char* title)
    {
        return getChild(find(title), find(title)->getFormAttribute() & UIForm::ScrollBars ? 3 : 1);
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

    void expectColor(const sPoint& point, sColor color) const
    {
        EXPECT_TRUE(isNear(mDriver.read(point), color)) << "at " << point.x << ", " << point.y;
    }

    WindowDriver mDriver;
};

TEST_F(GalleryTest, AWindowFollowsThePointerByItsTitleUpToTheEdge)
{
    const struct
    {
        sPoint pointer;
        sPoint position;
    } rows[] = {
        {{500, 640}, {460, 632}}, {{-60, 650}, {-40, 642}}, {{-90, 500}, {-40, 492}},
        {{500, 868}, {460, 759}}, {{1070, -50}, {983, -8}}, {{600, 640}, {560, 632}},
    };
    const UIWindow* window = find("Events");
    const sPoint start = window->getPosition();
    mDriver.move(start + TitleBar);
    mDriver.press();
    for (const auto& row : rows)
    {
        mDriver.move(row.pointer);
        EXPECT_EQ(window->getPosition(), row.position) << row.pointer.x << ", " << row.pointer.y;
    }
    mDriver.release();
    mDriver.move(FreeDesktop);
    EXPECT_EQ(window->getPosition(), sPoint(560, 632)) << "a released window stays";
    EXPECT_EQ(ui().getActiveWindow(), window);
    expectColor(sPoint(563, 635), Colors::mDefaultActiveTitleBarColor);
    expectColor(start + sPoint(3, 3), Background);
}

TEST_F(GalleryTest, AWindowIsSizedByItsGripDownToItsMinimum)
{
    const struct
    {
        sPoint pointer;
        sSize size;
    } rows[] = {
        {{958, 478}, {190, 198}},  {{830, 478}, {64, 198}},   {{-50, 300}, {64, 64}},
        {{1070, 900}, {255, 487}}, {{1000, 700}, {232, 420}},
    };
    const UIWindow* window = find("Events");
    ASSERT_EQ(window->getPosition(), sPoint(776, 288));
    ASSERT_EQ(window->getSize(), (sSize{160, 168}));
    mDriver.move(sPoint(928, 448));
    mDriver.press();
    for (const auto& row : rows)
    {
        mDriver.move(row.pointer);
        EXPECT_EQ(window->getSize(), row.size) << row.pointer.x << ", " << row.pointer.y;
    }
    mDriver.release();
    mDriver.move(FreeDesktop);
    EXPECT_EQ(window->getSize(), (sSize{232, 420}));
    expectColor(sPoint(1007, 600), Colors::mDefaultDarkLightColor);
    expectColor(sPoint(1009, 600), Background);
    expectColor(sPoint(800, 707), Colors::mDefaultDarkLightColor);
    expectColor(getCenter(getCloseButton("Events")) - sPoint(5, 0), Colors::mDefaultWindowColor);
}

TEST_F(GalleryTest, AButtonIsClickedWhenItIsReleasedInside)
{
    const UIBase* button = getClient("Buttons", 1);
    const sRect region = button->getAbsRegion();
    const struct
    {
        sPoint release;
        bool clicked;
    } rows[] = {
        {getCenter(region), true},
        {{region.right, region.bottom}, true},
        {{region.right + 1, region.bottom}, false},
        {{region.left, region.top - 1}, false},
        {{-40, 400}, false},
    };
    for (const auto& row : rows)
    {
        find("Buttons")->report("");
        mDriver.move(getCenter(region));
        mDriver.press();
        mDriver.move(row.release);
        expectColor(sPoint(region.left, region.top), Colors::mDefaultDarkLightColor);
        EXPECT_EQ(ui().getCapture(), button);
        mDriver.release();
        expectColor(sPoint(region.left, region.top), Colors::mDefaultHighLightColor);
        EXPECT_STREQ(find("Buttons")->getReport().c_str(), row.clicked ? "Plain" : "") << row.release.x;
        EXPECT_EQ(ui().getCapture(), nullptr);
    }
}

TEST_F(GalleryTest, AContextMenuOpensWhereThereIsRoom)
{
    const UIMenu* menu = ui().getDesktop()->getMenu();
    ASSERT_EQ(menu->getSize(), (sSize{120, 106}));
    const struct
    {
        sPoint pointer;
        sPoint position;
    } rows[] = {
        {{700, 640}, {700, 640}},
        {{1000, 640}, {880, 640}},
        {{700, 740}, {700, 634}},
        {{1023, 767}, {903, 661}},
    };
    for (const auto& row : rows)
    {
        mDriver.click(row.pointer, WindowDriver::Right);
        EXPECT_EQ(ui().getMenu(), menu) << "the release chooses nothing";
        EXPECT_EQ(menu->getPosition(), row.position);
        expectColor(row.position + sPoint(6, 100), Colors::mDefaultMenuColor);
        expectColor(row.position, sColor::Black);
        mDriver.click(getRow(menu, 1));
        EXPECT_EQ(ui().getMenu(), nullptr);
        expectColor(row.position + sPoint(6, 100), Background);
    }
}

TEST_F(GalleryTest, SubmenusOpenToTheLeftAtTheEdge)
{
    const UIWindow* window = find("Menus");
    mDriver.move(window->getAbsPosition() + TitleBar);
    mDriver.press();
    mDriver.move(sPoint(850, 560));
    mDriver.release();
    mDriver.click(sPoint(1000, getCenter(getClient("Menus", 2)).y), WindowDriver::Right);
    UIMenu* menu = ui().getMenu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->getPosition().x, 1000 - static_cast<int>(menu->getSize().width));
    mDriver.click(getRow(menu, 3));
    const UIMenu* marks = menu->getSubMenu();
    ASSERT_NE(marks, nullptr);
    EXPECT_EQ(marks->getPosition().x + static_cast<int>(marks->getSize().width), menu->getPosition().x + 4);
    expectColor(marks->getAbsPosition() + sPoint(2, 2), Colors::mDefaultMenuColor);
    mDriver.click(getRow(marks, 5));
    EXPECT_STREQ(find("Menus")->getReport().c_str(), "Radio 2");
    EXPECT_TRUE(marks->isItemChecked("Radio 2"));
    EXPECT_FALSE(marks->isItemChecked("Radio 1"));
}

TEST_F(GalleryTest, AMenuIsWalkedByTheKeys)
{
    constexpr auto Down = KeyboardSystem::DownArrow;
    constexpr auto Up = KeyboardSystem::UpArrow;
    const struct
    {
        WindowDriver::eKeyCode key;
        const char* selected;
        unsigned int depth;
    } rows[] = {
        {Up, "No more", 1},
        {Down, "No more", 1},
        {Up, "More", 1},
        {Up, "Marks", 1},
        {Up, "Disabled", 1},
        {Up, "Plain", 1},
        {Up, "Plain", 1},
        {Down, "Disabled", 1},
        {Down, "Marks", 1},
        {KeyboardSystem::Return, nullptr, 2},
        {Down, "Check", 2},
        {Down, "Unchecked", 2},
        {Down, "Checked, disabled", 2},
        {Down, "Radio 1", 2},
    };
    const sPoint place = getCenter(getClient("Menus", 2));
    mDriver.click(place, WindowDriver::Right);
    UIMenu* menu = ui().getMenu();
    ASSERT_NE(menu, nullptr);
    for (const auto& row : rows)
    {
        mDriver.strike(row.key);
        const UIMenu::Item* item = UIMenuChain(ui().getMenu()).getDeepest()->getSelectItem();
        EXPECT_STREQ(item ? item->getName() : nullptr, row.selected);
        EXPECT_EQ(countMenus(), row.depth) << row.selected;
    }
    const UIMenu* marks = menu->getSubMenu();
    expectColor(getRow(marks, 4) + RowMargin, Colors::mDefaultMenuSelectColor);
    expectColor(getRow(marks, 0) + RowMargin, Colors::mDefaultMenuColor);
    mDriver.strike(Down);
    mDriver.strike(KeyboardSystem::Return);
    EXPECT_STREQ(find("Menus")->getReport().c_str(), "Radio 2");
    EXPECT_TRUE(marks->isItemChecked("Radio 1")) << "a key leaves the marks alone";
    EXPECT_EQ(ui().getMenu(), nullptr);

    find("Menus")->report("");
    mDriver.strike(KeyboardSystem::Return);
    EXPECT_STREQ(find("Menus")->getReport().c_str(), "") << "a closed menu hears nothing";
    mDriver.click(place, WindowDriver::Right);
    mDriver.strike(Down);
    mDriver.strike(KeyboardSystem::Escape);
    EXPECT_EQ(ui().getMenu(), nullptr);
    EXPECT_STREQ(find("Menus")->getReport().c_str(), "");
}

TEST_F(GalleryTest, AFormScrollsByWheelThumbTroughAndArrows)
{
    const UIScrollBar* bar = getBar("Scrolled", 1);
    const sRect region = bar->getAbsRegion();
    const int track = region.bottom - region.top - 24;
    const int page = static_cast<int>(bar->getBarRange() + 1) / 2;
    const int end = bar->getMaximum() - static_cast<int>(bar->getBarRange());
    const sPoint content(60, region.top + 40);
    const sPoint up(region.left + 6, region.top + 6);
    const sPoint down(region.left + 6, region.bottom - 6);
    const sPoint underThumb(region.left + 6, region.bottom - 14);
    const auto getThumb = [&]
    {
        return getCenter(bar->getBarRegion() + sPoint(region.left, region.top));
    };
    const auto dragThumb = [&](int way)
    {
        mDriver.move(getThumb());
        mDriver.press();
        mDriver.move(sPoint(getThumb().x + 30, getThumb().y + way));
        mDriver.release();
    };
    const auto turnWheel = [&](int notches)
    {
        mDriver.move(content);
        mDriver.turnWheel(notches);
    };
    const struct
    {
        const char* what;
        std::function<void()> act;
        int position;
    } rows[] = {
        {"wheel up", [&] { turnWheel(4); }, 32},
        {"wheel down", [&] { turnWheel(-5); }, 37},
        {"lower arrow", [&] { mDriver.click(down); }, 38},
        {"upper arrow", [&] { mDriver.click(up); }, 37},
        {"thumb up", [&] { dragThumb(-200); }, 0},
        {"thumb down", [&] { dragThumb(10); }, bar->getMaximum() * 10 / track},
        {"thumb back", [&] { dragThumb(-200); }, 0},
        {"trough", [&] { mDriver.click(underThumb); }, page},
        {"thumb to the end", [&] { dragThumb(300); }, end},
        {"arrow at the end", [&] { mDriver.click(down); }, end},
        {"wheel at the end", [&] { turnWheel(-3); }, end},
        {"trough back", [&] { mDriver.click(up + sPoint(0, 10)); }, end - page},
    };
    constexpr int Width = 70;
    constexpr int Height = 90;
    const auto readContent = [&](int height)
    {
        return mDriver.read(sRect(20, region.top + 10, 20 + Width, region.top + 10 + height));
    };
    int compared = 0;
    for (const auto& row : rows)
    {
        const int former = bar->getBarPosition();
        const std::vector<sColor> picture = readContent(Height);
        row.act();
        EXPECT_EQ(bar->getBarPosition(), row.position) << row.what;
        const int shift = bar->getBarPosition() - former;
        if (shift <= 0 || shift > Height / 2)
            continue;
        const std::vector<sColor> shifted = readContent(Height - shift);
        EXPECT_TRUE(std::equal(shifted.begin(), shifted.end(), picture.begin() + shift * Width)) << row.what;
        EXPECT_FALSE(std::equal(shifted.begin(), shifted.end(), picture.begin())) << row.what;
        ++compared;
    }
    EXPECT_GE(compared, 2);
}

TEST_F(GalleryTest, ASplitterIsDraggedBetweenItsLimits)
{
    const UISplitter* outer = getClient<UISplitter>("Splitters", 0);
    const UISplitter* inner = getChild<UISplitter>(outer, 1);
    const sRect all = outer->getAbsRegion();
    const int width = static_cast<int>(outer->getSize().width);
    const int height = static_cast<int>(inner->getSize().height);
    const struct
    {
        const UISplitter* splitter;
        sPoint pointer;
        int size;
    } rows[] = {
        {outer, {60, 80}, 60},           {outer, {7, 80}, 20},
        {outer, {-40, 80}, 20},          {outer, {width + 10, 80}, width},
        {outer, {120, 80}, 120},         {inner, {200, height - 70}, 70},
        {inner, {200, -10}, 4},          {inner, {200, height + 60}, height},
        {inner, {200, 60}, height - 60},
    };
    const sPoint origin(all.left, all.top);
    for (const auto& row : rows)
    {
        const int size = static_cast<int>(row.splitter->getSplitSize());
        const sPoint gap = row.splitter == outer ? sPoint(size - 2, 80) : sPoint(200, height - size + 2);
        mDriver.move(origin + gap);
        mDriver.press();
        mDriver.move(origin + row.pointer);
        mDriver.release();
        EXPECT_EQ(static_cast<int>(row.splitter->getSplitSize()), row.size) << row.pointer.x << ", " << row.pointer.y;
    }
    expectColor(origin + sPoint(118, 80), Colors::mDefaultWindowColor);
    expectColor(origin + sPoint(200, 62), Colors::mDefaultWindowColor);
    expectColor(origin + sPoint(112, 80), sColor::White);
    expectColor(origin + sPoint(200, 68), sColor::White);
}

TEST_F(GalleryTest, TwoQuickPressesAreADoubleClick)
{
    const GalleryProbe* probe = getClient<GalleryProbe>("Events", 1);
    const struct
    {
        unsigned int pause;
        unsigned int down;
        unsigned int doubleClick;
    } rows[] = {{0, 1, 0}, {100, 1, 1}, {100, 2, 1}, {249, 2, 2}, {300, 3, 2}, {250, 4, 2}};
    for (const auto& row : rows)
    {
        mDriver.click(getCenter(probe), WindowDriver::Left, row.pause);
        EXPECT_EQ(probe->getCount().down, row.down) << row.pause;
        EXPECT_EQ(probe->getCount().doubleClick, row.doubleClick) << row.pause;
    }
    EXPECT_EQ(probe->getCount().up, 6u);
    EXPECT_EQ(ui().getFocus(), probe);
    expectColor(getCenter(probe) + sPoint(60, 0), Colors::mDefaultHighLightColor);
    mDriver.strike(KeyboardSystem::KeyA);
    EXPECT_EQ(probe->getCount().lastKey, static_cast<unsigned int>('A'));
    mDriver.click(getCenter(probe), WindowDriver::Right, 100);
    EXPECT_EQ(probe->getCount().down, 5u) << "another button";
}

TEST_F(GalleryTest, AModalBoxIsAnsweredBeforeAnythingElse)
{
    const GalleryProbe* probe = getClient<GalleryProbe>("Events", 1);
    const sPoint plain = getCenter(getClient("Buttons", 1));
    mDriver.click(getCenter(getClient("Questions", 2)));
    UIWindow* box = ui().getActiveWindow();
    ASSERT_TRUE(box && box->isModalWindow());
    EXPECT_EQ(ui().getWindowList()[0], box);

    mDriver.click(plain);
    EXPECT_TRUE(find("Buttons")->getReport().empty());
    mDriver.click(getCenter(probe));
    mDriver.turnWheel(2);
    EXPECT_EQ(probe->getCount().down, 0u);
    EXPECT_EQ(probe->getCount().wheel, 0);
    EXPECT_GT(probe->getCount().move, 0u) << "moves pass";
    mDriver.strikeClose();
    EXPECT_NE(find("Events"), nullptr);
    EXPECT_EQ(ui().getActiveWindow(), box);
    expectColor(box->getAbsPosition() + sPoint(3, 3), Colors::mDefaultActiveTitleBarColor);

    const sPoint place = box->getAbsPosition();
    mDriver.click(getCenter(getChild(box, 3)));
    EXPECT_STREQ(find("Questions")->getReport().c_str(), "Answer 2");
    EXPECT_EQ(ui().getActiveWindow(), nullptr);
    EXPECT_EQ(find("Question"), nullptr);
    mDriver.move(FreeDesktop);
    EXPECT_FALSE(isNear(mDriver.read(place + sPoint(3, 3)), Colors::mDefaultActiveTitleBarColor));
    mDriver.click(plain);
    EXPECT_STREQ(find("Buttons")->getReport().c_str(), "Plain");
}

TEST_F(GalleryTest, OfTwoModalBoxesTheYoungerIsAnsweredFirst)
{
    mDriver.click(getCenter(getClient("Questions", 3)));
    UIWindow* younger = ui().getActiveWindow();
    ASSERT_NE(younger, nullptr);
    mDriver.move(younger->getAbsPosition() + TitleBar);
    mDriver.press();
    mDriver.move(sPoint(300, 650));
    mDriver.release();
    UIWindow* older = static_cast<UIWindow*>(ui().getWindowList()[1]);
    ASSERT_TRUE(older->isModalWindow());
    mDriver.click(getCenter(getChild(older, 2)));
    EXPECT_TRUE(find("Questions")->getReport().empty()) << "the older one waits";
    mDriver.click(getCenter(getChild(younger, 2)));
    EXPECT_STREQ(find("Questions")->getReport().c_str(), "Answer 0");
    EXPECT_EQ(ui().getActiveWindow(), older);
    mDriver.click(getCenter(getCloseButton("Question")));
    EXPECT_STREQ(find("Questions")->getReport().c_str(), "Answer 3");
    EXPECT_EQ(find("Question"), nullptr);
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
    mDriver.click(getRow(menu, 4));
    EXPECT_EQ(countMenus(), 2u);
    mDriver.click(getCenter(getCloseButton("Menus")));
    EXPECT_EQ(find("Menus"), nullptr);
    EXPECT_EQ(ui().getMenu(), nullptr);
    EXPECT_EQ(ui().getMainMenu(), nullptr);
    expectColor(sPoint(400, 8), Background);

    // Its own context menu, by the item in it.
    mDriver.click(find("Texts")->getAbsPosition() + TitleBar, WindowDriver::Right);
    ASSERT_EQ(ui().getMenu(), find("Texts")->getMenu());
    mDriver.click(getRow(ui().getMenu(), 3));
    EXPECT_EQ(find("Texts"), nullptr);
    EXPECT_EQ(ui().getMenu(), nullptr);

    // The menu of one of its elements, by the keys, with the pointer beside the menu.
    mDriver.click(getCenter(getClient("Events", 1)), WindowDriver::Right);
    ASSERT_NE(ui().getMenu(), nullptr);
    mDriver.move(find("Events")->getAbsPosition() + TitleBar);
    mDriver.strikeClose();
    EXPECT_EQ(find("Events"), nullptr);
    EXPECT_EQ(ui().getMenu(), nullptr);
}

TEST_F(GalleryTest, AltF4ClosesOneWindowUnderThePointerWhileSomethingHasTheFocus)
{
    const unsigned int num = ui().getWindowList().size();
    const auto closeAt = [this](const char* title)
    {
        mDriver.move(find(title)->getAbsPosition() + TitleBar);
        mDriver.strikeClose();
        return find(title) == nullptr;
    };
    EXPECT_FALSE(closeAt("Texts")) << "nothing has the focus";
    mDriver.click(getCenter(getClient("Events", 1)));
    EXPECT_TRUE(closeAt("Texts"));
    mDriver.runFrames(10);
    EXPECT_EQ(ui().getWindowList().size(), num - 1) << "one key, one window";
    EXPECT_NE(ui().getFocus(), nullptr);
    EXPECT_TRUE(closeAt("Events"));
    EXPECT_EQ(ui().getFocus(), nullptr);
    EXPECT_FALSE(closeAt("Pictures"));
    EXPECT_EQ(ui().getWindowList().size(), num - 2);
    mDriver.move(FreeDesktop);
    expectColor(sPoint(400, 100), Background);
}
