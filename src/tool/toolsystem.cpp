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
#include <cstdint>
#include <cstring>

#include <emmintrin.h>

REFLECT(ToolSystem, eTypeAttribute::Singleton, "System");

namespace
{
// Characters of one batch, chosen to stay well below the vertices that a context takes at once.
constexpr unsigned int ChunkLength = 200;

// Texels as a vertex has them, in one word.
constexpr unsigned int joinTexcoord(int s, int t)
{
    return static_cast<unsigned int>(static_cast<unsigned short>(s)) |
           static_cast<unsigned int>(static_cast<unsigned short>(t)) << 16;
}

sVector toVector(const sPoint& point)
{
    return {point.x, point.y};
}

// In whole words: the four bytes of a colour would be stored one by one, and what reads the vertex next would wait for
// each of them.
void writeVertex(sPlainVertex*& vertex, const sVector& position, sColor color)
{
    vertex->position = position;
    std::memcpy(&vertex->color, &color, sizeof(color));
    ++vertex;
}

void writeVertex(sTexturedVertex*& vertex, const sVector& position, sColor color, int s, int t)
{
    const auto low = static_cast<std::uint64_t>(static_cast<unsigned int>(position.x.getRaw())) |
                     static_cast<std::uint64_t>(static_cast<unsigned int>(position.y.getRaw())) << 32;
    const auto high = std::bit_cast<unsigned int>(color) | static_cast<std::uint64_t>(joinTexcoord(s, t)) << 32;
    const __m128i words = _mm_set_epi64x(static_cast<long long>(high), static_cast<long long>(low));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(vertex++), words);
}

template <typename Vertex>
Vertex* allocateVertices(DrawContext* context, ePrimitiveType type, unsigned int count)
{
    return static_cast<Vertex*>(context->allocateVertices(type, count));
}

// Where the picture of each character stands in the font texture, in words as a vertex has them.
// On purpose: the code counts as a signed byte, so that what the font does not hold, control characters and bytes
// from 0x80 on, lies outside its rows and shows as a blank.
constexpr std::array<unsigned int, 256> CharacterTexels = []
{
    constexpr int CharactersPerRow = 16;
    std::array<unsigned int, 256> texels = {};
    for (unsigned int i = 0; i < texels.size(); ++i)
    {
        const int code = static_cast<signed char>(i - ' ');
        const int s = code % CharactersPerRow * static_cast<int>(ToolSystem::FontWidth);
        const int t = code / CharactersPerRow * static_cast<int>(ToolSystem::FontHeight);
        texels[i] = joinTexcoord(s, t);
    }
    return texels;
}();

// The cell of one character, moved along the line. Each register holds the x and y of both ends of an edge.
class Cell
{
public:
    Cell(const sPoint& position, unsigned int size, sColor color)
    {
        const sVector leftTop = toVector(position);
        const sVector rightBottom = leftTop + sVector(static_cast<int>(size), static_cast<int>(size * 2));
        mTop = join(leftTop.x, leftTop.y, rightBottom.x, leftTop.y);
        mBottom = join(leftTop.x, rightBottom.y, rightBottom.x, rightBottom.y);
        mRight = rightBottom.x;
        mWidth = sFixed(static_cast<int>(size), 16);
        mStep = join(mWidth, sFixed::Zero, mWidth, sFixed::Zero);
        mColor = _mm_set1_epi32(std::bit_cast<int>(color));
    }

    bool endsInside(const sRect& clip) const { return static_cast<int>(mRight) <= clip.right; }

    void advance()
    {
        mTop = _mm_add_epi32(mTop, mStep);
        mBottom = _mm_add_epi32(mBottom, mStep);
        mRight += mWidth;
    }

