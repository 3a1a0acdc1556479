#pragma once

#include "application/system.h"
#include "foundation/scolor.h"
#include "foundation/singleton.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "render/drawcontext.h"
#include "tool/colorline.h"

#include <array>

class Texture;

// Drawing on the spot: rectangles, triangles, lines and the text of a built-in font. The lower layer writes into a
// context of the caller's; the upper layer keeps one context from its preprocess() to its postprocess() and may be
// called by any thread in between, one whole primitive at a time.
class ToolSystem : public System, public Singleton<ToolSystem>
{
    REFLECTED(ToolSystem)

public:
    // What the upper layer sets on its context for one primitive.
    struct Context
    {
        unsigned int view;
        unsigned int drawLevel;
        unsigned int subLevel;
        sRect clip; // inside the viewport of the view
        DrawContext::eBlendMode blendMode;
        DrawContext::eTextureFiltering filtering;
        Texture* texture;
    };

    // A character is a cell of 6 by 12 pixels at its natural size.
    static constexpr unsigned int FontWidth = 6;
    static constexpr unsigned int FontHeight = 12;
    static constexpr unsigned int FontTextureSize = 128;

    // The middle of 2 by 2 opaque white texels, which no character has.
    static constexpr sTexcoord SolidTexel{FontTextureSize - 1, FontTextureSize - 1};

    // The temporary allocator, if there is to be one, must exist by now.
    ToolSystem();
    ~ToolSystem() override;
    void destroy() override;

    void setup() override;
    void preprocess() override;
    void postprocess() override;
    void makeUIList(List<UIBase>& list) override;

    Texture* getFontTexture() const { return mpFontTexture; }

    // Lower layer: no lock, and the state of the context stays as the caller set it. Corners come in the order top
    // left, top right, bottom left, bottom right.
    static void drawRect(DrawContext* context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3);
    static void drawRect(DrawContext* context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3,
                         const sTexcoord& topLeft, const sTexcoord& bottomRight);
    static void drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                             sColor c1, sColor c2);
    static void drawTriangle(DrawContext* context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                             sColor c1, sColor c2, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2);
    static void drawLine(DrawContext* context, const sPoint& p0, const sPoint& p1, sColor c0, sColor c1);

    // All of them moved by `origin`; at most half as many at once as a context takes plain vertices.
    static void drawLines(DrawContext* context, const sColorLine* lines, unsigned int num, const sPoint& origin);

    // Four lines on the inside of a rectangle, each one pixel wide, in the order top, left, bottom, right.
    static void drawBevel(DrawContext* context, const sRect& rect, sColor topLeft, sColor bottomRight);

    // Draws whole characters, `size` pixels wide and twice as high, as far as they lie inside `clip`; a text that
    // starts left of or above it, or whose first character crosses it, is left out.
    static void drawString(DrawContext* context, const sPoint& position, const char* text, unsigned int size,
                           sColor color, const sRect& clip);

    // Upper layer, between preprocess() and postprocess() only.
    void drawRect(const Context& context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3,
                  const sTexcoord& topLeft, const sTexcoord& bottomRight);
    void drawRect(const Context& context, const sRect& rect, sColor color, const sTexcoord& topLeft,
                  const sTexcoord& bottomRight);
    void drawRect(const Context& context, const sRect& rect, sColor c0, sColor c1, sColor c2, sColor c3);
    void drawRect(const Context& context, const sRect& rect, sColor color);
    void drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                      sColor c1, sColor c2, const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2);
    void drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor color,
                      const sTexcoord& t0, const sTexcoord& t1, const sTexcoord& t2);
    void drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor c0,
                      sColor c1, sColor c2);
    void drawTriangle(const Context& context, const sPoint& p0, const sPoint& p1, const sPoint& p2, sColor color);
    void drawLine(const Context& context, const sPoint& p0, const sPoint& p1, sColor c0, sColor c1);
    void drawLine(const Context& context, const sPoint& p0, const sPoint& p1, sColor color);
    void drawString(const Context& context, const sPoint& position, const char* text, unsigned int size, sColor color);
    void drawString(unsigned int view, const sPoint& position, const char* text, unsigned int size, sColor color);

    // The font as one bit a pixel, 16 bytes a row, the leftmost pixel in the highest bit, the bottom row first.
    using FontData = std::array<unsigned char, FontTextureSize * FontTextureSize / 8>;
    static const FontData mFontData;

private:
    // How the upper layer sets up its context for a primitive.
    enum class eTexturing
    {
        None,
        Given,
        Font,
    };

    template <typename Draw>
    void drawLocked(const Context& context, eTexturing texturing, Draw draw);
    void pushCommonContext(const Context& context, eTexturing texturing);
    void createFontTexture();

    Texture* mpFontTexture = nullptr;
    DrawContext* mpContext = nullptr;
};
