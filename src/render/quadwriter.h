#pragma once

#include "foundation/spoint.h"
#include "render/vertex.h"

#include <emmintrin.h>

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

    // At most as many vertices there for each primitive that is written.
    static constexpr unsigned int VertexNum = 4;

    QuadWriter(sTexturedDeviceVertex* destination, const sBox& box, const sTexcoord& solid)
        : mpEnd(destination), mBox(box), mSolid(solid)
    {
    }

    // Write the whole primitives among the vertices. False if one of them cannot be cut without a change to what of it
    // is inside; then some may have been written. A line has to run along the pixels, from the centre of one to
    // another.
    [[nodiscard]] bool writeLines(const sPlainDeviceVertex* vertices, unsigned int vertexNum);
    template <typename Vertex>
    [[nodiscard]] bool writeTriangles(const Vertex* vertices, unsigned int vertexNum);
    template <typename Vertex>
    [[nodiscard]] bool writeQuads(const Vertex* vertices, unsigned int vertexNum);

    // Behind the last vertex written.
    sTexturedDeviceVertex* getEnd() const { return mpEnd; }

private:
    template <typename Vertex>
    bool isInside(const Vertex* vertices, unsigned int vertexNum) const;
    void convert(const sTexturedDeviceVertex* vertices, unsigned int vertexNum);
    void convert(const sPlainDeviceVertex* vertices, unsigned int vertexNum);

    bool writeLine(const sPlainDeviceVertex* ends);
    void writeBox(__m128 box, __m128 vertex);
    template <typename Vertex>
    bool writeCut(const Vertex* corner);
    bool finishCut(float texelsPerPixel);
    bool isCuttable(const sBox& bounds, float texelsPerPixel) const;
    void cut(const sBox& bounds, const sBox& visible, float texelsPerPixel);

    // The quad at work stands at the end.
    sTexturedDeviceVertex* mpEnd;
    sBox mBox;
    sTexcoord mSolid;
};

template <typename Vertex>
bool QuadWriter::writeTriangles(const Vertex* vertices, unsigned int vertexNum)
{
    constexpr unsigned int Size = 3;
    for (; vertexNum >= Size; vertexNum -= Size, vertices += Size)
    {
        const Vertex quad[VertexNum] = {vertices[0], vertices[1], vertices[2], vertices[2]};
        if (!writeQuads(quad, VertexNum))
            return false;
    }
    return true;
}

// Most draws have nothing to be cut.
template <typename Vertex>
bool QuadWriter::writeQuads(const Vertex* vertices, unsigned int vertexNum)
{
    const unsigned int wholeNum = vertexNum / VertexNum * VertexNum;
    if (isInside(vertices, wholeNum))
    {
        convert(vertices, wholeNum);
        mpEnd += wholeNum;
        return true;
    }
    const Vertex* end = vertices + wholeNum;
    while (vertices != end && writeCut(vertices))
        vertices += VertexNum;
    return vertices == end;
}

// Of whole quads. Both kinds of vertices begin with x and y; what else a register holds is not looked at.
template <typename Vertex>
bool QuadWriter::isInside(const Vertex* vertices, unsigned int vertexNum) const
{
    const __m128 leftTop = _mm_loadu_ps(&mBox.left);
    const __m128 rightBottom = _mm_movehl_ps(leftTop, leftTop);
    __m128 low = rightBottom;
    __m128 high = leftTop;
    for (const Vertex* end = vertices + vertexNum; vertices != end; vertices += VertexNum)
    {
        for (unsigned int i = 0; i < VertexNum; ++i)
        {
            const __m128 vertex = _mm_loadu_ps(&vertices[i].x);
            low = _mm_min_ps(low, vertex);
            high = _mm_max_ps(high, vertex);
        }
    }
    constexpr int Both = 3;
    const __m128 inside = _mm_and_ps(_mm_cmple_ps(leftTop, low), _mm_cmple_ps(high, rightBottom));
    return (_mm_movemask_ps(inside) & Both) == Both;
}

template <typename Vertex>
bool QuadWriter::writeCut(const Vertex* corner)
{
    convert(corner, VertexNum);
    return finishCut(sizeof(Vertex) == sizeof(sTexturedDeviceVertex) ? 1.0f : 0.0f);
}