    sTexturedVertex* write(sTexturedVertex* vertex, char character) const
    {
        constexpr int Width = ToolSystem::FontWidth;
        constexpr int Height = ToolSystem::FontHeight;
        const __m128i corners = _mm_setr_epi16(0, 0, Width, 0, 0, Height, Width, Height);
        const int texel = static_cast<int>(CharacterTexels[static_cast<unsigned char>(character)]);
        const __m128i texels = _mm_add_epi16(_mm_set1_epi32(texel), corners);
        const __m128i top = _mm_unpacklo_epi32(mColor, texels);
        const __m128i bottom = _mm_unpackhi_epi32(mColor, texels);
        store(vertex, _mm_unpacklo_epi64(mTop, top));
        store(vertex + 1, _mm_unpackhi_epi64(mTop, top));
        store(vertex + 2, _mm_unpacklo_epi64(mBottom, bottom));
        store(vertex + 3, _mm_unpackhi_epi64(mBottom, bottom));
        return vertex + 4;
    }

    // A corner without an area.
    sTexturedVertex* writePoint(sTexturedVertex* vertex) const
    {
        store(vertex, _mm_unpacklo_epi64(mTop, _mm_unpacklo_epi32(mColor, _mm_setzero_si128())));
        return vertex + 1;
    }

private:
    static __m128i join(sFixed x0, sFixed y0, sFixed x1, sFixed y1)
    {
        return _mm_setr_epi32(x0.getRaw(), y0.getRaw(), x1.getRaw(), y1.getRaw());
    }

    static void store(sTexturedVertex* vertex, __m128i words)
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(vertex), words);
    }

    __m128i mTop;
    __m128i mBottom;
    __m128i mStep;
    __m128i mColor;
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
    auto* vertex = allocateVertices<sPlainVertex>(context, ePrimitiveType::Quads, 4);
    writeVertex(vertex, sVector(rect.left, rect.top), c0);
    writeVertex(vertex, sVector(rect.right, rect.top), c1);
    writeVertex(vertex, sVector(rect.left, rect.bottom), c2);
    writeVertex(vertex, sVector(rect.right, rect.bottom), c3);
}

void ToolSystem::drawRect(DrawContext* context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3,
                          const sTexcoord& topLeft, const sTexcoord& bottomRight)
{
    auto* vertex = allocateVertices<sTexturedVertex>(context, ePrimitiveType::Quads, 4);
    writeVertex(vertex, sVector(rect.left, rect.top), c0, topLeft.x, topLeft.y);
    writeVertex(vertex, sVector(rect.right, rect.top), c1, bottomRight.x, topLeft.y);
    writeVertex(vertex, sVector(rect.left, rect.bottom), c2, topLeft.x, bottomRight.y);
    writeVertex(vertex, sVector(rect.right, rect.bottom), c3, bottomRight.x, bottomRight.y);
}

void ToolSystem::drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2)
{
    auto* vertex = allocateVertices<sPlainVertex>(context, ePrimitiveType::Triangles, 3);
    writeVertex(vertex, toVector(p0), c0);
    writeVertex(vertex, toVector(p1), c1);
    writeVertex(vertex, toVector(p2), c2);
}

void ToolSystem::drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                              sColor c1, sColor c2, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2)
{
    auto* vertex = allocateVertices<sTexturedVertex>(context, ePrimitiveType::Triangles, 3);
    writeVertex(vertex, toVector(p0), c0, t0.x, t0.y);
    writeVertex(vertex, toVector(p1), c1, t1.x, t1.y);
    writeVertex(vertex, toVector(p2), c2, t2.x, t2.y);
}

void ToolSystem::drawLine(DrawContext* context, const sPoint& p0, const sPoint& p1, sColor c0, sColor c1)
{
    auto* vertex = allocateVertices<sPlainVertex>(context, ePrimitiveType::Lines, 2);
    writeVertex(vertex, toVector(p0), c0);
    writeVertex(vertex, toVector(p1), c1);
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
        auto* vertex = allocateVertices<sTexturedVertex>(context, ePrimitiveType::Quads, length * 4);
        const sTexturedVertex* end = vertex + length * 4;
        for (unsigned int i = 0; i < length && cell.endsInside(clip); ++i, cell.advance())
            vertex = cell.write(vertex, text[i]);
        // Characters behind the clip are part of the batch all the same; without an area they do not show.
        while (vertex != end)
            vertex = cell.writePoint(vertex);
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
