#include "ui/uibase.h"

#include "ui/uimenu.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

#include <algorithm>

namespace
{
template <typename Message>
const Message& as(const UIMessage& message)
{
    return static_cast<const Message&>(message);
}

// Two rectangles that do not meet have an empty one in common, whose corner lies nowhere.
bool contains(const sRect& rect, const sPoint& point)
{
    return rect.left < rect.right && rect.top < rect.bottom && rect.intersect(point);
}

bool isEmpty(const sRect& rect)
{
    return rect.getWidth() == 0 || rect.getHeight() == 0;
}

bool floats(const UIBase& element)
{
    return element.isFloating() || element.hasFloating();
}
}

UIBase::UIBase(unsigned int attribute) : mAttribute(attribute)
{
}

UIBase::~UIBase()
{
    if (UISystem* system = UISystem::getInstance())
        system->notifyInvalidate(this);
    for (UIBase* child : mChildren)
        delete child;
    delete mMenu;
}

void UIBase::add(UIBase* child)
{
    mChildren.addLast(child);
    child->mParent = this;
    // Anything else leaves the bits as they are; to look at all children for each new one takes long in a long list.
    if (floats(*child))
        updateFloatingStatus();
}

void UIBase::remove()
{
    if (!mParent)
        return;
    mParent->mChildren.remove(this);
    mParent->updateFloatingStatus();
    mParent = nullptr;
}

void UIBase::removeChildren()
{
    while (!mChildren.empty())
    {
        UIBase* child = *mChildren.begin();
        child->remove();
        delete child;
    }
}

UIBase* UIBase::find(UIBase* element)
{
    if (element == this)
        return this;
    for (UIBase* child : mChildren)
        if (UIBase* found = child->find(element))
            return found;
    return nullptr;
}

UIBase* UIBase::findKey(void* key)
{
    if (key == mFindKey)
        return this;
    for (UIBase* child : mChildren)
        if (UIBase* found = child->findKey(key))
            return found;
    return nullptr;
}

sRect UIBase::getChildrenRegion() const
{
    sRect region = sRect::Zero;
    for (const UIBase* child : mChildren)
        region |= child->getRelRegion();
    return region;
}

void UIBase::create()
{
    setStatus(Created, true, &UIBase::eventCreate);
}

void UIBase::active()
{
    setStatus(Active, true, &UIBase::eventActive);
}

void UIBase::deactive()
{
    setStatus(Active, false, &UIBase::eventDeactive);
}

void UIBase::focus()
{
    setStatus(Focused, true, &UIBase::eventFocus);
}

void UIBase::defocus()
{
    setStatus(Focused, false, &UIBase::eventDefocus);
}

void UIBase::show()
{
    setStatus(Visible, true, &UIBase::eventShow);
}

void UIBase::hide()
{
    setStatus(Visible, false, &UIBase::eventHide);
}

void UIBase::enable()
{
    setStatus(Enabled, true, &UIBase::eventEnable);
}

void UIBase::disable()
{
    setStatus(Enabled, false, &UIBase::eventDisable);
}

void UIBase::setPosition(const sPoint& position)
{
    mPosition = position;
    callGuarded(Moving, &UIBase::eventMove);
}

void UIBase::setSize(const sSize& size)
{
    mSize = {std::max(size.width, mMinimumSize.width), std::max(size.height, mMinimumSize.height)};
    callGuarded(Sizing, &UIBase::eventSize);
}

void UIBase::setAbsRegion(const sPoint& origin)
{
    mAbsRegion = getOwnRegion() + (origin + mPosition);
}

void UIBase::setDrawRegion(const sRect& rect)
{
    mDrawRegion = mAbsRegion & rect;
}

void UIBase::updateOwnRegion(const sRect& absolute, const sRect& clip)
{
    setAbsRegion(sPoint(absolute.left, absolute.top));
    setDrawRegion(isFloating() ? UISystem::getUIViewRect() : clip);
}

