#include "ui/uiwindow.h"

#include "render/viewsystem.h"
#include "ui/uiaxis.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

#include <algorithm>
#include <utility>

REFLECT(UIWindow, eTypeAttribute::Abstract, "ObjectBase");

namespace
{
using eButtonType = UISystemButton::eButtonType;
using Row = UIMenu::sRow<UIWindow>;

constexpr sSize MinimumSize{64, 64};
constexpr sPoint StartPosition{16, 16};

constexpr int Border = 2;
constexpr int TitleBottom = 18;
constexpr int TitleMargin = 2;
constexpr int ClientTop = 20;
constexpr int ClientFromGrip = 14;
constexpr int ButtonTop = 3;
constexpr int GripSize = 16;

// The grip is three pairs of diagonals, a light line with a dark one beneath it.
constexpr int GripEnd = 14;
constexpr int GripStart = 2;
constexpr int GripStep = 4;

constexpr const char* MinimizeItem = "Minimize";
constexpr const char* MaximizeItem = "Maximize";
constexpr const char* CloseItem = "Close";

constexpr Row ContextRows[] = {
    {MinimizeItem, &UIWindow::minimize},
    {MaximizeItem, &UIWindow::maximize},
    UIMenu::SeparatorRow<UIWindow>,
    {CloseItem, &UIWindow::close},
};

bool hasFirst(unsigned int button)
{
    return button & UIMouseDownMessage::FirstButton;
}

// The nearest place from 0 to before the border.
int keepBefore(int place, int border)
{
    return std::max(0, std::min(place, border - 1));
}
}

constinit const UIShortcut<UIWindow> UIWindow::mShortcutTable[] = {
    {UIKeyCode::F4, UIKeyCode::WithAlt, &UIWindow::close},
};

// On purpose: an absent button leaves its gap, and the two that share a place are never seen together.
constinit const UIWindow::sButtonRow UIWindow::mButtonTable[] = {
    {&UIWindow::mMinimizeButton, 44, &UIWindow::minimize},
    {&UIWindow::mMaximizeButton, 30, &UIWindow::maximize},
    {&UIWindow::mNormalizeButton, 30, &UIWindow::normalize},
    {&UIWindow::mCloseButton, 16, &UIWindow::close},
};

UIWindow::UIWindow(eStyle style, unsigned int attribute, bool close, bool minimize, bool maximize,
                   unsigned int formAttribute, UIWindow* owner)
    : UIForm(formAttribute), mStyle(style), mWindowAttribute(attribute), mOwnerWindow(owner)
{
    setMinimumSize(MinimumSize);
    setPosition(StartPosition);
    if (style == eStyle::Convex)
        setBorderStyle(eBorderStyle::Convex);

    mCloseButton = addButton(close, eButtonType::Close);
    mMinimizeButton = addButton(minimize, eButtonType::Minimize);
    mMaximizeButton = addButton(maximize, eButtonType::Maximize);
    mNormalizeButton = addButton(minimize || maximize, eButtonType::Normalize);
    if (mNormalizeButton)
        mNormalizeButton->sendMessage(UIHideMessage());

    UIMenu* menu = new UIMenu;
    menu->addItems(this, ContextRows);
    menu->setItemEnable(MinimizeItem, minimize);
    menu->setItemEnable(MaximizeItem, maximize);
    menu->setItemEnable(CloseItem, close);
    setMenu(menu);
}

UIWindow::UIWindow(UIWindow* owner) : UIWindow(eStyle::Convex, 0, false, false, false, 0, owner)
{
    UIMenu* menu = new UIMenu;
    for (const Row& row : ContextRows)
        menu->addItem(row.name, nullptr, nullptr, row.attribute, false);
    setMenu(menu);
}

UIWindow::~UIWindow()
{
    delete mMainMenu;
}

void UIWindow::setMainMenu(UIMainMenu* menu)
{
    if (menu == mMainMenu)
        return;
    if (UIMainMenu* former = std::exchange(mMainMenu, menu))
    {
        if (UISystem* system = UISystem::getInstance())
            system->notifyMainMenuChange(former, menu);
        delete former;
    }
}

const UIShortcutBase* UIWindow::findShortcut(unsigned int keyCode, unsigned int combinationKey) const
{
    for (const UIShortcut<UIWindow>& shortcut : mShortcutTable)
        if (shortcut.identify(keyCode, combinationKey))
            return &shortcut;
    return nullptr;
}

void UIWindow::eventCreate()
{
    resetLayout();
}

void UIWindow::eventClose()
{
    UISystem::getInstance()->removeWindow(this);
}

void UIWindow::eventActive()
{
    mWindowStatus |= WindowActive;
}

void UIWindow::eventDeactive()
{
    mWindowStatus &= ~WindowActive;
}

void UIWindow::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), UIPainter::getColors().mWindowColor);
    drawBorder(painter);
    if (mWindowAttribute & TitleBar)
        paintTitleBar(painter);
    if (mWindowAttribute & Sizable)
        paintGrip(painter);
    UIForm::eventPaint(painter);
}

