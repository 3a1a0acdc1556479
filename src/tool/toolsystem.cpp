#include "tool/toolsystem.h"

#include "application/systemlock.h"
#include "foundation/dev.h"
#include "render/rendersystem.h"
#include "render/texture.h"
#include "render/vertex.h"
#include "render/viewsystem.h"
#include "resource/temporaryblock.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include <emmintrin.h>

REFLECT(ToolSystem, eTypeAttribute::Singleton, "System");

namespace
{
// Characters of one batch, chosen to stay well below the vertices that a context takes at once.
constexpr unsigned int ChunkLength = 200;
constexpr unsigned int VertexPerCell = 4;

// Texels as a vertex has them, in one word.
constexpr unsigned int joinTexcoord(int s, int t)
{
    return static_cast<unsigned int>(static_cast<unsigned short>(s)) |
           static_cast<unsigned int>(static_cast<unsigned short>(t)) << 16;
}

// Numbers with 16 fractional bits as the graphics library receives them.
__m128 toFloat(__m128i fixed)
{
    return _mm_mul_ps(_mm_cvtepi32_ps(fixed), _mm_set1_ps(1.0f / 65536.0f));
}

// Two points in pixels. On purpose: they wrap as numbers with 16 fractional bits do.
__m128 pixelsToFloat(__m128i pixels)
{
    return toFloat(_mm_slli_epi32(pixels, 16));
}

__m128 toFloat(int x0, int y0, int x1, int y1)
{
    return pixelsToFloat(_mm_setr_epi32(x0, y0, x1, y1));
}

// The second half of a vertex: no depth, and its colour.
__m128i toDepthAndColor(sColor color)
{
    return _mm_slli_epi64(_mm_cvtsi32_si128(std::bit_cast<int>(color)), 32);
}

// The first of two points.
template <typename Vertex>
void store(Vertex* vertex, __m128 points, __m128i depthAndColor)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(vertex), _mm_unpacklo_epi64(_mm_castps_si128(points), depthAndColor));
}

class PlainWriter
{
public:
    PlainWriter(DrawContext* context, ePrimitiveType type, unsigned int count)
        : mpVertex(static_cast<sPlainDeviceVertex*>(context->allocateDeviceVertices(type, count)))
    {
    }

    void write(__m128 points, sColor color) { store(mpVertex++, points, toDepthAndColor(color)); }

    // Through the centres of pixels.
    void writeLine(__m128 points, sColor c0, sColor c1)
    {
        const __m128 ends = _mm_add_ps(points, _mm_set1_ps(0.5f));
        write(ends, c0);
        write(_mm_movehl_ps(ends, ends), c1);
    }

private:
    sPlainDeviceVertex* mpVertex;
};

class TexturedWriter
{
public:
    TexturedWriter(DrawContext* context, ePrimitiveType type, unsigned int count)
        : mpVertex(static_cast<sTexturedDeviceVertex*>(context->allocateDeviceVertices(type, count)))
    {
    }

    void write(__m128 points, sColor color, int s, int t)
    {
        store(mpVertex, points, toDepthAndColor(color));
        const unsigned int texel = joinTexcoord(s, t);
        std::memcpy(&mpVertex->s, &texel, sizeof(texel));
        ++mpVertex;
    }

private:
    sTexturedDeviceVertex* mpVertex;
};

// The corners of a rectangle from the points left top and right bottom.
__m128 getRightTop(__m128 rect)
{
    return _mm_shuffle_ps(rect, rect, _MM_SHUFFLE(1, 2, 1, 2));
}

__m128 getLeftBottom(__m128 rect)
{
    return _mm_shuffle_ps(rect, rect, _MM_SHUFFLE(3, 0, 3, 0));
}

__m128 getRightBottom(__m128 rect)
{
    return _mm_movehl_ps(rect, rect);
}

__m128 toFloat(const sRect& rect)
{
    return toFloat(rect.left, rect.top, rect.right, rect.bottom);
}

__m128 toFloat(const sPoint& point)
{
    return toFloat(point.x, point.y, point.x, point.y);
}