void UIBase::updateChildrenRegion(const sRect& absolute, const sRect& clip)
{
    for (UIBase* child : mChildren)
        child->updateRegion(absolute, clip);
}

UIBase* UIBase::intersect(const sPoint& point, const sRect& clip)
{
    if (!isVisible())
        return nullptr;
    const sRect region = isFloating() ? mAbsRegion : mAbsRegion & clip;
    UIBase* hit = contains(region, point) ? this : nullptr;
    if (!hit && !hasFloating())
        return nullptr;

    UIBase* floatingHit = nullptr;
    for (UIBase* child : mChildren)
        if (UIBase* childHit = child->intersect(point, region))
            (floats(*child) ? floatingHit : hit) = childHit;
    return floatingHit ? floatingHit : hit;
}

void UIBase::setMenu(UIMenu* menu)
{
    if (mMenu)
    {
        if (UISystem* system = UISystem::getInstance())
            system->notifyMenuChange(mMenu);
        delete mMenu;
    }
    mMenu = menu;
}

void UIBase::sendMessage(const UIMessage& message, UIBase* sender)
{
    if (message.getType() == static_cast<unsigned int>(eMessage::Timer) && message.isBroadcast())
        return sendTimer(as<UITimerMessage>(message), sender);
    const bool outerDelegate = mDelegate;
    mDelegate = false;

    if (dispatch(message) && message.isBroadcast())
    {
        const bool paints = message.getType() == static_cast<unsigned int>(eMessage::Paint);
        for (UIBase* child : mChildren)
            if (!paints || !child->isUnseen())
                child->sendMessage(message, sender);
    }
    // On purpose: positions stay those of the element that was addressed.
    if (mDelegate && mParent)
        mParent->sendMessage(message, sender);

    mDelegate = outerDelegate;
}

// As all messages, but for the choice of the hook: this one reaches every element in every frame.
void UIBase::sendTimer(const UITimerMessage& message, UIBase* sender)
{
    const bool outerDelegate = mDelegate;
    mDelegate = false;
    eventTimer(message.getDeltaTime());
    for (UIBase* child : mChildren)
        child->sendTimer(message, sender);
    if (mDelegate && mParent)
        mParent->sendMessage(message, sender);
    mDelegate = outerDelegate;
}

const UIShortcutBase* UIBase::findShortcut(unsigned int, unsigned int) const
{
    return nullptr;
}

void UIBase::update(float deltaTime)
{
    for (UIBase* child : mChildren)
        child->update(deltaTime);
}

void UIBase::updateRegion(const sRect& absolute, const sRect& clip)
{
    updateOwnRegion(absolute, clip);
    updateChildrenRegion(mAbsRegion, mDrawRegion);
}

void UIBase::drawBorder(UIPainter* painter) const
{
    switch (mBorderStyle)
    {
    case eBorderStyle::None: break;
    case eBorderStyle::Frame: painter->drawFrame(getOwnRegion(), mBorderColor); break;
    case eBorderStyle::Convex: painter->drawConvexRect(getOwnRegion()); break;
    case eBorderStyle::Concave: painter->drawConcaveRect(getOwnRegion()); break;
    }
}

// A parent's bit for floating elements holds whether they are visible or not, but follows with every change of it.
void UIBase::setStatus(unsigned int bit, bool on, void (UIBase::*hook)())
{
    if (static_cast<bool>(mStatus & bit) == on)
        return;
    mStatus ^= bit;
    if (bit == Visible)
        updateFloatingStatus();
    (this->*hook)();
}

// The hook may do again what it has been called for; it is not called for that.
void UIBase::callGuarded(unsigned int bit, void (UIBase::*hook)())
{
    if (mStatus & bit)
        return;
    mStatus |= bit;
    (this->*hook)();
    mStatus &= ~bit;
}

