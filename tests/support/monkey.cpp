#include "tests/support/monkey.h"

#include "tests/support/monkeystage.h"
#include "ui/uidesktop.h"
#include "ui/uimainmenu.h"
#include "ui/uimenuchain.h"
#include "ui/uiwindow.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace
{
constexpr sRect Screen(1024u, 768u);
constexpr unsigned int MinimumWindowNum = 5;
constexpr unsigned int MaximumWindowNum = 20;
constexpr unsigned int FrameMilliseconds = 16;
constexpr unsigned int LongMilliseconds = 400;

// Between a press and its release; what is shorter is a click.
constexpr int DragDistance = 4;

// What elements listen to, by usage: Return, Escape, Space, the arrows, Home, End, letters, F4, F5, and the modifiers.
constexpr unsigned char KeyTable[] = {40, 40, 41, 44, 79, 80, 81, 82, 74, 77, 4, 5, 61, 62, 224, 225, 226};

// What is typed into boxes: letters, digits, minus and point, Backspace and Delete.
constexpr unsigned char TextTable[] = {4, 5, 6, 30, 31, 38, 39, 45, 55, 42, 76};

// Whether an element is the menu, or one of those that it can open; a menu and the bar of menus are alike in this.
template <typename Menu>
bool isInMenu(const Menu* menu, const UIBase* element)
{
    if (!menu || menu == element)
        return menu != nullptr;
    for (const auto* item : menu->getItems())
        if (isInMenu(item->getSubMenu(), element))
            return true;
    return false;
}

// A pulldown list that was closed while the button was held lies in no tree, but has the pointer until the release.
// Only a look at the element can tell; where it is gone, the sanitizer sees the look.
bool isClosedList(const UIBase* element)
{
    while (element->getParent())
        element = element->getParent();
    return !element->isVisible();
}

// Whether an element lies in a tree, or belongs to a menu of one that does.
bool isInTree(const UIBase* root, const UIBase* element)
{
    if (root == element || isInMenu(root->getMenu(), element))
        return true;
    for (UIBase::iterator child = root->getChildrenBegin(); child != root->getChildrenEnd(); ++child)
        if (isInTree(*child, element))
            return true;
    return false;
}
}

const Monkey::sEventRow Monkey::EventTable[] = {
    {16, &Monkey::moveToElement},    {6, &Monkey::moveToMenu},      {5, &Monkey::moveAnywhere},
    {12, &Monkey::moveAside},        {30, &Monkey::pressOrRelease}, {14, &Monkey::clickElement},
    {8, &Monkey::chooseFromMenu},    {4, &Monkey::typeText},        {3, &Monkey::turnWheel},
    {8, &Monkey::pressOrReleaseKey}, {3, &Monkey::openWindow},      {1, &Monkey::closeWindow},
    {2, &Monkey::waitLong},
};

Monkey::Monkey(HeadlessInterface& interface, const sMonkeyStage& stage, unsigned int seed)
    : mInterface(interface), mSystem(*interface.mSystem), mRandom(seed), mStage(stage), mSeed(seed)
{
    mStage.prepare(mInterface.getRoot());
    mStage.openAll();
    runFrame();
}

bool Monkey::run(unsigned int eventNum)
{
    for (unsigned int i = 0; i < eventNum; ++i)
    {
        doSomething();
        if (choose(3))
            runFrame();
        const char* fault = findFault();
        if (!fault)
            continue;
        std::fprintf(stderr, "Monkey of seed %u, event %u: the %s is gone.\n", mSeed, i, fault);
        return false;
    }
    return true;
}

void Monkey::doSomething()
{
    unsigned int sum = 0;
    for (const sEventRow& row : EventTable)
        sum += row.weight;
    unsigned int place = mRandom() % sum;
    for (const sEventRow& row : EventTable)
    {
        if (place < row.weight)
            return (this->*row.event)();
        place -= row.weight;
    }
}

void Monkey::moveToElement()
{
    moveTo(choosePoint(chooseElement()->getDrawRegion()));
}

void Monkey::moveToMenu()
{
    const UIBase* menu = UIMenuChain(mSystem.getMenu()).getDeepest();
    if (!menu)
        menu = mSystem.getMainMenu();
    if (menu)
        moveTo(choosePoint(menu->getAbsRegion()));
    else
        moveToElement();
}

void Monkey::moveAnywhere()
{
    moveTo(choosePoint(Screen));
}

void Monkey::moveAside()
{
    moveTo(mPointer + sPoint(choose(41) - 20, choose(41) - 20));
}

void Monkey::pressOrRelease()
{
    const unsigned int button = choose(4) ? 1 : choose(3) ? 2 : 4;
    if (mButtons == 0 || choose(8) == 0)
    {
        if (mButtons == 0)
            mPressPlace = mPointer;
        mInterface.setButton(button, true);
        mButtons |= button;
        return;
    }
    const bool held = mSystem.getCapture() != nullptr;
    releaseAll();
    runFrame();
    const sPoint way = mPointer - mPressPlace;
    if (held && !mSystem.getCapture() && std::abs(way.x) + std::abs(way.y) >= DragDistance)
        ++mTally["drags"];
}

void Monkey::clickElement()
{
    moveToElement();
    click(1);
}

