#pragma once

#include "foundation/ssize.h"

class UIBase;

// Places the children of an element in rows from left to right, from the first to the last, two pixels apart. A row
// element gets a row of its own, at the full width, and no gap above it. Two layouts follow these rules; what they do
// not share is here.
struct sUIFlow
{
    // Where the first row begins.
    int top;

    // Between an element that has begun a new row, and the next one.
    int gapBehindWrap;

    // `width` is what a row has room for. Returns the size of the area from the origin around all that was placed.
    sSize layOut(UIBase& parent, unsigned int width) const;

    // What layOut() would return. Row elements get their width, since their height may follow from it; nothing moves.
    sSize measure(UIBase& parent, unsigned int width) const;

private:
    template <bool Moves>
    sSize flow(UIBase& parent, unsigned int width) const;
};
