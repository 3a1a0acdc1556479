#pragma once

#include "application/system.h"
#include "foundation/autostring.h"
#include "foundation/singleton.h"
#include "ui/uibase.h"
#include "ui/uiclicktracker.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uiwindowstack.h"

#include <atomic>
#include <thread>

class UIDesktop;
class UIMainMenu;
class UIWindow;
struct sUIHit;

// Runs the interface: turns the state of mouse and keyboard into messages, updates and paints each window in a job of
// its own, and knows which element has the focus and the mouse, which window is active and which menu is open. The
// lists of windows change only between the frames' phases. Everything public is for the main thread, but for
// notifyInvalidate(), the readers and the colours.
class UISystem : public System, public UIColorScheme, public Singleton<UISystem>
{
    REFLECTED(UISystem)

    friend class Singleton<UISystem>;

public:
    void destroy() override;
    void preprocess() override;
    void update() override;
    void postprocess() override;
    void setup() override;

    // Paints all roots; the application calls it behind the update.
    virtual void draw();

    void makePropertyList(PropertyList& list) override;
    void makeUIList(List<UIBase>& list) override;

    // Owns the window from now on, which comes alive at the next preprocess(). Null is ignored; a second tool on one
    // resource is deleted at once.
    void addWindow(UIWindow* window);

    // The window is deleted at the next postprocess(). Null, and a window that waits for it already, is ignored.
    void removeWindow(UIWindow* window);

    // Deletes all windows at once, waiting ones too.
    void removeAllWindow();

    // Null for none. Does not raise the window.
    void setActiveWindow(UIWindow* window);

    void focus(UIBase* element);
    void defocus();

    void notifyMenuEnd();
    void notifyMainMenuSelect(UIMenu* menu);
    void notifyMenuChange(UIMenu* menu);
    void notifyMainMenuChange(UIMainMenu* oldMenu, UIMainMenu* newMenu);

    // Called by each element that dies, on any thread: nothing refers to it any longer.
    void notifyInvalidate(UIBase* element);

    // The size of the application's window, from the origin.
    static sRect getUIViewRect();

    // The key code of a keyboard usage, 0 for none and for modifiers. Above 255 asserts, but for 0xFFFFFFFF.
    unsigned int transferKeyCode(unsigned int usage) const { return UIKeyCode::fromUsage(usage); }

    // Always null: there are no shortcuts of the whole system.
    const UIShortcutBase* findShortcut() const { return nullptr; }

    // The name of the key that went down last; empty for none.
    AutoString getKeyDown() const { return UIKeyCode::getName(mKeyDown); }
    void setKeyDown(AutoString) {}

    UIWindow* getActiveWindow() const { return mActiveWindow; }
    UIBase* getFocus() const { return mFocus; }
    UIBase* getCapture() const { return mCapture; }
    UIMenu* getMenu() const { return mMenu; }
    UIMainMenu* getMainMenu() const { return mMainMenu; }
    UIDesktop* getDesktop() const { return mDesktop; }

    // From the topmost to the backmost.
    const ObjectList& getWindowList() const { return mWindows.getWindowList(); }
    const ObjectList& getAddWindowList() const { return mWindows.getAddWindowList(); }
    const ObjectList& getRemoveWindowList() const { return mWindows.getRemoveWindowList(); }
    const List<UIWindow>& getModalWindowList() const { return mWindows.getModalWindowList(); }
    bool isListedForRemoval(const UIWindow* window) const { return mWindows.isListedForRemoval(window); }

private:
    UISystem();
    ~UISystem() override;

    void assertMainThread() const;

    void executeAdd();
    void executeRemove();
    void destroyWindow(UIWindow* window);
    void activateModal(UIWindow* window);

    void updateCapture(const sPoint& position);
    void updatePointer(const sPoint& position);
    void updateElements();

    void handleKeyEvent(UIBase* target);
    void callShortcut(UIWindow* window);
    void handleMouseEvent(const sUIHit& hit, const sPoint& position);
    void press(const sUIHit& hit, const sPoint& position, unsigned int button);
    void focusByPress(UIBase* target);
    void activateByPress(const sUIHit& hit);
    void openContextMenu(const sPoint& position);
    void releaseCapture(const sPoint& position, unsigned int button);
    void leaveAll();
    bool noteMove(const sPoint& position);
    bool isBlocked(const UIWindow* window) const;
    bool isUnderModal(UIBase* element) const;
    void showCursor(UIBase::eCursor cursor);

    void traceLackOfRoom();

    UIWindowStack mWindows;
    sPoint mLastMousePosition = sPoint::Zero;
    UIWindow* mActiveWindow = nullptr;
    std::atomic<UIBase*> mFocus = nullptr;
    std::atomic<UIBase*> mCapture = nullptr;

    // What lay under the pointer when it was looked at last.
    std::atomic<UIBase*> mTarget = nullptr;
    std::atomic<UIMenu*> mMenu = nullptr;
    UIMainMenu* mMainMenu = nullptr;
    UIDesktop* mDesktop = nullptr;

    // What was found when the keys last had a target. A key calls one shortcut at most.
    unsigned int mKeyDown = 0;
    unsigned int mKeyUp = 0;
    unsigned int mCombinationKey = 0;
    bool mKeyUnused = false;

    UIClickTracker mClick;
    UIBase::eCursor mCursor = UIBase::eCursor::Arrow;
    bool mRoomTraced = false;
    std::thread::id mMainThread = std::this_thread::get_id();
};
