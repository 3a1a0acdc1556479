#pragma once

#include "foundation/sfixed.h"
#include "foundation/srect.h"
#include "reflection/objectlist.h"

class UIBase;
class UIPainter;

// A rectangle that the mouse draws over a row of the timeline, and what lies on that row's frames: the keys of a lane
// or the markers. One frame is one pixel wide; `scroll` is the frame at the left edge of the row.
class RubberBand
{
public:
    // From the place of the press, while the row is being dragged, to the mouse.
    void drag(const UIBase& row, const sPoint& position);
    void reset() { mRect = sRect::Zero; }
    const sRect& getRect() const { return mRect; }

    // The first of the elements, sorted by their frames, on a frame inside the band; null if there is none.
    template <typename Element>
    Element* findFirst(const ObjectList& list, int scroll) const
    {
        for (ObjectBase* object : list)
        {
            Element* element = static_cast<Element*>(object);
            const int x = static_cast<int>(element->getFrame()) - scroll;
            if (mRect.left <= x && x < mRect.right)
                return element;
        }
        return nullptr;
    }

    // The part of the row that holds the elements, each a line, and the band over them.
    template <typename Element>
    void paint(UIPainter* painter, const UIBase& row, const ObjectList& list, const Element* selected, int scroll) const
    {
        for (ObjectBase* object : list)
        {
            const Element* element = static_cast<Element*>(object);
            paintLine(painter, row, static_cast<int>(element->getFrame()) - scroll, element == selected);
        }
        paintBand(painter);
    }

private:
    static void paintLine(UIPainter* painter, const UIBase& row, int x, bool isSelected);
    void paintBand(UIPainter* painter) const;

    sRect mRect = sRect::Zero;
};
