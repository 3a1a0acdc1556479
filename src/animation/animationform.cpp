#include "animation/animationform.h"

#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "animation/drawanimation.h"
#include "animation/drawcurve.h"
#include "foundation/smatrix.h"
#include "ui/uikeycode.h"
#include "ui/uilinerun.h"
#include "ui/uimenu.h"

#include <algorithm>

using AnimationView = AnimTool::AnimationForm::AnimationView;

namespace
{
constexpr unsigned int CanvasSize = 2 * AnimationOrigin;
constexpr int MaximumCoordinate = AnimationOrigin - 1;
constexpr int MinimumCoordinate = -AnimationOrigin;
constexpr sPoint Origin{AnimationOrigin, AnimationOrigin};
constexpr int CrossSize = 8;

// A nested animation has no size of its own.
constexpr int NestedSize = 32;

using eItemAttribute = UIMenu::eItemAttribute;

constexpr UIMenu::sRow<AnimationView> MenuTable[] = {
    {"Grid", &AnimationView::eventGrid, eItemAttribute::Check, true},
    {"Curve", &AnimationView::eventCurve, eItemAttribute::Check, true},
    UIMenu::SeparatorRow<AnimationView>,
    {"BGBlack", &AnimationView::eventBackground<sColor::Black>, eItemAttribute::Radio, true},
    {"BGRed", &AnimationView::eventBackground<sColor::Red>, eItemAttribute::Radio},
    {"BGGreen", &AnimationView::eventBackground<sColor::Green>, eItemAttribute::Radio},
    {"BGBlue", &AnimationView::eventBackground<sColor::Blue>, eItemAttribute::Radio},
    {"BGWhite", &AnimationView::eventBackground<sColor::White>, eItemAttribute::Radio},
};

// What of an object can be dragged: where it stands and which part of the view shows it.
struct sHandle
{
    unsigned int drag = AnimCanvas::NoDrag;
    sPoint position = sPoint::Zero;
    sRect rect = sRect::Zero;
};

sHandle getHandle(const ObjectBase* object)
{
    if (const AnimCell* cell = object ? object->cast<AnimCell>() : nullptr)
        return {AnimationView::CellDrag, cell->getPosition(), getCellRect(*cell) + Origin};
    if (const AnimSequencer* nested = object ? object->cast<AnimSequencer>() : nullptr)
    {
        const sPoint corner = nested->getPosition() + Origin - sPoint(NestedSize / 2, NestedSize / 2);
        return {AnimationView::AnimationDrag, nested->getPosition(), sRect(NestedSize, NestedSize) + corner};
    }
    return {};
}

sPoint clampToCanvas(const sPoint& point)
{
    return sPoint(std::clamp(point.x, MinimumCoordinate, MaximumCoordinate),
                  std::clamp(point.y, MinimumCoordinate, MaximumCoordinate));
}
}

AnimTool::AnimationForm::AnimationForm(AnimTool* tool) : UIForm(ScrollBars)
{
    setClientRegion(sRect(CanvasSize, CanvasSize));
    mView = new AnimationView(tool, this);
    addClient(mView);
}

// The bars know their ranges from the first update on. It shows the origin, where new cells are.
void AnimTool::AnimationForm::update(float deltaTime)
{
    UIForm::update(deltaTime);
    if (!mShown)
        mView->centre();
    mShown = true;
}

AnimationView::AnimationView(AnimTool* tool, AnimationForm* form) : AnimCanvas(tool, form, GridOn | CurveOn, ScrollDrag)
{
    setSize({CanvasSize, CanvasSize});
    UIMenu* menu = new UIMenu;
    menu->addItems(this, MenuTable);
    setMenu(menu);
}

void AnimationView::centre()
{
    const sSize shown = getForm().getScrollBarRange();
    const sRect& region = getForm().getClientRegion();
    getForm().setScrollBarPosition(sPoint((static_cast<int>(region.getWidth()) - static_cast<int>(shown.width)) / 2,
                                          (static_cast<int>(region.getHeight()) - static_cast<int>(shown.height)) / 2));
}

void AnimationView::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (keyCode != UIKeyCode::Home || combinationKey != 0)
        return AnimCanvas::eventKeyDown(keyCode, combinationKey);
    if (!isDragging())
        centre();
}

unsigned int AnimationView::beginDrag(const sPoint& position, sPoint& origin) const
{
    const sHandle handle = getHandle(getTool().getSelectLiveObject());
    if (handle.drag == NoDrag || !handle.rect.intersect(position))
        return NoDrag;
    origin = handle.position;
    return handle.drag;
}

void AnimationView::drag(unsigned int kind, const sPoint&)
{
    ObjectBase* object = getTool().getSelectLiveObject();
    if (getHandle(object).drag != kind)
        return;
    const sPoint position = clampToCanvas(getDragOrigin() + getDragAmount());
    if (kind == CellDrag)
        static_cast<AnimCell*>(object)->setPosition(position);
    else
        static_cast<AnimSequencer*>(object)->setPosition(position);
}

void AnimationView::eventPaint(UIPainter* painter)
{
    paintBackground(painter);
    const AnimSequencer* sequencer = getTool().getAnimSequencer();
    if (!sequencer)
        return;
    drawAnimation(*painter, *sequencer, sMatrix::Identity, sColor::White);
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
    if (hasFlag(GridOn))
        drawGrid(painter);
    paintMarkings(painter);
}

void AnimationView::drawGrid(UIPainter* painter) const
{
    AnimCanvas::drawGrid(painter);
    painter->drawLine(sPoint(AnimationOrigin, 0), sPoint(AnimationOrigin, CanvasSize), sColor::White);
    painter->drawLine(sPoint(0, AnimationOrigin), sPoint(CanvasSize, AnimationOrigin), sColor::White);
}

void AnimationView::paintMarkings(UIPainter* painter) const
{
    const AnimSequencer& sequencer = *getTool().getAnimSequencer();
    const AnimResource* resource = getTool().getAnimResource();
    const unsigned int selected = getTool().getSelectTrackIndex();
    UILineRun lines(*painter);
    for (unsigned int i = 0; i < sequencer.getTrackNum() && lines.hasRoom(); ++i)
    {
        const ObjectBase* object = sequencer.getTrackArray()[i].object;
        const bool isSelected = i == selected;
        const sColor color = isSelected ? sColor::Red : sColor::Yellow;
        if (isSelected && resource && hasFlag(CurveOn))
            addCurve(lines, *resource, i, getTool().getCurrentFrame());
        const sHandle handle = getHandle(object);
        if (handle.drag == NoDrag)
            continue;
        lines.addFrame(handle.rect, color);
        addCross(lines, handle.position + Origin, CrossSize, color);
    }
}