// As far into the menus as the pointer gets, and a click there.
void Monkey::chooseFromMenu()
{
    if (!mSystem.getMenu())
        openMenu();
    for (int depth = choose(3); depth > 0; --depth)
    {
        moveToMenu();
        runFrame();
    }
    const bool open = mSystem.getMenu() != nullptr;
    click(1);
    if (open && !mSystem.getMenu())
        ++mTally["menus"];
}

// That of an element, or of a title in the bar of the active window.
void Monkey::openMenu()
{
    const UIBase* element = choose(2) ? chooseElement() : nullptr;
    while (element && !element->getMenu())
        element = element->getParent();
    if (!element)
        moveToMenu();
    else
        moveTo(choosePoint(element->getDrawRegion()));
    click(element ? 2 : 1);
}

void Monkey::typeText()
{
    clickElement();
    for (int length = choose(4); length > 0; --length)
    {
        const unsigned char key = TextTable[choose(std::size(TextTable))];
        if (!mKeys.contains(key))
            mInterface.pressKey(key);
    }
    if (choose(2))
        mInterface.pressKey(KeyTable[0]);
}

void Monkey::turnWheel()
{
    mInterface.turnWheel(choose(21) - 10);
}

void Monkey::pressOrReleaseKey()
{
    const unsigned char key = KeyTable[choose(std::size(KeyTable))];
    const bool down = mKeys.insert(key).second;
    if (!down)
        mKeys.erase(key);
    mInterface.setKey(key, down);
}

// Few windows are no crowd to fight with.
void Monkey::openWindow()
{
    if (mSystem.getWindowList().size() < MinimumWindowNum)
        mStage.openAll();
    else if (mSystem.getWindowList().size() < MaximumWindowNum)
        mStage.openOne(mRandom());
}

void Monkey::closeWindow()
{
    if (choose(100) == 0)
        mSystem.removeAllWindow();
    else if (!mSystem.getWindowList().empty())
        mSystem.removeWindow(getWindow(mRandom() % mSystem.getWindowList().size()));
}

void Monkey::waitLong()
{
    mInterface.wait(LongMilliseconds);
}

sPoint Monkey::choosePoint(const sRect& rect)
{
    return sPoint(rect.left + choose(static_cast<int>(rect.getWidth()) + 1),
                  rect.top + choose(static_cast<int>(rect.getHeight()) + 1));
}

// The desktop, or any depth of the window on top or of another.
UIBase* Monkey::chooseElement()
{
    const unsigned int windowNum = mSystem.getWindowList().size();
    if (windowNum == 0 || choose(40) == 0)
        return mSystem.getDesktop();
    UIBase* element = getWindow(choose(getWindow(0)->isModalWindow() ? 8 : 2) ? 0 : mRandom() % windowNum);
    while (element->getChildCount() && choose(8))
        element = *(element->getChildrenBegin() + choose(static_cast<int>(element->getChildCount())));
    return element;
}

UIWindow* Monkey::getWindow(unsigned int index) const
{
    return static_cast<UIWindow*>(mSystem.getWindowList()[index]);
}

void Monkey::moveTo(const sPoint& position)
{
    mPointer = position;
    mInterface.movePointer(position);
}

// With that button, and no other.
void Monkey::click(unsigned int button)
{
    releaseAll();
    runFrame();
    mInterface.setButton(button, true);
    runFrame();
    mInterface.setButton(button, false);
    runFrame();
}

void Monkey::releaseAll()
{
    for (unsigned int button : {1u, 2u, 4u})
        if (mButtons & button)
            mInterface.setButton(button, false);
    mButtons = 0;
}

void Monkey::runFrame()
{
    mInterface.wait(FrameMilliseconds);
    mInterface.runFrame();
    ++mTally["frames"];
    countWindows();
}

void Monkey::countWindows()
{
    std::map<const UIWindow*, bool> present;
    for (unsigned int i = 0; i < mSystem.getWindowList().size(); ++i)
    {
        const UIWindow* window = getWindow(i);
        present[window] = window->isModalWindow();
        mTally["windows"] += !mWindows.contains(window);
    }
    for (const auto& [window, modal] : mWindows)
        mTally["dialogs"] += modal && !present.contains(window);
    mWindows.swap(present);
}

// Null if all is well, or else what is gone.
const char* Monkey::findFault() const
{
    const std::pair<const char*, const UIBase*> rows[] = {{"focus", mSystem.getFocus()},
                                                          {"capture", mSystem.getCapture()},
                                                          {"open menu", mSystem.getMenu()},
                                                          {"active window", mSystem.getActiveWindow()},
                                                          {"bar of menus", mSystem.getMainMenu()}};
    for (const auto& [name, element] : rows)
        if (!isAlive(element) && !(element == mSystem.getCapture() && isClosedList(element)))
            return name;
    return nullptr;
}

void Monkey::print() const
{
    std::printf("Monkey of seed %u at the %s:", mSeed, mStage.name);
    for (const auto& [name, count] : mTally)
        std::printf(" %u %s", count, name.c_str());
    std::printf("\n");
}

// Looks through all that is there, without a look at the element.
bool Monkey::isAlive(const UIBase* element) const
{
    if (!element || isInTree(mSystem.getDesktop(), element))
        return true;
    for (unsigned int i = 0; i < mSystem.getWindowList().size(); ++i)
    {
        const UIWindow* window = getWindow(i);
        if (isInTree(window, element) || isInMenu(window->getMainMenu(), element))
            return true;
    }
    return false;
}
