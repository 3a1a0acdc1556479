#include "ui/uisplitter.h"

#include <algorithm>

namespace
{
constexpr int Gap = 4;
constexpr unsigned int MinimumSplitSize = 8;
}

UISplitter::UISplitter(UIBase* first, UIBase* second, eSplitDirection direction, unsigned int size, eSplitBase base)
    : mDirection(direction),
      mBase(base),
      mSplitSize(std::max(size, MinimumSplitSize)),
      mFirstPane(first),
      mSecondPane(second)
{
    add(first);
    add(second);
    setCursor(direction == eSplitDirection::Beside ? eCursor::LeftRight : eCursor::UpDown);
}

void UISplitter::update(float deltaTime)
{
    const int length = getAlong(getSize(), getAxis());
    const int split = static_cast<int>(mSplitSize);
    const int baseLength = split - Gap;
    const int otherLength = length - split;
    const bool firstIsBase = mBase == eSplitBase::First;
    const int firstLength = firstIsBase ? baseLength : otherLength;

    placePane(mFirstPane, 0, firstLength);
    placePane(mSecondPane, firstLength + Gap, firstIsBase ? otherLength : baseLength);
    UIBase::update(deltaTime);
}

void UISplitter::eventMouseMove(const sPoint& position)
{
    if (isDragging() && getDragButton() & UIMouseDownMessage::FirstButton)
        mSplitSize = getDraggedSize(getAlong(position, getAxis()));
    else
        delegate();
}

eUIAxis UISplitter::getAxis() const
{
    return mDirection == eSplitDirection::Beside ? eUIAxis::X : eUIAxis::Y;
}

unsigned int UISplitter::getDraggedSize(int position) const
{
    const bool firstIsBase = mBase == eSplitBase::First;
    const UIBase* basePane = firstIsBase ? mFirstPane : mSecondPane;
    const int smallest = getAlong(basePane->getMinimumSize(), getAxis()) + Gap;
    const int length = getAlong(getSize(), getAxis());

    // On purpose: beyond the ends it does not matter which pane is the base, so for the second one they are swapped.
    if (position < 0)
        return static_cast<unsigned int>(smallest);
    if (position >= length)
        return static_cast<unsigned int>(length);
    return static_cast<unsigned int>(std::max(firstIsBase ? position : length - position, smallest));
}

void UISplitter::placePane(UIBase* pane, int begin, int length)
{
    pane->setPosition(makePoint(getAxis(), begin, 0));
    pane->setSize(makeSize(getAxis(), length, getAcross(getSize(), getAxis())));
}
