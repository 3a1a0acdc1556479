#pragma once

#include "foundation/spoint.h"
#include "render/vertex.h"

#include <algorithm>

#include <xmmintrin.h>

// Turns primitives into textured quads that lie inside a box, so that the picture is what the library would draw in
// a scissor of that box. What has no texture is put on one solid texel.
class QuadWriter
{
public:
    // On the edges of pixels.
    struct sBox
    {
        float left;
        float top;
        float right;
        float bottom;
    };

    // Four vertices there for each primitive that is written.
    static constexpr unsigned int VertexNum = 4;

    QuadWriter(sTexturedDeviceVertex* destination, const sBox& box, const sTexcoord& solid)
        : mpEnd(destination), mBox(box), mSolidS(static_cast<short>(solid.x)), mSolidT(static_cast<short>(solid.y))
    {
    }

    // False if it cannot be cut without a change to what of it is inside. Of what shows nowhere, nothing is written.
    // A line has to run along the pixels, from the centre of one to another.
    [[nodiscard]] bool writeLine(const sPlainDeviceVertex* vertices);
    template <typename Vertex>
    [[nodiscard]] bool writeTriangle(const Vertex* vertices);
    template <typename Vertex>
    [[nodiscard]] bool writeQuad(const Vertex* vertices);

    // Behind the last vertex written.
    sTexturedDeviceVertex* getEnd() const { return mpEnd; }

private:
    template <typename Vertex>
    bool isInside(const Vertex* corner) const;
    template <typename Vertex>
    bool write(const Vertex* corner, float texelsPerPixel);
    sTexturedDeviceVertex convert(const sPlainDeviceVertex& vertex) const
    {
        return {vertex.x, vertex.y, vertex.z, vertex.color, mSolidS, mSolidT};
    }
    static const sTexturedDeviceVertex& convert(const sTexturedDeviceVertex& vertex) { return vertex; }
    bool finishCut(float texelsPerPixel);
    bool isCuttable(const sBox& bounds, float texelsPerPixel) const;
    void cut(const sBox& bounds, const sBox& visible, float texelsPerPixel);

    // The quad at work stands at the end.
    sTexturedDeviceVertex* mpEnd;
    sBox mBox;
    short mSolidS;
    short mSolidT;
};

// Whether a quad has an area and nothing to be cut, as most have. Both kinds of vertices begin with x and y; what else
// a register holds is not looked at.
template <typename Vertex>
bool QuadWriter::isInside(const Vertex* corner) const
{
    const auto load = [corner](int i)
    {
        return _mm_loadu_ps(&corner[i].x);
    };
    const __m128 low = _mm_min_ps(_mm_min_ps(load(0), load(1)), _mm_min_ps(load(2), load(3)));
    const __m128 high = _mm_max_ps(_mm_max_ps(load(0), load(1)), _mm_max_ps(load(2), load(3)));
    const __m128 leftTop = _mm_loadu_ps(&mBox.left);
    const __m128 rightBottom = _mm_movehl_ps(leftTop, leftTop);
    const __m128 inside = _mm_and_ps(_mm_cmple_ps(leftTop, low), _mm_cmple_ps(high, rightBottom));
    return (_mm_movemask_ps(_mm_and_ps(inside, _mm_cmplt_ps(low, high))) & 3) == 3;
}

template <typename Vertex>
bool QuadWriter::writeTriangle(const Vertex* vertices)
{
    const Vertex quad[VertexNum] = {vertices[0], vertices[1], vertices[2], vertices[2]};
    return write(quad, 0.0f);
}

template <typename Vertex>
bool QuadWriter::writeQuad(const Vertex* vertices)
{
    return write(vertices, sizeof(Vertex) == sizeof(sTexturedDeviceVertex) ? 1.0f : 0.0f);
}

template <typename Vertex>
bool QuadWriter::write(const Vertex* corner, float texelsPerPixel)
{
    const bool inside = isInside(corner);
    std::transform(corner, corner + VertexNum, mpEnd, [this](const Vertex& vertex) { return convert(vertex); });
    if (!inside)
        return finishCut(texelsPerPixel);
    mpEnd += VertexNum;
    return true;
}
