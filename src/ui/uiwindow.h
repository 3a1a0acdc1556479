#pragma once

#include "foundation/autostring.h"
#include "reflection/reflect.h"
#include "ui/uibutton.h"
#include "ui/uiform.h"
#include "ui/uishortcut.h"

class ResourceBase;
class UIMainMenu;

// A form with a title bar, system buttons and a grip, which the user moves and sizes. It is the root of a tree that
// UISystem owns from addWindow() on, and is closed by asking UISystem to remove it.
class UIWindow : public UIForm
{
    REFLECTED(UIWindow)

public:
    enum class eStyle : unsigned int
    {
        Plain = 0,
        // With a raised border.
        Convex = 2,
    };

    enum eWindowAttribute : unsigned int
    {
        TitleBar = 1,
        // By the title bar, which it needs.
        Movable = 2,
        Sizable = 4,
        // On top of all others and the only one that is pressed.
        Modal = 8,
    };

    enum eWindowStatus : unsigned int
    {
        WindowActive = 1,
        WindowMoving = 32,
        WindowSizing = 64,
    };

    // The owner, which may be null, becomes active when this window goes.
    UIWindow(eStyle style, unsigned int attribute, bool close, bool minimize, bool maximize, unsigned int formAttribute,
             UIWindow* owner);

    // A frame without anything; the items of its context menu do nothing.
    explicit UIWindow(UIWindow* owner);

    ~UIWindow() override;

    // On purpose: the first three call hooks that do nothing.
    void minimize() { eventMinimize(); }
    void maximize() { eventMaximize(); }
    void normalize() { eventNormalize(); }
    void close() { eventClose(); }

    // Owns the menu, which may be null; the former one is deleted. On purpose: the menu of a window that had none
    // shows up with the next activation.
    void setMainMenu(UIMainMenu* menu);
    UIMainMenu* getMainMenu() const { return mMainMenu; }

    void setTitle(const AutoString& title) { mTitle = title; }
    const AutoString& getTitle() const { return mTitle; }

    // The level at which the window is painted, given anew in each frame.
    void setPriority(unsigned int priority) { mPriority = priority; }
    unsigned int getPriority() const { return mPriority; }

    void setOwnerWindow(UIWindow* owner) { mOwnerWindow = owner; }
    UIWindow* getOwnerWindow() const { return mOwnerWindow; }

    eStyle getStyle() const { return mStyle; }
    unsigned int getWindowAttribute() const { return mWindowAttribute; }
    unsigned int getWindowStatus() const { return mWindowStatus; }
    bool isModalWindow() const { return mWindowAttribute & Modal; }

    // The shortcut of exactly that key and combination, to be called with this window, or null.
    virtual const UIShortcutBase* findShortcut(unsigned int keyCode, unsigned int combinationKey) const;

    // The resource of which this window is the one editor, or null.
    virtual ResourceBase* getManagedResource() const { return nullptr; }

    // An element anywhere in the interface dies. Any thread.
    virtual void notifyInvalidate(UIBase* /*element*/) {}

    void eventCreate() override;
    void eventClose() override;
    void eventActive() override;
    void eventDeactive() override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;

protected:
    // Places buttons and client region by the present size.
    void resetLayout();

private:
    struct sButtonRow
    {
        UISystemButton* UIWindow::*button;
        int fromRight;
        void (UIWindow::*action)();
    };

    UISystemButton* addButton(bool wanted, UISystemButton::eButtonType type);
    void notifySystemButton(UIButton* button);
    sRect getTitleBar() const;
    sRect getTitleText() const;
    sRect getGrip() const;
    void checkMovingOperation(const sPoint& position, unsigned int button);
    void checkSizingOperation(const sPoint& position, unsigned int button);
    sPoint getPull() const;
    void moveWindow();
    void sizeWindow();
    void paintTitleBar(UIPainter* painter) const;
    void paintGrip(UIPainter* painter) const;

    static const UIShortcut<UIWindow> mShortcutTable[];
    static const sButtonRow mButtonTable[];

    unsigned int mPriority = 0;
    eStyle mStyle;
    unsigned int mWindowAttribute;
    unsigned int mWindowStatus = 0;
    AutoString mTitle;
    sPoint mMoveBeginPosition = sPoint::Zero;
    sSize mSizeBeginSize = sSize::Zero;
    UISystemButton* mMinimizeButton = nullptr;
    UISystemButton* mMaximizeButton = nullptr;
    UISystemButton* mNormalizeButton = nullptr;
    UISystemButton* mCloseButton = nullptr;
    UIMainMenu* mMainMenu = nullptr;
    UIWindow* mOwnerWindow;
};
