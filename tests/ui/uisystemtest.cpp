#include "ui/uisystem.h"

#include "foundation/jobsystem.h"
#include "render/rendersystem.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/probe.h"
#include "tests/support/tracecapture.h"
#include "ui/uidesktop.h"
#include "ui/uidialog.h"
#include "ui/uimenu.h"
#include "ui/uipainter.h"
#include "ui/uishortcut.h"
#include "ui/uiwindow.h"

#include <gtest/gtest.h>

#include <set>

namespace
{
using Element = Probe<UIBase>;

constexpr unsigned int Modal = 8;
constexpr unsigned char KeyA = 4;
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

// Draws 700 commands, since neighbours differ in level.
struct Greedy : UIBase
{
    Greedy() { setSize({10, 10}); }
    void eventPaint(UIPainter* painter) override
    {
        for (unsigned int i = 0; i < 700; ++i)
            painter->setPriority(i % 2), painter->drawRect(getOwnRegion(), sColor::Red);
    }
};

// From inside the hook, which has done its work then.
void die(std::function<void()>& hook, Element* element)
{
    element->remove();
    delete element;
    hook = nullptr;
}

// Deletes its children whenever it is updated.
struct Shedder : UIBase
{
    void update(float) override { removeChildren(); }
};

// Counts the dialogs that it hears of.
struct Listener : UIBase
{
    void hear(UIDialog*) { ++mHeard; }
    static inline int mHeard = 0;
};
}

class UISystemTest : public testing::Test
{
protected:
    explicit UISystemTest(unsigned int threadNum = 1) : mInterface(threadNum) {}

    // A window that is there from the next frame on, and an element at (10, 10) of 20 by 20.
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

    // What is heard of a frame and of what happens in it.
    std::string take() { return takeLog(mLog); }
    std::string run() { return mInterface.runFrame(), take(); }
    std::string press(const sPoint& position) { return mInterface.press(position), take(); }
    std::string release(unsigned int button) { return mInterface.release(button), take(); }
    std::string pressKey(unsigned char usage) { return mInterface.pressKey(usage), take(); }
    std::string click(const sPoint& at, unsigned int button = 1) { return mInterface.click(at, button), take(); }

    UIWindow* getWindow(unsigned int index) const { return static_cast<UIWindow*>(mSystem.getWindowList()[index]); }
    unsigned int getWindowNum() const { return mSystem.getWindowList().size(); }

    ProbeLog mLog;
    HeadlessInterface mInterface;
    UISystem& mSystem = *mInterface.mSystem;
};

TEST_F(UISystemTest, BringsAClickToTheElementAndToItAlone)
{
    ProbeWindow* window = addWindow("w", {100, 100});
    Element* element = addElement(*window, "e");
    settle();
    EXPECT_EQ(press({115, 112}), "e.move(5,2) e.focus e.down(5,2):1 w.active");
    EXPECT_EQ(mSystem.getCapture(), element);
    EXPECT_EQ(mSystem.getActiveWindow(), window);

    mInterface.movePointer({5, 5});
    mInterface.turnWheel(1);
    mInterface.setButton(2, true);
    EXPECT_EQ(pressKey(KeyA), "e.move(-105,-105) e.key:65:0 e.keyup:65") << "no second press, no wheel";
    EXPECT_EQ(release(2), "e.up(-105,-105):2") << "any button that comes up is the end";
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    EXPECT_EQ(mSystem.getFocus(), element);
    release(1);
    EXPECT_EQ(click({115, 112}), "e.move(5,2) e.double(5,2):1 e.up(5,2):1");
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
    EXPECT_EQ(click({55, 55}), "next.move(5,5) next.focus old.defocus next.down(5,5):1 w.active next.up(5,5):1");
    mSystem.focus(old);
    EXPECT_EQ(take(), "next.defocus old.focus");

    // The element that comes into focus deletes the one that goes out of it.
    next->mHook = [&]
    {
        die(next->mHook, old);
    };
    EXPECT_EQ(click({55, 55}, 2), "next.focus old.gone next.down(5,5):2 next.up(5,5):2");

    next->disable();
    mSystem.focus(window);
    take();
    EXPECT_EQ(click({55, 55}, 4), "next.down(5,5):4 next.up(5,5):4") << "a disabled one hears of it, without focus";
    EXPECT_EQ(mSystem.getFocus(), window);
}

TEST_F(UISystemTest, TakesAPressOnTheDesktopForTheBackmostWindow)
{
    addWindow("back", {300, 300});
    ProbeWindow* front = addWindow("front", {500, 300});
    settle();
    EXPECT_EQ(click({501, 301}), "front.move(1,1) front.focus front.down(1,1):1 front.active front.up(1,1):1");
    EXPECT_EQ(click({5, 5}), "front.defocus front.deactive back.active");
    EXPECT_EQ(getWindow(0), front) << "activating raises nothing";

    mSystem.removeAllWindow();
    mSystem.focus(mSystem.getDesktop());
    click({5, 5});
    EXPECT_EQ(mSystem.getFocus(), nullptr);
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
}

