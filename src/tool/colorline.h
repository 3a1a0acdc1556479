#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"

// One of many lines that are drawn at once.
struct sColorLine
{
    sPoint from;
    sPoint to;
    sColor color;
};

// The edges of a frame that is one pixel wide and lies on the inside of a rectangle: `visit` gets the ends of each, and
// whether it is one of those at the top and at the left.
template <typename Visitor>
void forEachEdge(const sRect& rect, Visitor&& visit)
{
    visit(sPoint(rect.left, rect.top), sPoint(rect.right, rect.top), true);
    visit(sPoint(rect.left, rect.top), sPoint(rect.left, rect.bottom), true);
    visit(sPoint(rect.left, rect.bottom - 1), sPoint(rect.right, rect.bottom - 1), false);
    visit(sPoint(rect.right - 1, rect.top), sPoint(rect.right - 1, rect.bottom), false);
}
