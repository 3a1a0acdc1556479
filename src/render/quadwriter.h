#pragma once

#include "foundation/spoint.h"
#include "render/vertex.h"

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

    QuadWriter(sTexturedDeviceVertex* destination, const sBox& box, const sTexcoord& solid);

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
    sTexturedDeviceVertex convert(const sPlainDeviceVertex& vertex) const;
    static const sTexturedDeviceVertex& convert(const sTexturedDeviceVertex& vertex) { return vertex; }
    bool finish(float texelsPerPixel);
    bool isCuttable(const sBox& bounds, float texelsPerPixel) const;
    void cut(const sBox& bounds, const sBox& visible, float texelsPerPixel);

    // The quad at work stands at the end.
    sTexturedDeviceVertex* mpEnd;
    sBox mBox;
    short mSolidS;
    short mSolidT;
};

template <typename Vertex>
bool QuadWriter::writeTriangle(const Vertex* vertices)
{
    for (unsigned int i = 0; i < VertexNum; ++i)
        mpEnd[i] = convert(vertices[i < 2 ? i : 2]);
    return finish(0.0f);
}

template <typename Vertex>
bool QuadWriter::writeQuad(const Vertex* vertices)
{
    for (unsigned int i = 0; i < VertexNum; ++i)
        mpEnd[i] = convert(vertices[i]);
    return finish(sizeof(Vertex) == sizeof(sTexturedDeviceVertex) ? 1.0f : 0.0f);
}