TEST_F(UISystemTest, ModalWindowsTakeAllPressesAndTheWheel)
{
    addElement(*addWindow("w", {100, 100}), "e");
    settle();
    press({115, 115});
    ProbeWindow* first = addWindow("m", {300, 300}, Modal);
    ProbeWindow* second = addWindow("n", {350, 300}, Modal);
    EXPECT_EQ(run(), "m.create n.create w.deactive n.active e.up(5,5):255");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    addWindow("late", {0, 0});
    settle();
    EXPECT_EQ(getWindow(0), second);
    EXPECT_EQ(getWindow(1), first) << "what comes later lies below them";

    mInterface.release();
    mInterface.turnWheel(2);
    EXPECT_EQ(pressKey(KeyA), "e.keyup:65") << "what was held is let go";
    EXPECT_EQ(click({120, 120}), "e.move(10,10)") << "moves are for all";
    EXPECT_EQ(click({301, 390}), "m.move(1,90)") << "the older box waits";
    EXPECT_EQ(click({351, 399}), "n.move(1,99) n.focus e.defocus n.down(1,99):1 n.up(1,99):1");

    second->close();
    EXPECT_EQ(run(), "n.destroy n.defocus n.deactive n.gone");
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
    EXPECT_EQ(run(), "m.active");
}

TEST_F(UISystemTest, CallsTheShortcutOfTheWindowUnderThePointerOnceForAKey)
{
    addWindow("a", {0, 0});
    addWindow("b", {0, 0});
    settle();
    mInterface.movePointer({50, 50});
    mInterface.setKey(KeyAlt, true);
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(getWindowNum(), 2u) << "keys are not looked at without focus";

    mSystem.focus(mSystem.getDesktop());
    mInterface.setKey(KeyF4, true);
    mInterface.runFrame();
    mSystem.defocus();
    mInterface.runFrames(3);
    EXPECT_EQ(getWindowNum(), 1u) << "the stale key has been used";
    EXPECT_EQ(mSystem.getKeyDown(), AutoString("F4"));

    mInterface.setKey(KeyF4, false);
    addWindow("m", {200, 200}, Modal);
    settle();
    mSystem.focus(mSystem.getDesktop());
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(getWindowNum(), 2u) << "a modal window keeps the shortcuts of others";
    mInterface.movePointer({210, 210});
    mInterface.pressKey(KeyF4);
    EXPECT_EQ(getWindowNum(), 1u);
}

TEST_F(UISystemTest, PressesReachAnOpenMenuAboveAModalWindowWhichClosesTheMenusOfOthers)
{
    const auto addMenuWindow = [this](const char* name, const sPoint& position, unsigned int attribute)
    {
        ProbeWindow* window = addWindow(name, position, attribute);
        window->setMenu(new UIMenu);
        window->getMenu()->addItem("One", nullptr, nullptr, UIMenu::eItemAttribute::Check);
        settle();
        return window;
    };
    ProbeWindow* window = addMenuWindow("w", {0, 0}, 0);
    click({1, 50}, 2);
    click(mSystem.getMenu()->getPosition() + sPoint(2, 2), 4);
    EXPECT_EQ(mSystem.getFocus(), window->getMenu());
    ProbeWindow* modal = addMenuWindow("m", {300, 300}, Modal);
    EXPECT_EQ(mSystem.getMenu(), nullptr);
    EXPECT_EQ(mSystem.getFocus(), modal);

    click({301, 310}, 2);
    click(mSystem.getMenu()->getPosition() + sPoint(20, 8));
    EXPECT_TRUE(modal->getMenu()->isItemChecked("One"));
    click({301, 310}, 2);
    modal->close();
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getMenu(), nullptr) << "menus go with their owners";
}

TEST_F(UISystemTest, BringsWindowsAliveAndDeletesThemBetweenTheFrames)
{
    ProbeWindow* owner = addWindow("o", {0, 0});
    ProbeWindow* inner = nullptr;
    owner->mHook = [&]
    {
        inner = inner ? inner : addWindow("inner", {0, 0}, 0, owner);
    };
    ProbeWindow* waiting = addWindow("x", {0, 0});
    mSystem.removeWindow(nullptr);
    mSystem.addWindow(nullptr);
    mSystem.removeWindow(waiting);
    EXPECT_EQ(run(), "o.create inner.create x.destroy x.gone") << "a removed window waits no longer";

    addElement(*inner, "e");
    settle();
    press({15, 15});
    mSystem.removeWindow(inner);
    mSystem.removeWindow(inner);
    EXPECT_TRUE(mSystem.isListedForRemoval(inner));
    EXPECT_EQ(run(), "inner.destroy e.destroy e.defocus inner.deactive o.active inner.gone e.gone");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
    EXPECT_EQ(mSystem.getActiveWindow(), owner);
    owner->mHook = nullptr;
}