void UIBase::updateFloatingStatus()
{
    for (UIBase* element = this; element; element = element->mParent)
    {
        element->mStatus &= ~HasFloating;
        // On purpose: hidden children count.
        for (const UIBase* child : element->mChildren)
            if (floats(*child))
                element->mStatus |= HasFloating;
    }
}

// False when a broadcast stops here.
bool UIBase::dispatch(const UIMessage& message)
{
    switch (static_cast<eMessage>(message.getType()))
    {
    case eMessage::Create: create(); break;
    case eMessage::Destroy: eventDestroy(); break;
    case eMessage::Close: eventClose(); break;
    case eMessage::Show: show(); break;
    case eMessage::Hide: hide(); break;
    case eMessage::Timer: eventTimer(as<UITimerMessage>(message).getDeltaTime()); break;
    case eMessage::Paint: return paint(as<UIPaintMessage>(message).getPainter());
    case eMessage::Active: active(); break;
    case eMessage::Deactive: deactive(); break;
    case eMessage::Focus: focus(); break;
    case eMessage::Defocus: defocus(); break;
    case eMessage::Enable: enable(); break;
    case eMessage::Disable: disable(); break;
    case eMessage::KeyDown: receive(as<UIKeyDownMessage>(message), &UIBase::eventKeyDown); break;
    case eMessage::KeyUp: receive(as<UIKeyUpMessage>(message), &UIBase::eventKeyUp); break;
    case eMessage::MouseMove: moveMouse(as<UIMouseMoveMessage>(message).getPosition()); break;
    case eMessage::MouseDown: press(as<UIMouseDownMessage>(message), &UIBase::eventMouseDown); break;
    case eMessage::MouseUp: release(as<UIMouseUpMessage>(message)); break;
    case eMessage::MouseWheel: eventMouseWheel(as<UIMouseWheelMessage>(message).getAmount()); break;
    case eMessage::MouseDoubleClick:
        press(as<UIMouseDoubleClickMessage>(message), &UIBase::eventMouseDoubleClick);
        break;
    case eMessage::BeginEdit: eventBeginEdit(); break;
    case eMessage::EndEdit: eventEndEdit(); break;
    default: eventCustom(message); break;
    }
    return true;
}

template <typename Message>
void UIBase::receive(const Message& message, void (UIBase::*hook)(unsigned int, unsigned int))
{
    (this->*hook)(message.getKeyCode(), message.getCombinationKey());
}

void UIBase::moveMouse(const sPoint& position)
{
    if (mDragging)
        mDragAmount = position + getAbsPosition() - mDragBeginPosition;
    eventMouseMove(position);
}

// On purpose: the amount of the last drag stays until the first move.
template <typename Message>
void UIBase::press(const Message& message, void (UIBase::*hook)(const sPoint&, unsigned int))
{
    mDragging = true;
    mDragButton = message.getButton();
    mDragBeginPosition = message.getPosition() + getAbsPosition();
    (this->*hook)(message.getPosition(), message.getButton());
}

// The hook still finds the element dragging.
void UIBase::release(const UIMouseUpMessage& message)
{
    eventMouseUp(message.getPosition(), message.getButton());
    mDragging = false;
}

// Whether nothing can be seen of this element and of what lies below it.
bool UIBase::isUnseen() const
{
    // A floating element below can lie outside of its parent.
    return !isVisible() || (isEmpty(mDrawRegion) && !hasFloating());
}

// False when nothing below this element can be seen.
bool UIBase::paint(UIPainter* painter)
{
    if (isUnseen())
        return false;
    if (isEmpty(mDrawRegion))
        return true;

    painter->setRegion(mDrawRegion, getAbsPosition());
    // On purpose: the children of a floating element are painted at the level of the others.
    if (isFloating())
        painter->increasePriority();
    eventPaint(painter);
    if (isFloating())
        painter->decreasePriority();
    return true;
}
