#include "ui/uisystem.h"

#include "application/systemmanager.h"
#include "foundation/functor.h"
#include "foundation/jobsystem.h"
#include "reflection/propertylist.h"
#include "render/rendersystem.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/probe.h"
#include "tests/support/tracecapture.h"
#include "ui/uidesktop.h"
#include "ui/uidialog.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uipainter.h"
#include "ui/uishortcut.h"
#include "ui/uiwindow.h"

#include <gtest/gtest.h>

#include <thread>

namespace
{
using Element = Probe<UIBase>;

constexpr unsigned int Modal = 8;
constexpr unsigned char KeyA = 4;
constexpr unsigned char KeyReturn = 40;
constexpr unsigned char KeyF4 = 61;
constexpr unsigned char KeyAlt = 226;

// A window of 100 by 100, which tells what happens to it: the edge is its own, the rest its client region's.
class ProbeWindow : public Probe<UIWindow>
{
public:
    ProbeWindow(ProbeLog& log, const char* name, const sPoint& position, unsigned int attribute = 0,
                UIWindow* owner = nullptr)
        : Probe(log, name, UIWindow::eStyle{2}, attribute, false, false, false, 0u, owner)
    {
        setPosition(position);
        setSize({100, 100});
    }

    ResourceBase* getManagedResource() const override { return mResource; }

    ResourceBase* mResource = nullptr;
};

// Draws as many commands as it is told to.
class Greedy : public UIBase
{
public:
    explicit Greedy(unsigned int commandNum) : mCommandNum(commandNum) { setSize({10, 10}); }

    void eventPaint(UIPainter* painter) override
    {
        for (unsigned int i = 0; i < mCommandNum; ++i)
        {
            painter->setBlendMode(i % 2 ? UIPainter::eBlendMode::Opaque : UIPainter::eBlendMode::Alpha);
            painter->drawRect(getOwnRegion(), sColor::Red);
        }
    }

private:
    unsigned int mCommandNum;
};

// Deletes its children whenever it is updated.
class Shedder : public UIBase
{
public:
    void update(float) override { removeChildren(); }
};

// Counts the dialogs that it hears of.
class Listener : public UIBase
{
public:
    explicit Listener(int& heard) : mHeard(heard) {}

    void hear(UIDialog*) { ++mHeard; }

private:
    int& mHeard;
};
}

class UISystemTest : public testing::Test
{
protected:
    explicit UISystemTest(unsigned int threadNum = 1) : mInterface(threadNum) {}

    // A window, with an element at (10, 10) of 20 by 20, from the next frame on.
    ProbeWindow* addWindow(const char* name, const sPoint& position, unsigned int attribute = 0,
                           UIWindow* owner = nullptr)
    {
        return mInterface.add(new ProbeWindow(mLog, name, position, attribute, owner));
    }

    Element* addElement(UIBase& parent, const char* name)
    {
        Element* element = new Element(mLog, name);
        element->setPosition({10, 10});
        element->setSize({20, 20});
        parent.add(element);
        return element;
    }

    // Two frames: what has come alive has been laid out then.
    void settle()
    {
        mInterface.runFrames(2);
        mLog.clear();
    }

    std::string take() { return takeLog(mLog); }

    ProbeLog mLog;
    HeadlessInterface mInterface;
    UISystem& mSystem = *mInterface.mSystem;
};

TEST_F(UISystemTest, BringsAClickToTheElementAndToItAlone)
{
    ProbeWindow* window = addWindow("w", {100, 100});
    Element* element = addElement(*window, "e");
    settle();

    mInterface.press({115, 112});
    EXPECT_EQ(take(), "e.move(5,2) e.focus e.down(5,2):1 w.active");
    EXPECT_EQ(mSystem.getCapture(), element);
    EXPECT_EQ(mSystem.getActiveWindow(), window);
    mInterface.movePointer({5, 5});
    mInterface.turnWheel(1);
    mInterface.setButton(2, true);
    mInterface.pressKey(KeyA);
    EXPECT_EQ(take(), "e.move(-105,-105) e.key:65:0 e.keyup:65") << "a second press and the wheel are not for it";
    mInterface.release(2);
    EXPECT_EQ(take(), "e.up(-105,-105):2") << "any button that comes up is the end";
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    EXPECT_EQ(mSystem.getFocus(), element);
}