void UIWindow::eventMouseMove(const sPoint& position)
{
    if (mWindowAttribute & Sizable)
        setCursor(getGrip().intersect(position) ? eCursor::Grip : eCursor::Arrow);
    moveWindow();
    sizeWindow();
}

void UIWindow::eventMouseDown(const sPoint& position, unsigned int button)
{
    checkMovingOperation(position, button);
    checkSizingOperation(position, button);
}

void UIWindow::eventMouseUp(const sPoint& /*position*/, unsigned int /*button*/)
{
    mWindowStatus &= ~(WindowMoving | WindowSizing);
}

void UIWindow::resetLayout()
{
    const int width = static_cast<int>(getSize().width);
    const int height = static_cast<int>(getSize().height);
    for (const sButtonRow& row : mButtonTable)
        if (UISystemButton* button = this->*row.button)
            button->setPosition(sPoint(width - row.fromRight, ButtonTop));
    setClientRegion(sRect(Border, mWindowAttribute & TitleBar ? ClientTop : Border, width - Border,
                          height - (mWindowAttribute & Sizable ? ClientFromGrip : Border)));
}

UISystemButton* UIWindow::addButton(bool wanted, eButtonType type)
{
    if (!wanted)
        return nullptr;
    UISystemButton* button = new UISystemButton(type, this, &UIWindow::notifySystemButton);
    add(button);
    return button;
}

void UIWindow::notifySystemButton(UIButton* button)
{
    for (const sButtonRow& row : mButtonTable)
        if (button == this->*row.button)
            (this->*row.action)();
}

sRect UIWindow::getTitleBar() const
{
    return sRect(Border, Border, static_cast<int>(getSize().width) - Border, TitleBottom);
}

// On purpose: beside a maximize button the text can run under the minimize button, which is painted over it.
sRect UIWindow::getTitleText() const
{
    const sRect bar = getTitleBar();
    sRect text(bar.left + TitleMargin, bar.top + TitleMargin, bar.right - TitleMargin, bar.bottom - TitleMargin);
    for (const UISystemButton* button : {mMaximizeButton, mMinimizeButton, mCloseButton})
        if (button)
        {
            text.right = button->getPosition().x - TitleMargin;
            break;
        }
    return text;
}

sRect UIWindow::getGrip() const
{
    const sRect own = getOwnRegion();
    return sRect(own.right - GripSize, own.bottom - GripSize, own.right, own.bottom);
}

void UIWindow::checkMovingOperation(const sPoint& position, unsigned int button)
{
    constexpr unsigned int MovableByTitle = TitleBar | Movable;
    if ((mWindowAttribute & MovableByTitle) != MovableByTitle || !hasFirst(button) ||
        !getTitleBar().intersect(position))
        return;
    mWindowStatus |= WindowMoving;
    mMoveBeginPosition = getPosition();
}

void UIWindow::checkSizingOperation(const sPoint& position, unsigned int button)
{
    if (!(mWindowAttribute & Sizable) || !hasFirst(button) || !getGrip().intersect(position))
        return;
    mWindowStatus |= WindowSizing;
    mSizeBeginSize = getSize();
}

// How far the pointer has pulled the window since the press. It never pulls beyond the view, so that the place where
// the window is held stays in reach.
sPoint UIWindow::getPull() const
{
    const sRect& view = ViewSystem::getInstance()->getViewport(UIPainter::InterfaceView);
    const sPoint pointer = getDragBeginPosition() + getDragAmount();
    return sPoint(keepBefore(pointer.x, view.right), keepBefore(pointer.y, view.bottom)) - getDragBeginPosition();
}

void UIWindow::moveWindow()
{
    if (mWindowStatus & WindowMoving)
        setPosition(mMoveBeginPosition + getPull());
}

void UIWindow::sizeWindow()
{
    if (!(mWindowStatus & WindowSizing))
        return;
    const sPoint pull = getPull();
    setSize(
        makeSize(static_cast<int>(mSizeBeginSize.width) + pull.x, static_cast<int>(mSizeBeginSize.height) + pull.y));
    resetLayout();
}

void UIWindow::paintTitleBar(UIPainter* painter) const
{
    const UIColorScheme& colors = UIPainter::getColors();
    const bool active = mWindowStatus & WindowActive;
    painter->drawRect(getTitleBar(), active ? colors.mActiveTitleBarColor : colors.mDeactiveTitleBarColor);
    painter->drawString(getTitleText(), mTitle, active ? colors.mActiveTitleFontColor : colors.mDeactiveTitleFontColor,
                        UIPainter::eAlignment::LeftMiddle);
}

void UIWindow::paintGrip(UIPainter* painter) const
{
    const UIColorScheme& colors = UIPainter::getColors();
    const sPoint corner(getGrip().left, getGrip().top);
    const auto drawDiagonals = [&](int start, sColor color)
    {
        for (int offset = start; offset < GripEnd; offset += GripStep)
            painter->drawLine(corner + sPoint(GripEnd, offset), corner + sPoint(offset, GripEnd), color);
    };
    drawDiagonals(GripStart, colors.mHighLightColor);
    drawDiagonals(GripStart + 1, colors.mDarkLightColor);
}
