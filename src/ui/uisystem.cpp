#include "ui/uisystem.h"

#include "application/application.h"
#include "foundation/jobsystem.h"
#include "input/keyboardsystem.h"
#include "input/mousesystem.h"
#include "platform/platform.h"
#include "reflection/propertylist.h"
#include "render/rendersystem.h"
#include "ui/uicolorcontrol.h"
#include "ui/uidesktop.h"
#include "ui/uihit.h"
#include "ui/uijobround.h"
#include "ui/uimainmenu.h"
#include "ui/uimenuchain.h"
#include "ui/uipaintround.h"
#include "ui/uishortcut.h"
#include "ui/uiwindow.h"

REFLECT(UISystem, eTypeAttribute::Singleton, "System");

namespace
{
constexpr unsigned int MainMenuHeight = 16;

// The button of a release that no button made.
constexpr unsigned int ForcedRelease = 255;

// The levels between two windows belong to what floats in the lower one.
constexpr unsigned int WindowLevels = 8;

ePointer getPointer(UIBase::eCursor cursor)
{
    switch (cursor)
    {
    case UIBase::eCursor::Arrow:
    case UIBase::eCursor::Grip: return ePointer::Arrow;
    case UIBase::eCursor::UpDown: return ePointer::ResizeUpDown;
    case UIBase::eCursor::LeftRight: return ePointer::ResizeLeftRight;
    }
    return ePointer::Arrow;
}

// Where something of a length begins so that it ends before the border: at its place, or that much before it.
int keepInside(int place, unsigned int length, int border)
{
    const int extent = static_cast<int>(length);
    return place + extent > border ? place - extent : place;
}

template <typename T>
void forget(std::atomic<T*>& reference, T* dead)
{
    reference.compare_exchange_strong(dead, nullptr);
}

// Null hears nothing.
void send(UIBase* target, const UIMessage& message)
{
    if (target)
        target->sendMessage(message);
}

void updateRoot(UIBase* root)
{
    const sRect view = UISystem::getUIViewRect();
    root->update(Application::getInstance()->getDeltaTime());
    root->updateRegion(view, view);
}

void updateWindow(const UIJobRound::sRoot& window, void*)
{
    window.element->sendMessage(UITimerMessage(Application::getInstance()->getDeltaTime()));
    updateRoot(window.element);
}
}

UISystem::UISystem() : Singleton("UISystem already instanced.")
{
    mDesktop = new UIDesktop;
    mDesktop->setPosition(sPoint::Zero);
    mDesktop->setSize(Application::getInstance()->getWindowSize());
    setProcessEnable(true, true, true);
    DEV_TRACE("UISystem : start.\n");
}

UISystem::~UISystem()
{
    removeAllWindow();
    delete mDesktop;
    DEV_TRACE("UISystem : end.\n");
}

// Elements that die find the instance until the last of them is gone.
void UISystem::destroy()
{
    delete this;
}

void UISystem::preprocess()
{
    if (!mWindows.getAddWindowList().empty())
        executeAdd();
    UIWindow* top = mWindows.raiseModal();
    if (top && top != mActiveWindow)
        activateModal(top);
}

void UISystem::update()
{
    const sPoint position = MouseSystem::getInstance()->getPosition();
    if (mCapture.load())
        updateCapture(position);
    else
        updatePointer(position);
    updateElements();
}

void UISystem::postprocess()
{
    if (!mWindows.getRemoveWindowList().empty())
        executeRemove();
}

void UISystem::setup()
{
    addUpdateDependency(MouseSystem::getInstance());
    addUpdateDependency(KeyboardSystem::getInstance());
}

void UISystem::draw()
{
    UIPaintRound round(*JobSystem::getInstance(), *RenderSystem::getInstance());
    bool complete = true;
    unsigned int level = 0;
    const auto paint = [&](UIBase* root, unsigned int levels)
    {
        complete &= round.paint(root, level);
        level += levels;
    };

    paint(mDesktop, 1);
    if (mMainMenu)
        paint(mMainMenu, 1);
    const ObjectList& windows = getWindowList();
    for (ObjectList::ReverseIterator place = windows.rbegin(); place != windows.rend(); ++place)
    {
        UIWindow* window = static_cast<UIWindow*>(*place);
        window->setPriority(level);
        paint(window, WindowLevels);
    }
    for (UIMenu* menu : UIMenuChain(mMenu))
        paint(menu, 1);

    if (!complete)
        traceLackOfRoom();
}

