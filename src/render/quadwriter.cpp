#include "render/quadwriter.h"

#include <algorithm>

namespace
{
using sBox = QuadWriter::sBox;

// Half a pixel, from its centre to its edge.
constexpr float Half = 0.5f;

sBox getBounds(const sTexturedDeviceVertex* corner)
{
    const auto [left, right] = std::minmax({corner[0].x, corner[1].x, corner[2].x, corner[3].x});
    const auto [top, bottom] = std::minmax({corner[0].y, corner[1].y, corner[2].y, corner[3].y});
    return {left, top, right, bottom};
}

bool isEmpty(const sBox& box)
{
    return !(box.left < box.right && box.top < box.bottom);
}

sBox getCommon(const sBox& a, const sBox& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

// What does not fit an integer counts as broken.
bool isWhole(float coordinate)
{
    return static_cast<float>(_mm_cvttss_si32(_mm_set_ss(coordinate))) == coordinate;
}

bool isUpright(const sTexturedDeviceVertex* corner, const sBox& bounds)
{
    const auto stands = [corner](int i, float x, float y)
    {
        return corner[i].x == x && corner[i].y == y;
    };
    return stands(0, bounds.left, bounds.top) && stands(1, bounds.right, bounds.top) &&
           stands(2, bounds.left, bounds.bottom) && stands(3, bounds.right, bounds.bottom);
}

bool hasOneColor(const sTexturedDeviceVertex* corner)
{
    return corner[0].color == corner[1].color && corner[0].color == corner[2].color &&
           corner[0].color == corner[3].color;
}

// Whether the texels of an upright quad are as large as that many pixels, or all the same.
bool hasTexels(const sTexturedDeviceVertex* corner, const sBox& bounds, float texelsPerPixel)
{
    const float width = (bounds.right - bounds.left) * texelsPerPixel;
    const float height = (bounds.bottom - bounds.top) * texelsPerPixel;
    return static_cast<float>(corner[1].s - corner[0].s) == width &&
           static_cast<float>(corner[2].t - corner[0].t) == height && corner[2].s == corner[0].s &&
           corner[3].s == corner[1].s && corner[1].t == corner[0].t && corner[3].t == corner[2].t;
}

// From the first pixel of a line to the edge before its last one, which is not drawn.
void getExtent(float first, float last, float& begin, float& end)
{
    begin = first < last ? first - Half : last + Half;
    end = first < last ? last - Half : first + Half;
}
}

bool QuadWriter::writeLine(const sPlainDeviceVertex* vertices)
{
    const sPlainDeviceVertex& first = vertices[0];
    const sPlainDeviceVertex& last = vertices[1];
    const bool level = first.y == last.y;
    if (!level && first.x != last.x)
        return false;
    if (first.color != last.color || !isWhole(first.x - Half) || !isWhole(first.y - Half))
        return false;

    sBox line = {first.x - Half, first.y - Half, first.x + Half, first.y + Half};
    if (level)
        getExtent(first.x, last.x, line.left, line.right);
    else
        getExtent(first.y, last.y, line.top, line.bottom);
    const sBox visible = getCommon(line, mBox);
    if (isEmpty(visible))
        return true;
    for (const sPlainDeviceVertex& corner : {sPlainDeviceVertex{visible.left, visible.top, first.z, first.color},
                                             {visible.right, visible.top, first.z, first.color},
                                             {visible.left, visible.bottom, first.z, first.color},
                                             {visible.right, visible.bottom, first.z, first.color}})
        *mpEnd++ = convert(corner);
    return true;
}

bool QuadWriter::finishCut(float texelsPerPixel)
{
    const sBox bounds = getBounds(mpEnd);
    const sBox visible = getCommon(bounds, mBox);
    if (isEmpty(visible))
        return true;
    if (!isCuttable(bounds, texelsPerPixel))
        return false;
    cut(bounds, visible, texelsPerPixel);
    mpEnd += VertexNum;
    return true;
}

bool QuadWriter::isCuttable(const sBox& bounds, float texelsPerPixel) const
{
    // Texels are cut in whole numbers only.
    const bool whole = texelsPerPixel == 0.0f || (isWhole(bounds.left) && isWhole(bounds.top));
    return whole && isUpright(mpEnd, bounds) && hasOneColor(mpEnd) && hasTexels(mpEnd, bounds, texelsPerPixel);
}

void QuadWriter::cut(const sBox& bounds, const sBox& visible, float texelsPerPixel)
{
    const auto shift = [texelsPerPixel](short texel, float distance)
    {
        return static_cast<short>(texel + static_cast<int>(distance * texelsPerPixel));
    };
    for (unsigned int i = 0; i < VertexNum; ++i)
    {
        sTexturedDeviceVertex& corner = mpEnd[i];
        const float x = i % 2 ? visible.right : visible.left;
        const float y = i / 2 ? visible.bottom : visible.top;
        corner.s = shift(corner.s, x - (i % 2 ? bounds.right : bounds.left));
        corner.t = shift(corner.t, y - (i / 2 ? bounds.bottom : bounds.top));
        corner.x = x;
        corner.y = y;
    }
}