TEST_F(UISystemTest, TellsDoubleClicksByElementButtonAndTime)
{
    addElement(*addWindow("w", {0, 0}), "e");
    settle();
    mInterface.click({15, 15});
    for (const unsigned int pause : {200u, 0u, 250u})
    {
        take();
        mInterface.wait(pause);
        mInterface.click({15, 15});
        EXPECT_EQ(take(), pause == 200 ? "e.double(5,5):1 e.up(5,5):1" : "e.down(5,5):1 e.up(5,5):1") << pause;
    }
    mInterface.click({15, 15}, 2);
    EXPECT_EQ(take(), "e.down(5,5):2 e.up(5,5):2");
}

TEST_F(UISystemTest, FocusesByPressTheNewElementFirst)
{
    ProbeWindow* window = addWindow("w", {0, 0});
    Element* old = addElement(*window, "old");
    Element* next = addElement(*window, "next");
    next->setPosition({50, 50});
    settle();
    mSystem.focus(old);
    take();
    mInterface.click({55, 55});
    EXPECT_EQ(take(), "next.move(5,5) next.focus old.defocus next.down(5,5):1 w.active next.up(5,5):1");
    mSystem.focus(old);
    EXPECT_EQ(take(), "next.defocus old.focus");

    // The element that comes into focus deletes the one that goes out of it.
    next->mHook = [&]
    {
        if (!old)
            return;
        old->remove();
        delete std::exchange(old, nullptr);
    };
    mInterface.click({55, 55}, 2);
    EXPECT_EQ(take(), "next.focus old.gone next.down(5,5):2 next.up(5,5):2");

    next->disable();
    mSystem.focus(window);
    take();
    mInterface.click({55, 55}, 4);
    EXPECT_EQ(take(), "next.down(5,5):4 next.up(5,5):4") << "a disabled one hears of it and gets no focus";
    EXPECT_EQ(mSystem.getFocus(), window);
}

TEST_F(UISystemTest, TakesAPressOnTheDesktopForTheBackmostWindow)
{
    addWindow("back", {300, 300});
    ProbeWindow* front = addWindow("front", {500, 300});
    settle();
    mInterface.click({501, 301});
    mInterface.click({5, 5});
    EXPECT_EQ(take(), "front.move(1,1) front.focus front.down(1,1):1 front.active front.up(1,1):1 "
                      "front.defocus front.deactive back.active");
    EXPECT_EQ(*mSystem.getWindowList().begin(), front) << "activating raises nothing";

    mSystem.removeAllWindow();
    mSystem.focus(mSystem.getDesktop());
    mInterface.click({5, 5});
    EXPECT_EQ(mSystem.getFocus(), nullptr);
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
}

TEST_F(UISystemTest, ModalWindowsTakeAllPressesAndTheWheel)
{
    ProbeWindow* window = addWindow("w", {100, 100});
    Element* element = addElement(*window, "e");
    settle();
    mInterface.press({115, 115});
    ProbeWindow* first = addWindow("m", {300, 300}, Modal);
    ProbeWindow* second = addWindow("n", {350, 300}, Modal);
    take();
    mInterface.runFrame();
    EXPECT_EQ(take(), "m.create n.create w.deactive n.active e.up(5,5):255");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    addWindow("late", {0, 0});
    settle();
    EXPECT_EQ(*mSystem.getWindowList().begin(), second);
    EXPECT_EQ(*(mSystem.getWindowList().begin() + 1), first) << "what comes later lies below them";

    mInterface.release();
    mInterface.turnWheel(2);
    mInterface.click({120, 120});
    EXPECT_EQ(take(), "e.move(10,10)") << "but moves are for all";
    EXPECT_EQ(mSystem.getFocus(), element);
    mInterface.click({351, 399});
    EXPECT_EQ(take(), "n.move(1,99) n.focus e.defocus n.down(1,99):1 n.up(1,99):1");

    second->close();
    mInterface.runFrame();
    EXPECT_EQ(take(), "n.destroy n.defocus n.deactive n.gone");
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getActiveWindow(), first);
}

