#include "render/quadwriter.h"

#include <algorithm>
#include <cmath>

namespace
{
using sBox = QuadWriter::sBox;

// Half a pixel, from its centre to its edge.
constexpr float Half = 0.5f;

sBox getBounds(const sJoinedDeviceVertex* corner)
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

bool isUpright(const sJoinedDeviceVertex* corner, const sBox& bounds)
{
    const auto stands = [corner](int i, float x, float y)
    {
        return corner[i].x == x && corner[i].y == y;
    };
    return stands(0, bounds.left, bounds.top) && stands(1, bounds.right, bounds.top) &&
           stands(2, bounds.left, bounds.bottom) && stands(3, bounds.right, bounds.bottom);
}

bool hasOneColor(const sJoinedDeviceVertex* corner)
{
    return corner[0].color == corner[1].color && corner[0].color == corner[2].color &&
           corner[0].color == corner[3].color;
}

// Whether the texels of an upright quad are as large as that many pixels, or all the same.
bool hasTexels(const sJoinedDeviceVertex* corner, const sBox& bounds, float texelsPerPixel)
{
    const float width = (bounds.right - bounds.left) * texelsPerPixel;
    const float height = (bounds.bottom - bounds.top) * texelsPerPixel;
    return static_cast<float>(corner[1].s - corner[0].s) == width &&
           static_cast<float>(corner[2].t - corner[0].t) == height && corner[2].s == corner[0].s &&
           corner[3].s == corner[1].s && corner[1].t == corner[0].t && corner[3].t == corner[2].t;
}

bool isCuttable(const sJoinedDeviceVertex* corner, const sBox& bounds, float texelsPerPixel)
{
    // Texels are cut in whole numbers only.
    const bool whole = texelsPerPixel == 0.0f || (isWhole(bounds.left) && isWhole(bounds.top));
    return whole && isUpright(corner, bounds) && hasOneColor(corner) && hasTexels(corner, bounds, texelsPerPixel);
}

void cut(sJoinedDeviceVertex* corners, const sBox& bounds, const sBox& visible, float texelsPerPixel)
{
    const auto shift = [texelsPerPixel](short texel, float distance)
    {
        return static_cast<short>(texel + static_cast<int>(distance * texelsPerPixel));
    };
    for (unsigned int i = 0; i < QuadWriter::VertexNum; ++i)
    {
        sJoinedDeviceVertex& corner = corners[i];
        const float x = i % 2 ? visible.right : visible.left;
        const float y = i / 2 ? visible.bottom : visible.top;
        corner.s = shift(corner.s, x - (i % 2 ? bounds.right : bounds.left));
        corner.t = shift(corner.t, y - (i / 2 ? bounds.bottom : bounds.top));
        corner.x = x;
        corner.y = y;
    }
}

// Lanes of a vertex in a register, as a mask tells of them.
constexpr int LaneX = 1;
constexpr int LaneY = 2;
constexpr int LaneColor = 8;

// From the ends of a line to the edges of what it draws, left, top, right and bottom: half a pixel to both sides, and
// along the line from the first pixel to the edge before the last one, which is not drawn.
constexpr float LevelForward[] = {-Half, -Half, -Half, Half};
constexpr float LevelBackward[] = {Half, -Half, Half, Half};
constexpr float UprightForward[] = {-Half, -Half, Half, -Half};
constexpr float UprightBackward[] = {-Half, Half, Half, Half};

// Those of the pixel around a centre.
constexpr float PixelEdges[] = {-Half, -Half, Half, Half};

// In pixels. A longer one costs less as a line.
constexpr float LongestDiagonal = 32.0f;

__m128 load(const sPlainDeviceVertex& vertex)
{
    return _mm_loadu_ps(&vertex.x);
}

int getEqualLanes(__m128 a, __m128 b)
{
    return _mm_movemask_ps(_mm_castsi128_ps(_mm_cmpeq_epi32(_mm_castps_si128(a), _mm_castps_si128(b))));
}

// Whether it is the centre of a pixel.
bool isCentre(__m128 vertex)
{
    const __m128 corner = _mm_sub_ps(vertex, _mm_set1_ps(Half));
    const __m128 whole = _mm_cvtepi32_ps(_mm_cvttps_epi32(corner));
    constexpr int Both = LaneX | LaneY;
    return (_mm_movemask_ps(_mm_cmpeq_ps(corner, whole)) & Both) == Both;
}
}