// Where the picture of each character stands in the font texture: the texels of its corners in words as a vertex has
// them.
// On purpose: the code counts as a signed byte, so that what the font does not hold, control characters and bytes
// from 0x80 on, lies outside its rows and shows as a blank.
using CellTexels = std::array<unsigned int, VertexPerCell>;
constexpr std::array<CellTexels, 256> CharacterTexels = []
{
    constexpr int CharactersPerRow = 16;
    constexpr int Width = ToolSystem::FontWidth;
    constexpr int Height = ToolSystem::FontHeight;
    std::array<CellTexels, 256> texels = {};
    for (unsigned int i = 0; i < texels.size(); ++i)
    {
        const int code = static_cast<signed char>(i - ' ');
        const int s = code % CharactersPerRow * Width;
        const int t = code / CharactersPerRow * Height;
        texels[i] = {joinTexcoord(s, t), joinTexcoord(s + Width, t), joinTexcoord(s, t + Height),
                     joinTexcoord(s + Width, t + Height)};
    }
    return texels;
}();

// The cell of one character, moved along the line. Each register holds the x and y of both ends of an edge.
class Cell
{
public:
    Cell(const sPoint& position, unsigned int size, sColor color)
    {
        const sVector leftTop(position.x, position.y);
        const sVector rightBottom = leftTop + sVector(static_cast<int>(size), static_cast<int>(size * 2));
        mTop = join(leftTop.x, leftTop.y, rightBottom.x, leftTop.y);
        mBottom = join(leftTop.x, rightBottom.y, rightBottom.x, rightBottom.y);
        mRight = rightBottom.x;
        mWidth = sFixed(static_cast<int>(size), 16);
        mStep = join(mWidth, sFixed::Zero, mWidth, sFixed::Zero);
        mDepthAndColor = toDepthAndColor(color);
    }

    bool endsInside(const sRect& clip) const { return static_cast<int>(mRight) <= clip.right; }

    void advance()
    {
        mTop = _mm_add_epi32(mTop, mStep);
        mBottom = _mm_add_epi32(mBottom, mStep);
        mRight += mWidth;
    }

    void write(sTexturedDeviceVertex* vertex, char character) const
    {
        const CellTexels& texels = CharacterTexels[static_cast<unsigned char>(character)];
        const __m128 top = toFloat(mTop);
        const __m128 bottom = toFloat(mBottom);
        write(vertex, top, texels[0]);
        write(vertex + 1, _mm_movehl_ps(top, top), texels[1]);
        write(vertex + 2, bottom, texels[2]);
        write(vertex + 3, _mm_movehl_ps(bottom, bottom), texels[3]);
    }

    // Four corners without an area.
    void writePoint(sTexturedDeviceVertex* vertex) const
    {
        for (unsigned int i = 0; i < VertexPerCell; ++i)
            write(vertex + i, toFloat(mTop), 0);
    }

private:
    static __m128i join(sFixed x0, sFixed y0, sFixed x1, sFixed y1)
    {
        return _mm_setr_epi32(x0.getRaw(), y0.getRaw(), x1.getRaw(), y1.getRaw());
    }

    void write(sTexturedDeviceVertex* vertex, __m128 points, unsigned int texel) const
    {
        store(vertex, points, mDepthAndColor);
        std::memcpy(&vertex->s, &texel, sizeof(texel));
    }

    __m128i mTop;
    __m128i mBottom;
    __m128i mStep;
    __m128i mDepthAndColor;
    sFixed mRight;
    sFixed mWidth;
};

// Whether the first cell lies inside the clip; in 64 bits, since positions may be anything.
bool isInside(const sPoint& position, unsigned int size, const sRect& clip)
{
    const long long right = static_cast<long long>(position.x) + size;
    const long long bottom = static_cast<long long>(position.y) + 2ll * size;
    return position.x >= clip.left && position.y >= clip.top && right <= clip.right && bottom <= clip.bottom;
}
}

ToolSystem::ToolSystem() : Singleton("ToolSystem already instanced.")
{
    setProcessEnable(true, false, true);
    createFontTexture();
    RenderSystem::getInstance()->setSolidTexel(mpFontTexture, SolidTexel);
    DEV_TRACE("ToolSystem : start.\n");
}

ToolSystem::~ToolSystem()
{
    RenderSystem::getInstance()->setSolidTexel(nullptr, SolidTexel);
    mpFontTexture->release();
    DEV_TRACE("ToolSystem : end.\n");
}

void ToolSystem::destroy()
{
    delete this;
}

void ToolSystem::setup()
{
    addPreprocessDependency(RenderSystem::getInstance());
}

void ToolSystem::preprocess()
{
    mpContext = RenderSystem::getInstance()->popContext();
}

void ToolSystem::postprocess()
{
    RenderSystem::getInstance()->pushContext(mpContext);
    mpContext = nullptr;
}