TEST_F(UISystemTest, CallsTheShortcutOfTheWindowUnderThePointerOnceForAKey)
{
    addWindow("a", {0, 0});
    addWindow("b", {0, 0});
    addWindow("c", {200, 0});
    settle();
    mInterface.movePointer({50, 50});
    mInterface.setKey(KeyAlt, true);
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(mSystem.getWindowList().size(), 3u) << "keys are not looked at without focus";

    mSystem.focus(mSystem.getDesktop());
    mInterface.setKey(KeyF4, true);
    mInterface.runFrame();
    mSystem.defocus();
    take();
    mInterface.runFrames(3);
    EXPECT_EQ(take(), "") << "the stale key has been used";
    EXPECT_EQ(mSystem.getWindowList().size(), 2u);
    EXPECT_EQ(mSystem.getKeyDown(), AutoString("F4"));

    mInterface.setKey(KeyF4, false);
    addWindow("m", {200, 200}, Modal);
    settle();
    mSystem.focus(mSystem.getDesktop());
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(mSystem.getWindowList().size(), 3u) << "a modal window keeps the shortcuts of others";
    mInterface.movePointer({210, 210});
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(mSystem.getWindowList().size(), 2u);
}

class UISystemMenuTest : public UISystemTest
{
protected:
    void choose() { ++mChosen; }

    // A menu of two items that count.
    UIMenu* makeMenu()
    {
        UIMenu* menu = new UIMenu;
        for (const char* name : {"One", "Two"})
            menu->addItem(name, new Functor<UISystemMenuTest, void, void>(this, &UISystemMenuTest::choose), nullptr,
                          UIMenu::eItemAttribute{}, true, false);
        return menu;
    }

    // A point of the first item.
    sPoint getItem() const { return mSystem.getMenu()->getPosition() + sPoint(20, 8); }

    int mChosen = 0;
};

TEST_F(UISystemMenuTest, OpensAContextMenuInsideTheViewAndTakesTheFocusFromItAtItsEnd)
{
    ProbeWindow* window = addWindow("w", {900, 650});
    window->setSize({124, 118});
    window->setMenu(makeMenu());
    settle();
    mInterface.click({901, 660}, 2);
    EXPECT_EQ(mSystem.getMenu(), window->getMenu());
    EXPECT_EQ(window->getMenu()->getPosition(), sPoint(901, 660));
    mInterface.pressKey(KeyReturn);
    EXPECT_EQ(mSystem.getMenu(), nullptr) << "keys are for the menu, wherever the focus is";
    mInterface.click({1023, 767}, 2);
    const sSize size = window->getMenu()->getSize();
    EXPECT_EQ(window->getMenu()->getPosition(),
              sPoint(1023 - static_cast<int>(size.width), 767 - static_cast<int>(size.height)));

    mInterface.click(getItem());
    EXPECT_EQ(mChosen, 1);
    EXPECT_EQ(mSystem.getMenu(), nullptr);
    EXPECT_EQ(mSystem.getFocus(), window);
    mInterface.pressKey(KeyReturn);
    EXPECT_EQ(mChosen, 1);
}

TEST_F(UISystemMenuTest, PressesReachAnOpenMenuAboveAModalWindowWhichClosesTheMenusOfOthers)
{
    ProbeWindow* window = addWindow("w", {0, 0});
    window->setMenu(makeMenu());
    settle();
    mInterface.click({1, 50}, 2);
    mInterface.click(mSystem.getMenu()->getPosition() + sPoint(2, 2), 4);
    EXPECT_EQ(mSystem.getFocus(), window->getMenu());
    ProbeWindow* modal = addWindow("m", {300, 300}, Modal);
    modal->setMenu(makeMenu());
    settle();
    EXPECT_EQ(mSystem.getMenu(), nullptr);
    EXPECT_EQ(mSystem.getFocus(), modal);

    mInterface.click({301, 310}, 2);
    mInterface.click(getItem());
    EXPECT_EQ(mChosen, 1);
    mInterface.click({301, 310}, 2);
    modal->close();
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getMenu(), nullptr) << "menus go with their owners";
}