void UISystem::makePropertyList(PropertyList& list)
{
    for (const sUIColorRow& row : UIColorTable)
        list.addReference(row.property, this->*row.color);
    mDesktop->makePropertyList(list);
}

void UISystem::makeUIList(List<UIBase>& list)
{
    for (const sUIColorRow& row : UIColorTable)
        list.addLast(new UIColorControl(new ReferenceProperty<sColor>(row.property, &(this->*row.color)), false));
    mDesktop->makeUIList(list);
}

// On purpose: windows that still wait are not compared, and the tool that is open already is not activated.
void UISystem::addWindow(UIWindow* window)
{
    assertMainThread();
    if (!window)
        return;
    if (mWindows.hasManagerOf(window->getManagedResource()))
        delete window;
    else
        mWindows.add(window);
}

void UISystem::removeWindow(UIWindow* window)
{
    assertMainThread();
    if (window)
        mWindows.listForRemoval(window);
}

// What a window leaves behind as it goes waits to come alive, and goes as well.
void UISystem::removeAllWindow()
{
    do
    {
        mWindows.listAllForRemoval();
        executeRemove();
    } while (!getAddWindowList().empty());
}

// On purpose: a window that is active already hears both messages again.
void UISystem::setActiveWindow(UIWindow* window)
{
    assertMainThread();
    send(mActiveWindow, UIDeactiveMessage());
    mActiveWindow = window;
    mMainMenu = nullptr;
    if (!window)
        return;
    window->sendMessage(UIActiveMessage());
    mMainMenu = window->getMainMenu();
    if (!mMainMenu)
        return;
    mMainMenu->setPosition(sPoint::Zero);
    mMainMenu->setSize({getUIViewRect().getWidth(), MainMenuHeight});
    mMainMenu->initialize();
}

void UISystem::focus(UIBase* element)
{
    assertMainThread();
    defocus();
    mFocus = element;
    send(element, UIFocusMessage());
}

void UISystem::defocus()
{
    assertMainThread();
    send(mFocus, UIDefocusMessage());
    mFocus = nullptr;
}

// A closed menu must not keep the focus: the next Return would call its item once more.
void UISystem::notifyMenuEnd()
{
    const bool menuFocused = UIMenuChain(mMenu).contains(mFocus);
    mMenu = nullptr;
    if (mMainMenu)
        mMainMenu->initialize();
    if (menuFocused)
        focus(mActiveWindow);
}

void UISystem::notifyMainMenuSelect(UIMenu* menu)
{
    mMenu = menu;
}

void UISystem::notifyMenuChange(UIMenu* menu)
{
    forget(mMenu, menu);
}

void UISystem::notifyMainMenuChange(UIMainMenu* oldMenu, UIMainMenu* newMenu)
{
    if (mMainMenu != oldMenu)
        return;
    mMainMenu = newMenu;
    if (newMenu)
        newMenu->initialize();
    mMenu = nullptr;
}

void UISystem::notifyInvalidate(UIBase* element)
{
    forget(mMenu, element->getMenu());
    forget(mCapture, element);
    forget(mFocus, element);
    forget(mTarget, element);
    mClick.forget(element);
    mWindows.notifyInvalidate(element);
}

sRect UISystem::getUIViewRect()
{
    const Application* application = Application::getInstance();
    return application ? sRect(application->getWindowSize()) : sRect::Zero;
}

// Lists and references of the interface have no locks.
void UISystem::assertMainThread() const
{
#ifndef NDEBUG
    if (std::this_thread::get_id() != mMainThread)
        dev_assert("UISystem : Not the main thread.", __FILE__, __LINE__);
#endif
}

