#include "ui/uiflow.h"

#include "ui/uibase.h"

namespace
{
constexpr int Gap = 2;
}

sSize sUIFlow::layOut(UIBase& parent, unsigned int width) const
{
    return flow<true>(parent, width);
}

sSize sUIFlow::measure(UIBase& parent, unsigned int width) const
{
    return flow<false>(parent, width);
}

template <bool Moves>
sSize sUIFlow::flow(UIBase& parent, unsigned int width) const
{
    sRect bound(0, 0, 0, top);
    sPoint cursor(0, top);
    const auto move = [](UIBase* child, const sPoint& position)
    {
        if constexpr (Moves)
            child->setPosition(position);
    };
    const auto getRegion = [](const UIBase* child, const sPoint& position)
    {
        return Moves ? child->getRelRegion() : child->getOwnRegion() + position;
    };
    for (UIBase::iterator place = parent.getChildrenBegin(); place != parent.getChildrenEnd(); ++place)
    {
        UIBase* child = *place;
        const sSize& size = child->getSize();
        if (child->isRowElement())
        {
            const sPoint row(0, bound.bottom);
            move(child, row);
            child->setSize(sSize(width, size.height));
            bound |= getRegion(child, row);
            cursor = sPoint(0, bound.bottom + Gap);
            continue;
        }

        const bool wraps = static_cast<long long>(cursor.x) + size.width + Gap > width;
        if (wraps)
            cursor = sPoint(0, bound.bottom + Gap);
        move(child, cursor);
        bound |= getRegion(child, cursor);
        cursor.x += static_cast<int>(size.width) + (wraps ? gapBehindWrap : Gap);
    }
    return {bound.getWidth(), bound.getHeight()};
}