void ToolSystem::drawRect(DrawContext* context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3)
{
    const __m128 corners = toFloat(rect);
    PlainWriter writer(context, ePrimitiveType::Quads, 4);
    writer.write(corners, c0);
    writer.write(getRightTop(corners), c1);
    writer.write(getLeftBottom(corners), c2);
    writer.write(getRightBottom(corners), c3);
}

void ToolSystem::drawRect(DrawContext* context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3,
                          const sTexcoord& topLeft, const sTexcoord& bottomRight)
{
    const __m128 corners = toFloat(rect);
    TexturedWriter writer(context, ePrimitiveType::Quads, 4);
    writer.write(corners, c0, topLeft.x, topLeft.y);
    writer.write(getRightTop(corners), c1, bottomRight.x, topLeft.y);
    writer.write(getLeftBottom(corners), c2, topLeft.x, bottomRight.y);
    writer.write(getRightBottom(corners), c3, bottomRight.x, bottomRight.y);
}

void ToolSystem::drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2)
{
    PlainWriter writer(context, ePrimitiveType::Triangles, 3);
    writer.write(toFloat(p0), c0);
    writer.write(toFloat(p1), c1);
    writer.write(toFloat(p2), c2);
}

void ToolSystem::drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2)
{
    TexturedWriter writer(context, ePrimitiveType::Triangles, 3);
    writer.write(toFloat(p0), c0, t0.x, t0.y);
    writer.write(toFloat(p1), c1, t1.x, t1.y);
    writer.write(toFloat(p2), c2, t2.x, t2.y);
}

void ToolSystem::drawLine(DrawContext* context, const sPoint& p0, const sPoint& p1, sColor c0, sColor c1)
{
    PlainWriter(context, ePrimitiveType::Lines, 2).writeLine(toFloat(p0.x, p0.y, p1.x, p1.y), c0, c1);
}

void ToolSystem::drawLines(DrawContext* context, const sColorLine* lines, unsigned int num, const sPoint& origin)
{
    static_assert(offsetof(sColorLine, to) == sizeof(sPoint), "Both ends are read at once.");
    const __m128i shift = _mm_setr_epi32(origin.x, origin.y, origin.x, origin.y);
    PlainWriter writer(context, ePrimitiveType::Lines, 2 * num);
    for (const sColorLine* line = lines; line != lines + num; ++line)
    {
        const __m128i ends = _mm_loadu_si128(reinterpret_cast<const __m128i*>(line));
        writer.writeLine(pixelsToFloat(_mm_add_epi32(ends, shift)), line->color, line->color);
    }
}

void ToolSystem::drawBevel(DrawContext* context, const sRect& rect, sColor topLeft, sColor bottomRight)
{
    PlainWriter writer(context, ePrimitiveType::Lines, 8);
    forEachEdge(rect,
                [&](const sPoint& from, const sPoint& to, bool isTopLeft)
                {
                    const sColor color = isTopLeft ? topLeft : bottomRight;
                    writer.writeLine(toFloat(from.x, from.y, to.x, to.y), color, color);
                });
}

void ToolSystem::drawString(DrawContext* context, const sPoint& position, const char* text, unsigned int size,
                            sColor color, const sRect& clip)
{
    if (!isInside(position, size, clip))
        return;
    std::size_t rest = std::strlen(text);
    for (Cell cell(position, size, color); rest && cell.endsInside(clip);)
    {
        const unsigned int length = static_cast<unsigned int>(std::min<std::size_t>(rest, ChunkLength));
        auto* vertex = static_cast<sTexturedDeviceVertex*>(
            context->allocateDeviceVertices(ePrimitiveType::Quads, length * VertexPerCell));
        const sTexturedDeviceVertex* end = vertex + length * VertexPerCell;
        for (unsigned int i = 0; i < length && cell.endsInside(clip); ++i, cell.advance(), vertex += VertexPerCell)
            cell.write(vertex, text[i]);
        // Characters behind the clip are part of the batch all the same; without an area they do not show.
        for (; vertex != end; vertex += VertexPerCell)
            cell.writePoint(vertex);
        text += length;
        rest -= length;
    }
}

void ToolSystem::drawRect(const Context& context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3,
                          const sTexcoord& topLeft, const sTexcoord& bottomRight)
{
    drawLocked(context, eTexturing::Given, [&] { drawRect(mpContext, rect, c0, c1, c2, c3, topLeft, bottomRight); });
}

void ToolSystem::drawRect(const Context& context, const sRect& rect, sColor color, const sTexcoord& topLeft,
                          const sTexcoord& bottomRight)
{
    drawRect(context, rect, color, color, color, color, topLeft, bottomRight);
}