TEST_F(UISystemTest, ADeletedWindowOwnsNoOther)
{
    ProbeWindow* owner = addWindow("o", {0, 0});
    ProbeWindow* live = addWindow("l", {200, 0}, 0, owner);
    settle();
    ProbeWindow* waiting = addWindow("x", {0, 0}, 0, owner);
    ProbeWindow* listed = addWindow("y", {0, 0}, 0, owner);
    UIWindow* lastOwner = owner;
    listed->mHook = [&]
    {
        lastOwner = listed->getOwnerWindow();
    };
    mSystem.setActiveWindow(live);
    for (ProbeWindow* window : {owner, live, listed})
        mSystem.removeWindow(window);
    mInterface.runFrame();
    EXPECT_EQ(mSystem.getActiveWindow(), nullptr);
    EXPECT_EQ(waiting->getOwnerWindow(), nullptr);
    EXPECT_EQ(lastOwner, nullptr);

    addWindow("z", {0, 0});
    take();
    mSystem.removeAllWindow();
    EXPECT_EQ(take(), "x.destroy x.gone z.destroy z.gone") << "those which wait, too";
}

TEST_F(UISystemTest, DeletesASecondToolOnOneResource)
{
    ResourceBase* const resource = reinterpret_cast<ResourceBase*>(&mLog);
    for (ResourceBase* managed : {resource, resource, static_cast<ResourceBase*>(nullptr)})
    {
        ProbeWindow* window = new ProbeWindow(mLog, "w", {0, 0});
        window->mResource = managed;
        mSystem.addWindow(window);
        mInterface.runFrame();
    }
    EXPECT_EQ(take(), "w.create w.gone w.create");
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
        die(window->mHook, element);
    };
    take();
    mInterface.setKey(KeyA, true);
    mInterface.press({15, 15});
    EXPECT_EQ(take(), "w.key:65:0 e.gone");
    EXPECT_EQ(mSystem.getCapture(), nullptr);
}

class UISystemThreadsTest : public UISystemTest, public testing::WithParamInterface<unsigned int>
{
protected:
    UISystemThreadsTest() : UISystemTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Threads, UISystemThreadsTest, testing::Values(1u, 2u, 4u, 16u));

TEST_P(UISystemThreadsTest, UpdatesAndPaintsMoreWindowsThanThereAreThreads)
{
    ProbeWindow* windows[18];
    for (ProbeWindow*& window : windows)
        window = addWindow("w", {3, 1});
    mInterface.runFrames(2);
    std::set<unsigned int> levels;
    for (const ProbeWindow* window : windows)
    {
        EXPECT_EQ(window->mTimerNum, 2u);
        EXPECT_EQ(window->getAbsPosition(), sPoint(3, 1));
        EXPECT_EQ(window->getPriority(), 1 + 8 * levels.size());
        levels.insert(window->getPriority());
    }
    const sCommand* const* command = RenderSystem::getInstance()->getSortedCommand();
    for (; (*command)->kind != eCommand::End; ++command)
        levels.erase((*command)->key & 0xFFFF);
    EXPECT_TRUE(levels.empty()) << "each window has drawn at its own level";
}

TEST_P(UISystemThreadsTest, ElementsMayDieInJobs)
{
    Listener::mHeard = 0;
    Listener* listeners[12];
    UIDialog* dialog = nullptr;
    for (Listener*& listener : listeners)
    {
        Shedder* shedder = new Shedder;
        addWindow("w", {0, 0})->add(shedder);
        shedder->add(listener = new Listener);
        dialog = mInterface.add(
            new UIDialog(0, false, false, false, "", UIDialog::eButtons::Ok, listener, &Listener::hear, nullptr));
    }
    dialog->close();
    mSystem.focus(listeners[5]);
    mInterface.runFrame();
    EXPECT_EQ(Listener::mHeard, 1) << "as long as it lives";
    EXPECT_EQ(mSystem.getFocus(), nullptr);
    for (; getWindowNum(); mInterface.runFrame())
        getWindow(0)->close();
    EXPECT_EQ(Listener::mHeard, 1);
}

TEST_P(UISystemThreadsTest, LeavesOutWindowsForWhichAFrameHasNoRoom)
{
    for (int i = 0; i < 60; ++i)
        addWindow("w", {i, i})->add(new Greedy);
    TraceCapture capture;
    mInterface.runFrames(3);
    const std::string trace = capture.take();
    EXPECT_NE(trace.find("too many windows"), std::string::npos);
    EXPECT_EQ(trace.find("too many windows"), trace.rfind("too many windows")) << "told once";
    EXPECT_GT(RenderSystem::getInstance()->getDrawCommandNum(), 12000u);
}