bool QuadWriter::writeLines(const sPlainDeviceVertex* vertices, unsigned int vertexNum)
{
    constexpr unsigned int Size = 2;
    for (; vertexNum >= Size; vertexNum -= Size, vertices += Size)
    {
        if (!writeLine(vertices))
            return false;
    }
    return true;
}

inline bool QuadWriter::writeLine(const sPlainDeviceVertex* ends)
{
    const __m128 first = load(ends[0]);
    const __m128 last = load(ends[1]);
    const int equal = getEqualLanes(first, last);
    const bool level = equal & LaneY;
    const bool upright = equal & LaneX;
    if (!(equal & LaneColor) || !isCentre(first))
        return false;
    if (level && upright)
        return true;
    if (!level && !upright)
        return writeDiagonal(first, last);

    const float* edges = level ? (ends[0].x < ends[1].x ? LevelForward : LevelBackward)
                               : (ends[0].y < ends[1].y ? UprightForward : UprightBackward);
    const __m128 box = _mm_movelh_ps(_mm_min_ps(first, last), _mm_max_ps(first, last));
    writeBox(_mm_add_ps(box, _mm_loadu_ps(edges)), first);
    return true;
}

// The cross of a button, say: each pixel is a quad, and the last one is not drawn.
bool QuadWriter::writeDiagonal(__m128 first, __m128 last)
{
    const __m128 way = _mm_sub_ps(last, first);
    const float width = std::abs(_mm_cvtss_f32(way));
    const float height = std::abs(_mm_cvtss_f32(_mm_shuffle_ps(way, way, 1)));
    if (width != height || width > LongestDiagonal || !isWhole(width))
        return false;
    const unsigned int pixelNum = static_cast<unsigned int>(width);
    if (pixelNum - 1 > mSpareNum)
        return false;
    mSpareNum -= pixelNum - 1;

    const __m128 sign = _mm_and_ps(way, _mm_set1_ps(-0.0f));
    const __m128 step = _mm_or_ps(_mm_movelh_ps(sign, sign), _mm_set1_ps(1.0f));
    __m128 box = _mm_add_ps(_mm_movelh_ps(first, first), _mm_loadu_ps(PixelEdges));
    for (unsigned int i = 0; i < pixelNum; ++i, box = _mm_add_ps(box, step))
        writeBox(box, first);
    return true;
}

// Writes what of a box can be seen, with the colour of a vertex.
inline void QuadWriter::writeBox(__m128 box, __m128 vertex)
{
    const __m128 limit = _mm_loadu_ps(&mBox.left);
    const __m128 visible = _mm_shuffle_ps(_mm_max_ps(box, limit), _mm_min_ps(box, limit), _MM_SHUFFLE(3, 2, 1, 0));
    constexpr int Both = LaneX | LaneY;
    if ((_mm_movemask_ps(_mm_cmplt_ps(visible, _mm_movehl_ps(visible, visible))) & Both) != Both)
        return;

    const __m128 rest = _mm_unpackhi_ps(vertex, mSolid);
    const __m128 corners[VertexNum] = {
        _mm_shuffle_ps(visible, rest, _MM_SHUFFLE(3, 2, 1, 0)), _mm_shuffle_ps(visible, rest, _MM_SHUFFLE(3, 2, 1, 2)),
        _mm_shuffle_ps(visible, rest, _MM_SHUFFLE(3, 2, 3, 0)), _mm_shuffle_ps(visible, rest, _MM_SHUFFLE(3, 2, 3, 2))};
    sJoinedDeviceVertex* end = mpEnd;
    for (const __m128& corner : corners)
        _mm_storeu_ps(&(end++)->x, corner);
    mpEnd = end;
}

bool QuadWriter::writeCut(sQuad& quad, float texelsPerPixel)
{
    const sBox bounds = getBounds(quad);
    const sBox visible = getCommon(bounds, mBox);
    if (isEmpty(visible))
        return true;
    const bool inside = visible.left == bounds.left && visible.top == bounds.top && visible.right == bounds.right &&
                        visible.bottom == bounds.bottom;
    if (!inside)
    {
        if (!isCuttable(quad, bounds, texelsPerPixel))
            return false;
        cut(quad, bounds, visible, texelsPerPixel);
    }
    mpEnd = std::copy_n(quad, VertexNum, mpEnd);
    return true;
}