TEST_F(UISystemMenuTest, ShowsTheMainMenuOfTheActiveWindowAcrossTheView)
{
    ProbeWindow* window = addWindow("w", {0, 100});
    UIMainMenu* mainMenu = new UIMainMenu;
    mainMenu->addItem("File", makeMenu());
    window->setMainMenu(mainMenu);
    settle();
    EXPECT_EQ(mSystem.getMainMenu(), nullptr);
    mInterface.click({50, 150});
    EXPECT_EQ(mSystem.getMainMenu(), mainMenu);
    EXPECT_EQ(mainMenu->getRelRegion(), sRect(0, 0, 1024, 16));

    mInterface.click({5, 5});
    ASSERT_NE(mSystem.getMenu(), nullptr);
    EXPECT_EQ(mSystem.getActiveWindow(), window);
    window->close();
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getMenu(), nullptr);
    EXPECT_EQ(mSystem.getMainMenu(), nullptr);
}

TEST_F(UISystemTest, BringsWindowsAliveAndDeletesThemBetweenTheFrames)
{
    ProbeWindow* owner = addWindow("o", {0, 0});
    owner->mHook = [&]
    {
        addWindow("inner", {0, 0}, 0, owner), owner->mHook = nullptr;
    };
    ProbeWindow* waiting = addWindow("x", {0, 0});
    mSystem.removeWindow(nullptr);
    mSystem.addWindow(nullptr);
    mSystem.removeWindow(waiting);
    mInterface.runFrame();
    EXPECT_EQ(take(), "o.create inner.create x.destroy x.gone") << "a removed window waits no longer";

    UIWindow* inner = static_cast<UIWindow*>(*mSystem.getWindowList().begin());
    Element* element = addElement(*inner, "e");
    settle();
    mInterface.press({15, 15});
    EXPECT_EQ(mSystem.getCapture(), element);
    take();
    mSystem.removeWindow(inner);
    mSystem.removeWindow(inner);
    EXPECT_TRUE(mSystem.isListedForRemoval(inner));
    mInterface.runFrame();
    EXPECT_EQ(take(), "inner.destroy e.destroy e.defocus inner.deactive o.active inner.gone e.gone");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    EXPECT_EQ(mSystem.getActiveWindow(), owner);
}

TEST_F(UISystemTest, ADeletedWindowOwnsNoOther)
{
    ProbeWindow* owner = addWindow("o", {0, 0});
    ProbeWindow* owned = addWindow("w", {200, 0}, 0, owner);
    settle();
    ProbeWindow* waiting = addWindow("x", {0, 0}, 0, owner);
    mSystem.setActiveWindow(owned);
    mSystem.removeWindow(owner);
    mSystem.removeWindow(owned);
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
    EXPECT_EQ(waiting->getOwnerWindow(), nullptr);

    addWindow("y", {0, 0});
    take();
    mSystem.removeAllWindow();
    EXPECT_EQ(take(), "x.destroy x.gone y.destroy y.gone") << "those which wait, too";
}

TEST_F(UISystemTest, DeletesASecondToolOnOneResource)
{
    ResourceBase* const resource = reinterpret_cast<ResourceBase*>(&mLog);
    addWindow("a", {0, 0})->mResource = resource;
    settle();
    ProbeWindow* second = new ProbeWindow(mLog, "b", {0, 0});
    second->mResource = resource;
    mSystem.addWindow(second);
    EXPECT_EQ(take(), "b.gone");
    addWindow("c", {0, 0});
    addWindow("d", {0, 0});
    settle();
    EXPECT_EQ(mSystem.getWindowList().size(), 3u) << "none is no resource";
}

TEST_F(UISystemTest, ForgetsElementsThatDie)
{
    ProbeWindow* window = addWindow("w", {0, 0});
    settle();
    for (int i = 0; i < 2; ++i)
    {
        Element element(mLog, "e");
        element.setSize({50, 50});
        window->add(&element);
        mInterface.runFrame();
        take();
        mInterface.press({15, 15});
        EXPECT_NE(take().find("e.down"), std::string::npos) << "no double click, for all that it has the same address";
        element.remove();
        mInterface.wait(1);
        mInterface.setButton(1, false);
    }
    EXPECT_EQ(mSystem.getFocus(), nullptr);
    EXPECT_EQ(mSystem.getCapture(), nullptr);

    // The target of a press dies by the key that comes before it.
    Element* element = addElement(*window, "e");
    mInterface.runFrame();
    mSystem.focus(window);
    window->mHook = [&]
    {
        element->remove();
        delete element;
    };
    take();
    mInterface.setKey(KeyA, true);
    mInterface.press({15, 15});
    EXPECT_EQ(take(), "w.key:65:0 e.gone");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
}