// A window may add further ones while it comes alive; they follow at once.
void UISystem::executeAdd()
{
    const UICreateMessage message;
    mWindows.reserveForAdding();
    while (UIWindow* window = mWindows.bringNextAlive())
    {
        window->sendMessage(message);
        if (window->isModalWindow())
            mWindows.addModal(window);
    }
    mWindows.releaseAfterAdding();
}

void UISystem::executeRemove()
{
    while (UIWindow* window = mWindows.getNextRemoval())
    {
        destroyWindow(window);
        mWindows.endRemoval();
    }
    mWindows.releaseAfterRemoval();
}

// The window stays listed until it is gone, so that nothing lists it once more. What refers to its elements forgets
// them as they die; only the focus hears of it, and may add windows that this one owns.
void UISystem::destroyWindow(UIWindow* window)
{
    window->sendMessage(UIDestroyMessage());
    mWindows.retire(window);
    if (mFocus.load() && window->find(mFocus))
        defocus();
    if (window == mActiveWindow)
        setActiveWindow(window->getOwnerWindow());
    mWindows.disown(window);
    delete window;
}

// What the user was about to do to other windows ends.
void UISystem::activateModal(UIWindow* window)
{
    setActiveWindow(window);
    notifyMenuEnd();
    releaseCapture(MouseSystem::getInstance()->getPosition(), ForcedRelease);
}

// While an element holds the mouse, nothing else hears of mouse and keys.
void UISystem::updateCapture(const sPoint& position)
{
    if (noteMove(position))
        send(mCapture, UIMouseMoveMessage(position - mCapture.load()->getAbsPosition()));
    // On purpose: any button that comes up ends the capture.
    if (const unsigned int released = MouseSystem::getInstance()->getButtonTrgOff())
        releaseCapture(position, released);
    handleKeyEvent(mCapture);
}

// On purpose: shortcuts are those of the window under the pointer, not those of the active one.
void UISystem::updatePointer(const sPoint& position)
{
    const UIMenuChain menus(mMenu);
    const sUIHit hit = sUIHit::find(position, *mDesktop, mMainMenu, getWindowList(), menus);
    UIMenu* deepest = menus.getDeepest();
    mTarget = hit.target;
    handleKeyEvent(deepest ? deepest : mFocus.load());
    callShortcut(hit.window);
    handleMouseEvent(hit, position);
    if (UIBase* target = mTarget)
        showCursor(target->getCursor());
}

// Menus come last, and so behind all that a window may have done to them.
void UISystem::updateElements()
{
    updateRoot(mDesktop);
    if (mMainMenu)
        updateRoot(mMainMenu);
    {
        UIJobRound round(*JobSystem::getInstance(), &updateWindow);
        for (ObjectBase* window : getWindowList())
            round.add({static_cast<UIWindow*>(window), 0});
    }
    for (UIMenu* menu : UIMenuChain(mMenu))
        updateRoot(menu);
}

// On purpose: without a target, what the keys were last stays.
void UISystem::handleKeyEvent(UIBase* target)
{
    if (!target)
        return;
    const KeyboardSystem& keyboard = *KeyboardSystem::getInstance();
    const unsigned int down = transferKeyCode(static_cast<unsigned int>(keyboard.getKeyTrgOn()));
    const unsigned int up = transferKeyCode(static_cast<unsigned int>(keyboard.getKeyTrgOff()));
    const unsigned int combination = UIKeyCode::getCombination(
        [&keyboard](unsigned int usage) { return keyboard.checkKeyOn(static_cast<KeyboardSystem::eKeyCode>(usage)); });

    // What a key began before the modal window came still ends as it comes up.
    if (down && !isUnderModal(target))
        target->sendMessage(UIKeyDownMessage(down, combination));
    if (up)
        target->sendMessage(UIKeyUpMessage(up, combination));
    mKeyDown = down;
    mKeyUp = up;
    mCombinationKey = combination;
    mKeyUnused |= down != 0;
}

// A key that stays while nothing has the focus must not close one window after the other.
void UISystem::callShortcut(UIWindow* window)
{
    if (mKeyDown == 0 || !mKeyUnused)
        return;
    const UIShortcutBase* shortcut = nullptr;
    if (window && !isBlocked(window))
        shortcut = window->findShortcut(mKeyDown, mCombinationKey);
    if (!shortcut)
        shortcut = findShortcut();
    if (!shortcut)
        return;
    mKeyUnused = false;
    shortcut->shortcut(window);
}

