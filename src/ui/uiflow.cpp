#include "ui/uiflow.h"

#include "ui/uibase.h"

namespace
{
constexpr int Gap = 2;
}

sSize sUIFlow::layOut(UIBase& parent, unsigned int width) const
{
    sRect bound(0, 0, 0, top);
    sPoint cursor(0, top);
    for (UIBase::iterator place = parent.getChildrenBegin(); place != parent.getChildrenEnd(); ++place)
    {
        UIBase* child = *place;
        const sSize& size = child->getSize();
        if (child->isRowElement())
        {
            child->setPosition(sPoint(0, bound.bottom));
            child->setSize(sSize(width, size.height));
            bound |= child->getRelRegion();
            cursor = sPoint(0, bound.bottom + Gap);
            continue;
        }

        const bool wraps = static_cast<long long>(cursor.x) + size.width + Gap > width;
        if (wraps)
            cursor = sPoint(0, bound.bottom + Gap);
        child->setPosition(cursor);
        bound |= child->getRelRegion();
        cursor.x += static_cast<int>(size.width) + (wraps ? gapBehindWrap : Gap);
    }
    return {bound.getWidth(), bound.getHeight()};
}