void ToolSystem::drawRect(const Context& context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3)
{
    drawLocked(context, eTexturing::None, [&] { drawRect(mpContext, rect, c0, c1, c2, c3); });
}

void ToolSystem::drawRect(const Context& context, const sRect& rect, sColor color)
{
    drawRect(context, rect, color, color, color, color);
}

void ToolSystem::drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2)
{
    drawLocked(context, eTexturing::Given, [&] { drawTriangle(mpContext, p0, p1, p2, c0, c1, c2, t0, t1, t2); });
}

void ToolSystem::drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2,
                              sColor color, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2)
{
    drawTriangle(context, p0, p1, p2, color, color, color, t0, t1, t2);
}

void ToolSystem::drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2)
{
    drawLocked(context, eTexturing::None, [&] { drawTriangle(mpContext, p0, p1, p2, c0, c1, c2); });
}

void ToolSystem::drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2,
                              sColor color)
{
    drawTriangle(context, p0, p1, p2, color, color, color);
}

void ToolSystem::drawLine(const Context& context, const sPoint& p0, const sPoint& p1, sColor c0, sColor c1)
{
    drawLocked(context, eTexturing::None, [&] { drawLine(mpContext, p0, p1, c0, c1); });
}

void ToolSystem::drawLine(const Context& context, const sPoint& p0, const sPoint& p1, sColor color)
{
    drawLine(context, p0, p1, color, color);
}

void ToolSystem::drawString(const Context& context, const sPoint& position, const char* text, unsigned int size,
                            sColor color)
{
    drawLocked(context, eTexturing::Font, [&] { drawString(mpContext, position, text, size, color, sRect::Max); });
}

void ToolSystem::drawString(unsigned int view, const sPoint& position, const char* text, unsigned int size,
                            sColor color)
{
    const Context context = {.view = view,
                             .drawLevel = 0,
                             .subLevel = 0,
                             .clip = ViewSystem::getInstance()->getViewport(view),
                             .blendMode = eBlendMode::Alpha,
                             .filtering = eTextureFiltering::Nearest,
                             .texture = nullptr};
    drawString(context, position, text, size, color);
}

// The lock covers everything from the first state to the last vertex.
template <typename Draw>
void ToolSystem::drawLocked(const Context& context, eTexturing texturing, Draw draw)
{
    const SystemLock lock(*this);
    if (!mpContext)
        dev_assert("Can't draw this period.", __FILE__, __LINE__);
    pushCommonContext(context, texturing);
    draw();
}

void ToolSystem::pushCommonContext(const Context& context, eTexturing texturing)
{
    const sRect& viewport = ViewSystem::getInstance()->getViewport(context.view);
    const bool textured = texturing != eTexturing::None;
    const bool font = texturing == eTexturing::Font;

    mpContext->setView(context.view);
    mpContext->setDrawLevel(context.drawLevel, context.subLevel);
    mpContext->setRenderTarget(nullptr);
    mpContext->setBlendMode(font ? eBlendMode::Alpha : context.blendMode);
    mpContext->setViewport(viewport);
    mpContext->setScissorRect(viewport & context.clip);
    mpContext->setProjectionRect(ViewSystem::getInstance()->getProjection(context.view));
    mpContext->setVertexDecl(textured ? eVertexDecl::Textured : eVertexDecl::Plain);
    if (!textured)
        return;
    mpContext->setTextureFiltering(context.filtering);
    mpContext->setTexture(font ? mpFontTexture : context.texture);
}

void ToolSystem::createFontTexture()
{
    constexpr unsigned int RowBytes = FontTextureSize / 8;
    const TemporaryBlock block(FontTextureSize * FontTextureSize * sizeof(sColor));
    if (!block)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    unsigned char* pixel = block.get();
    for (unsigned int y = 0; y < FontTextureSize; ++y)
    {
        const unsigned char* row = mFontData.data() + (FontTextureSize - 1 - y) * RowBytes;
        for (unsigned int x = 0; x < FontTextureSize; ++x, pixel += sizeof(sColor))
        {
            const bool solid = x >= SolidTexel.x - 1u && y >= SolidTexel.y - 1u;
            const bool set = solid || (row[x / 8] >> (7 - x % 8) & 1);
            const sColor color(255, 255, 255, set ? 255 : 0);
            std::memcpy(pixel, &color, sizeof(color));
        }
    }
    mpFontTexture = new Texture(FontTextureSize, FontTextureSize, false, block.get());
}
