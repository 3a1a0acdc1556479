#pragma once

#include "foundation/srect.h"

class UIBase;
class UIPainter;

// A rectangle that the mouse draws over an element.
class RubberBand
{
public:
    // From the place of the press, while the element is being dragged, to the mouse.
    void drag(const UIBase& element, const sPoint& position);
    void reset() { mRect = sRect::Zero; }

    // On purpose: a band without width covers nothing.
    bool covers(int x) const { return mRect.left <= x && x < mRect.right; }

    void paint(UIPainter* painter) const;

private:
    sRect mRect = sRect::Zero;
};
