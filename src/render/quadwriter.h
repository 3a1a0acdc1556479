#pragma once

#include "foundation/spoint.h"
#include "render/vertex.h"

#include <cstring>

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

    // As many vertices for each primitive at most, but for a diagonal.
    static constexpr unsigned int VertexNum = 4;

    // `spareNum` is how many more quads than primitives there is room for.
    QuadWriter(sJoinedDeviceVertex* destination, unsigned int spareNum, const sBox& box, const sTexcoord& solid)
        : mpEnd(destination), mSpareNum(spareNum), mBox(box)
    {
        int texel;
        std::memcpy(&texel, &solid, sizeof(texel));
        mSolid = _mm_castsi128_ps(_mm_set1_epi32(texel));
    }

    // Write the whole primitives among the vertices. False if one of them cannot be cut without a change to what of it
    // is inside; then some may have been written. A line has to run along the pixels or as a short diagonal, from the
    // centre of one to another.
    [[nodiscard]] bool writeLines(const sPlainDeviceVertex* vertices, unsigned int vertexNum);
    template <typename Vertex>
    [[nodiscard]] bool writeTriangles(const Vertex* vertices, unsigned int vertexNum);
    template <typename Vertex>
    [[nodiscard]] bool writeQuads(const Vertex* vertices, unsigned int vertexNum);

    // Behind the last vertex written.
    sJoinedDeviceVertex* getEnd() const { return mpEnd; }

private:
    using sQuad = sJoinedDeviceVertex[VertexNum];

    __m128 convert(const sTexturedDeviceVertex& vertex) const;
    __m128 convert(const sPlainDeviceVertex& vertex) const;
    template <typename Vertex>
    bool writeInside(const Vertex* vertices, unsigned int vertexNum);

    bool writeLine(const sPlainDeviceVertex* ends);
    bool writeDiagonal(__m128 first, __m128 last);
    void writeBox(__m128 box, __m128 vertex);
    template <typename Vertex>
    bool writeCut(const Vertex* corners);
    bool writeCut(sQuad& quad, float texelsPerPixel);

    // May be memory that is slow to be read.
    sJoinedDeviceVertex* mpEnd;

    unsigned int mSpareNum;
    sBox mBox;

    // The solid texel in each lane.
    __m128 mSolid;
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
    if (writeInside(vertices, wholeNum))
        return true;
    const Vertex* end = vertices + wholeNum;
    while (vertices != end && writeCut(vertices))
        vertices += VertexNum;
    return vertices == end;
}

inline __m128 QuadWriter::convert(const sTexturedDeviceVertex& vertex) const
{
    return _mm_shuffle_ps(_mm_loadu_ps(&vertex.x), _mm_loadu_ps(&vertex.y), _MM_SHUFFLE(3, 2, 1, 0));
}

inline __m128 QuadWriter::convert(const sPlainDeviceVertex& vertex) const
{
    const __m128 words = _mm_loadu_ps(&vertex.x);
    return _mm_shuffle_ps(words, _mm_unpackhi_ps(words, mSolid), _MM_SHUFFLE(3, 2, 1, 0));
}

// Writes whole quads; they count only if all of them are inside, as x and y tell.
template <typename Vertex>
bool QuadWriter::writeInside(const Vertex* vertices, unsigned int vertexNum)
{
    const __m128 leftTop = _mm_loadu_ps(&mBox.left);
    const __m128 rightBottom = _mm_movehl_ps(leftTop, leftTop);
    __m128 low = rightBottom;
    __m128 high = leftTop;
    sJoinedDeviceVertex* end = mpEnd;
    for (const Vertex* last = vertices + vertexNum; vertices != last; vertices += VertexNum)
    {
        for (unsigned int i = 0; i < VertexNum; ++i)
        {
            const __m128 vertex = convert(vertices[i]);
            low = _mm_min_ps(low, vertex);
            high = _mm_max_ps(high, vertex);
            _mm_storeu_ps(&(end++)->x, vertex);
        }
    }
    constexpr int Both = 3;
    const __m128 inside = _mm_and_ps(_mm_cmple_ps(leftTop, low), _mm_cmple_ps(high, rightBottom));
    if ((_mm_movemask_ps(inside) & Both) != Both)
        return false;
    mpEnd = end;
    return true;
}

template <typename Vertex>
bool QuadWriter::writeCut(const Vertex* corners)
{
    sQuad quad;
    for (unsigned int i = 0; i < VertexNum; ++i)
        _mm_storeu_ps(&quad[i].x, convert(corners[i]));
    return writeCut(quad, sizeof(Vertex) == sizeof(sTexturedDeviceVertex) ? 1.0f : 0.0f);
}