TEST_F(UISystemTest, ShowsTheCursorOfWhatLiesUnderThePointer)
{
    ProbeWindow* window = addWindow("w", {0, 0});
    settle();
    const struct
    {
        UIBase::eCursor cursor;
        ePointer pointer;
    } cases[] = {{UIBase::eCursor::UpDown, ePointer::ResizeUpDown},
                 {UIBase::eCursor::LeftRight, ePointer::ResizeLeftRight},
                 {UIBase::eCursor::Grip, ePointer::Arrow}};
    mInterface.movePointer({1, 50});
    for (const auto& row : cases)
    {
        window->setCursor(row.cursor);
        mInterface.runFrame();
        EXPECT_EQ(HeadlessPlace::getPlatform().getCursor(), row.pointer);
    }
}

TEST_F(UISystemTest, OffersTheColoursForEditing)
{
    PropertyList list;
    mSystem.makePropertyList(list);
    ASSERT_GE(list.size(), 16u);
    EXPECT_STREQ(list[0]->getName(), "FontColor");
    EXPECT_STREQ(list[15]->getName(), "MenuSelectFontColor");
}

TEST_F(UISystemTest, StaysOnTheMainThread)
{
#ifndef NDEBUG
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(std::thread([this] { mSystem.defocus(); }).join(), "Not the main thread.");
#endif
}

class UISystemThreadsTest : public UISystemTest, public testing::WithParamInterface<unsigned int>
{
protected:
    UISystemThreadsTest() : UISystemTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Threads, UISystemThreadsTest, testing::Values(1u, 2u, 4u, 16u));

TEST_P(UISystemThreadsTest, UpdatesAndPaintsMoreWindowsThanThereAreThreads)
{
    std::vector<ProbeWindow*> windows;
    for (int i = 0; i < 11; ++i)
    {
        windows.push_back(addWindow("w", {i * 3, i}));
        windows.back()->add(new Greedy(2));
    }
    mInterface.runFrames(2);
    unsigned int level = 1;
    for (ProbeWindow* window : windows)
    {
        EXPECT_EQ(window->mTimerNum, 2u);
        EXPECT_EQ(window->getAbsPosition(), window->getPosition());
        EXPECT_EQ(window->getPriority(), level);
        level += 8;
    }
    const sCommand* const* sorted = RenderSystem::getInstance()->getSortedCommand();
    unsigned int reached = 0;
    for (unsigned int i = 0; sorted[i]->kind != eCommand::End; ++i)
        reached = std::max(reached, sorted[i]->key & 0xFFFF);
    EXPECT_EQ(reached, 1u + 10u * 8u);
}

TEST_P(UISystemThreadsTest, ElementsMayDieInJobs)
{
    int heard = 0;
    Listener* listeners[12];
    for (Listener*& listener : listeners)
    {
        Shedder* shedder = new Shedder;
        addWindow("w", {0, 0})->add(shedder);
        listener = new Listener(heard);
        shedder->add(listener);
        mInterface.add(
            new UIDialog(0, false, false, false, "", UIDialog::eButtons::Ok, listener, &Listener::hear, nullptr));
    }
    UIDialog* answered = static_cast<UIDialog*>(*mSystem.getAddWindowList().rbegin());
    answered->close();
    mSystem.focus(listeners[5]);
    mInterface.runFrame();
    EXPECT_EQ(heard, 1) << "as long as it lives";
    EXPECT_EQ(mSystem.getFocus(), nullptr);
    while (!mSystem.getWindowList().empty())
    {
        static_cast<UIWindow*>(*mSystem.getWindowList().begin())->close();
        mInterface.runFrame();
    }
    EXPECT_EQ(heard, 1);
}

TEST_P(UISystemThreadsTest, LeavesOutWindowsForWhichAFrameHasNoRoom)
{
    for (int i = 0; i < 60; ++i)
        addWindow("w", {i, i})->add(new Greedy(700));
    TraceCapture capture;
    mInterface.runFrames(3);
    const std::string trace = capture.take();
    const std::size_t place = trace.find("too many windows");
    EXPECT_NE(place, std::string::npos);
    EXPECT_EQ(trace.find("too many windows", place + 1), std::string::npos) << "told once";
    EXPECT_GT(RenderSystem::getInstance()->getDrawCommandNum(), 12000u);
}