// On purpose: moves pass a modal window, presses and the wheel do not.
void UISystem::handleMouseEvent(const sUIHit& hit, const sPoint& position)
{
    const MouseSystem& mouse = *MouseSystem::getInstance();
    UIBase* target = mTarget;
    if (target && noteMove(position))
        target->sendMessage(UIMouseMoveMessage(position - target->getAbsPosition()));
    if (!hit.onOpenMenu && isBlocked(hit.window))
        return;
    if (const unsigned int button = mouse.getButtonTrgOn())
        press(hit, position, button);
    if (const sPoint amount = mouse.getWheelAmount(); amount != sPoint::Zero)
        send(mTarget, UIMouseWheelMessage(amount));
}

// Each of the messages may be the end of the target.
void UISystem::press(const sUIHit& hit, const sPoint& position, unsigned int button)
{
    focusByPress(mTarget);
    if (UIBase* target = mTarget)
    {
        const sPoint local = position - target->getAbsPosition();
        if (mClick.press(target, button, Application::getAbsoluteTime()))
            target->sendMessage(UIMouseDoubleClickMessage(local, button));
        else
            target->sendMessage(UIMouseDownMessage(local, button));
    }
    activateByPress(hit);
    if (button == UIMouseDownMessage::SecondButton)
        openContextMenu(position);
    mCapture = mTarget.load();
}

// On purpose: the new focus hears of it before the old one. Either may be deleted by the other, so both are looked up
// again. A disabled element leaves the focus where it was.
void UISystem::focusByPress(UIBase* target)
{
    if (!target || target == mFocus || !target->isEnabled())
        return;
    target->sendMessage(UIFocusMessage());
    send(mFocus, UIDefocusMessage());
    mFocus = mTarget.load();
}

void UISystem::activateByPress(const sUIHit& hit)
{
    if (hit.window && hit.target != mMainMenu)
    {
        if (hit.window != mActiveWindow)
            setActiveWindow(hit.window);
        notifyMenuEnd();
    }
    else if (hit.target == mDesktop)
        leaveAll();
}

// A press beside everything, which takes that there are no windows.
void UISystem::leaveAll()
{
    defocus();
    setActiveWindow(nullptr);
    mMenu = nullptr;
}

void UISystem::openContextMenu(const sPoint& position)
{
    UIBase* target = mTarget;
    UIMenu* menu = target ? target->getMenu() : nullptr;
    if (!menu)
        return;
    const sRect view = getUIViewRect();
    const sSize& size = menu->getSize();
    mMenu = menu;
    menu->initialize();
    menu->setPosition(
        sPoint(keepInside(position.x, size.width, view.right), keepInside(position.y, size.height, view.bottom)));
}

void UISystem::releaseCapture(const sPoint& position, unsigned int button)
{
    UIBase* capture = mCapture;
    if (!capture)
        return;
    capture->sendMessage(UIMouseUpMessage(position - capture->getAbsPosition(), button));
    mCapture = nullptr;
}

// Whether the pointer has moved since the last message of it.
bool UISystem::noteMove(const sPoint& position)
{
    const bool moved = position != mLastMousePosition;
    mLastMousePosition = position;
    return moved;
}

bool UISystem::isBlocked(const UIWindow* window) const
{
    return mActiveWindow && mActiveWindow != window && mActiveWindow->isModalWindow();
}

bool UISystem::isUnderModal(UIBase* element) const
{
    return mActiveWindow && mActiveWindow->isModalWindow() && !mActiveWindow->find(element) &&
           !UIMenuChain(mMenu).contains(element);
}

void UISystem::showCursor(UIBase::eCursor cursor)
{
    if (cursor == mCursor)
        return;
    mCursor = cursor;
    Platform::getInstance()->setCursor(getPointer(cursor));
}

void UISystem::traceLackOfRoom()
{
    if (!mRoomTraced)
        DEV_TRACE("UISystem : too many windows, not all of them are drawn.\n");
    mRoomTraced = true;
}
