#include "animation/animcanvas.h"

#include "animation/animtool.h"
#include "ui/uiform.h"
#include "ui/uikeycode.h"
#include "ui/uilinerun.h"

#include <algorithm>

namespace
{
constexpr unsigned int Space = ' ';

// The last one that is not behind a coordinate of the view.
int getGridLine(int coordinate)
{
    return coordinate - coordinate % AnimCanvas::GridSize;
}
}

AnimCanvas::AnimCanvas(const AnimTool* tool, UIForm* form, unsigned int flags, unsigned int scrollDrag)
    : mTool(tool), mForm(form), mFlags(flags), mScrollDrag(scrollDrag)
{
}

void AnimCanvas::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (keyCode == Space && combinationKey == 0)
        mFlags |= SpaceDown;
    else
        delegate();
}

void AnimCanvas::eventKeyUp(unsigned int keyCode, unsigned int)
{
    if (keyCode == Space)
        mFlags &= ~SpaceDown;
    else
        delegate();
}

// The release of the key goes to whoever has the focus then.
void AnimCanvas::eventDefocus()
{
    mFlags &= ~SpaceDown;
}

void AnimCanvas::eventMouseDown(const sPoint& position, unsigned int button)
{
    mFlags &= ~DragKind;
    if (!(button & UIMouseDownMessage::FirstButton) || !mTool->getAnimSequencer())
        return;
    if (hasFlag(SpaceDown))
    {
        mDragOrigin = mForm->getScrollBarPosition();
        mFlags |= mScrollDrag;
        return;
    }
    mFlags |= beginDrag(position, mDragOrigin);
}

void AnimCanvas::eventMouseMove(const sPoint& position)
{
    const unsigned int kind = mFlags & DragKind;
    if (!isDragging() || !(getDragButton() & UIMouseDownMessage::FirstButton) || kind == NoDrag)
        return;
    if (kind == mScrollDrag)
        mForm->setScrollBarPosition(mDragOrigin - getDragAmount());
    else
        drag(kind, position);
}

// Two quick presses are two drags; the second one must not go on from where the first began.
void AnimCanvas::eventMouseDoubleClick(const sPoint& position, unsigned int button)
{
    eventMouseDown(position, button);
}

void AnimCanvas::paintBackground(UIPainter* painter) const
{
    painter->drawRect(getOwnRegion(), mBackground);
}

void AnimCanvas::drawGrid(UIPainter* painter) const
{
    const int width = static_cast<int>(getSize().width);
    const int height = static_cast<int>(getSize().height);
    const sRect seen = getDrawRegion() + (sPoint::Zero - getAbsPosition());
    UILineRun lines(*painter);
    for (int x = getGridLine(seen.left); x < std::min(width, seen.right); x += GridSize)
        lines.add(sPoint(x, 0), sPoint(x, height), sColor::DarkGray);
    for (int y = getGridLine(seen.top); y < std::min(height, seen.bottom); y += GridSize)
        lines.add(sPoint(0, y), sPoint(width, y), sColor::DarkGray);
}
