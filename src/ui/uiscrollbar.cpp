#include "ui/uiscrollbar.h"

#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uipainter.h"

#include <algorithm>

namespace
{
constexpr int Thickness = 12;
constexpr int MinimumThumb = 4;
constexpr int MinimumSpan = 5;
}

UIScrollBar::UIScrollBar(eBarDirection direction) : mDirection(direction)
{
    using eDirection = UISpinButton::eDirection;
    const bool horizontal = direction == eBarDirection::Horizontal;
    mDecrementButton =
        new UISpinButton(horizontal ? eDirection::Left : eDirection::Up, this, &UIScrollBar::notifySpinButton);
    mIncrementButton =
        new UISpinButton(horizontal ? eDirection::Right : eDirection::Down, this, &UIScrollBar::notifySpinButton);
    for (UISpinButton* button : {mDecrementButton, mIncrementButton})
    {
        button->setSize(makeSize(Thickness, Thickness));
        add(button);
    }
    setMinimumSize(makeSize(getAxis(), 2 * Thickness, Thickness));
}

void UIScrollBar::setBarRange(unsigned int range)
{
    mBarRange = range;
    if (static_cast<long long>(mBarPosition) + range > mMaximum)
        moveTo(static_cast<long long>(mMaximum) - range);
}

void UIScrollBar::setMinimum(int minimum)
{
    mMinimum = minimum;
    moveTo(mBarPosition);
}

void UIScrollBar::setMaximum(int maximum)
{
    mMaximum = maximum;
    moveTo(mBarPosition);
}

void UIScrollBar::decrement()
{
    if (mBarPosition > mMinimum)
        --mBarPosition;
}

void UIScrollBar::increment()
{
    if (mBarPosition < mMaximum)
        ++mBarPosition;
}

sRect UIScrollBar::getBarRegion() const
{
    const long long span = getSpan();
    if (mBarRange >= span || span < MinimumSpan)
        return sRect::Zero;

    const int thickness = getThickness();
    const int track = getTrackLength();
    const long long first = static_cast<long long>(mBarPosition) - mMinimum;
    int begin = static_cast<int>(first * track / span) + thickness;
    int end = static_cast<int>((first + mBarRange) * track / span) + thickness;
    if (end - begin < MinimumThumb)
    {
        end = std::min(begin + MinimumThumb, getAlong(getSize(), getAxis()));
        begin = end - MinimumThumb;
    }
    const sPoint from = makePoint(getAxis(), begin, 0);
    const sPoint to = makePoint(getAxis(), end, thickness);
    return {from.x, from.y, to.x, to.y};
}

void UIScrollBar::forwardWheel(const sPoint& amount, UIScrollBar* horizontal, UIScrollBar* vertical, UIBase* sender)
{
    if (amount.x)
        horizontal->sendMessage(UIMouseWheelMessage(amount), sender);
    if (amount.y)
        vertical->sendMessage(UIMouseWheelMessage(amount), sender);
}

void UIScrollBar::update(float deltaTime)
{
    const int thickness = getThickness();
    const int end = getAlong(getSize(), getAxis()) - thickness;
    mDecrementButton->setPosition(sPoint::Zero);
    mDecrementButton->setSize(makeSize(thickness, thickness));
    mIncrementButton->setPosition(makePoint(getAxis(), end, 0));
    mIncrementButton->setSize(makeSize(thickness, thickness));
    UIBase::update(deltaTime);
}

void UIScrollBar::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawRect(getOwnRegion(), colors.mScrollBarBaseColor);

    const sRect thumb = getBarRegion();
    if (!isEnabled() || thumb == sRect::Zero)
        return;
    painter->drawRect(thumb, colors.mWindowColor);
    painter->drawConvexRect(thumb);
}

void UIScrollBar::eventMouseMove(const sPoint&)
{
    const int track = getTrackLength();
    if (!isDragging() || !(getDragButton() & UIMouseDownMessage::FirstButton) || !mBarDragging || track <= 0)
        return;
    moveTo(mDragBeginBarPosition + getSpan() * getAlong(getDragAmount(), getAxis()) / track);
}

void UIScrollBar::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (!isEnabled() || !(button & UIMouseDownMessage::FirstButton))
        return;

    const sRect thumb = getBarRegion();
    mBarDragging = thumb != sRect::Zero && thumb.intersect(position);
    mDragBeginBarPosition = mBarPosition;
    if (mBarDragging)
        return;

    // On purpose: without a thumb, which then begins at 0, every click goes forward.
    const long long page = (static_cast<long long>(mBarRange) + 1) / 2;
    const int thumbBegin = getAlong(sPoint(thumb.left, thumb.top), getAxis());
    moveTo(getAlong(position, getAxis()) >= thumbBegin ? mBarPosition + page : mBarPosition - page);
}

// Any release ends the capture of the mouse, and so the drag.
void UIScrollBar::eventMouseUp(const sPoint&, unsigned int)
{
    mBarDragging = false;
}

void UIScrollBar::eventMouseWheel(const sPoint& amount)
{
    moveTo(static_cast<long long>(mBarPosition) - getAlong(amount, getAxis()));
}

void UIScrollBar::notifySpinButton(UIButton* button)
{
    if (button == mDecrementButton)
        decrement();
    else
        increment();
}

void UIScrollBar::moveTo(long long position)
{
    const long long limited = std::min<long long>(position, mMaximum);
    mBarPosition = static_cast<int>(std::max<long long>(limited, mMinimum));
}

long long UIScrollBar::getSpan() const
{
    return static_cast<long long>(mMaximum) - mMinimum;
}

eUIAxis UIScrollBar::getAxis() const
{
    return mDirection == eBarDirection::Horizontal ? eUIAxis::X : eUIAxis::Y;
}

int UIScrollBar::getThickness() const
{
    return getAcross(getSize(), getAxis());
}

// Between the two arrows; not above 0 for a bar that has room for them only.
int UIScrollBar::getTrackLength() const
{
    return getAlong(getSize(), getAxis()) - 2 * getThickness();
}
