#include "sequencer/rubberband.h"

#include "ui/uibase.h"
#include "ui/uipainter.h"

#include <algorithm>

void RubberBand::drag(const UIBase& element, const sPoint& position)
{
    const sPoint begin = element.getDragBeginPosition() - element.getAbsPosition();
    mRect = sRect(std::min(begin.x, position.x), std::min(begin.y, position.y), std::max(begin.x, position.x),
                  std::max(begin.y, position.y));
}

void RubberBand::paint(UIPainter* painter) const
{
    constexpr sColor Shade{0, 0, 0, 64};
    if (mRect == sRect::Zero)
        return;
    painter->setBlendMode(eBlendMode::Alpha);
    painter->drawRect(mRect, Shade);
    painter->setBlendMode(eBlendMode::Opaque);
    painter->drawFrame(mRect, sColor::Black);
}
