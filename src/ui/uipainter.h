#pragma once

#include "foundation/autostring.h"
#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "foundation/ssize.h"
#include "render/drawstate.h"

class DrawContext;
class Texture;
struct sColorLine;
struct UIColorScheme;

// What every element draws with, for the length of one paint job on one thread. It adds an origin to all
// coordinates and passes the primitives on to ToolSystem; the bevels and the layout of text live here.
class UIPainter
{
public:
    // All elements are painted in this view, whose viewport limits where windows are taken.
    static constexpr unsigned int InterfaceView = 5;

    // Passed on to the draw context as they are; text is always Alpha and Nearest.
    using eBlendMode = ::eBlendMode;
    using eTextureFiltering = ::eTextureFiltering;

    // Where a text stands in its rectangle.
    enum class eAlignment : unsigned int
    {
        LeftTop,
        LeftMiddle,
        LeftBottom,
        CenterTop,
        CenterMiddle,
        CenterBottom,
        RightTop,
        RightMiddle,
        RightBottom,
    };

    // So many characters at most can be asked to fit into a rectangle.
    static constexpr int MaximumFit = 254;

    // The context outlives the painter.
    UIPainter(DrawContext* context, unsigned int priority);

    UIPainter(const UIPainter&) = delete;
    UIPainter& operator=(const UIPainter&) = delete;

    // The colours of the moment; those of the start while there is no UISystem. Any thread.
    static const UIColorScheme& getColors();

    // Every character has this size in pixels.
    static sSize getFontSize();

    // The width of a text in pixels; 0 for null.
    static int getTextWidth(const char* text);

    // Elements that draw one piece for each that a document holds ask before each of them, and stop when there is no
    // room: the memory of a frame is limited, and what lies in front of them needs some as well.
    bool hasRoom() const;

    void setPriority(unsigned int priority);
    void increasePriority() { setPriority(mPriority + 1); }
    void decreasePriority() { setPriority(mPriority - 1); }

    // `rect` limits all drawing, in view coordinates; `origin` is added to every point from now on.
    void setRegion(const sRect& rect, const sPoint& origin);
    void setBlendMode(eBlendMode mode);
    void setTexture(Texture* texture) { mTexture = texture; }
    void setTextureFiltering(eTextureFiltering filtering);

    void drawLine(const sPoint& a, const sPoint& b, sColor colorA, sColor colorB);
    void drawLine(const sPoint& a, const sPoint& b, sColor color);

    // So many at most as ToolSystem takes at once; a UILineRun takes any number.
    void drawLines(const sColorLine* lines, unsigned int num);

    void drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor colorA, sColor colorB, sColor colorC);
    void drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor color);
    void drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor colorA, sColor colorB, sColor colorC,
                      const sTexcoord& texA, const sTexcoord& texB, const sTexcoord& texC);
    void drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor color, const sTexcoord& texA,
                      const sTexcoord& texB, const sTexcoord& texC);

    // Colours in the order top left, top right, bottom left, bottom right.
    void drawRect(const sRect& rect, sColor color);
    void drawRect(const sRect& rect, sColor color1, sColor color2, sColor color3, sColor color4);
    void drawRect(const sRect& rect, sColor color, const sTexcoord& texTopLeft, const sTexcoord& texBottomRight);
    void drawRect(const sRect& rect, sColor color1, sColor color2, sColor color3, sColor color4,
                  const sTexcoord& texTopLeft, const sTexcoord& texBottomRight);

    // One pixel wide, on the inside of the rectangle.
    void drawFrame(const sRect& rect, sColor color);
    void drawConvexRect(const sRect& rect);
    void drawConcaveRect(const sRect& rect);
    void drawConcaveLine(const sPoint& a, const sPoint& b);

    // An engraved box with what fits of the caption in its top edge; null has no caption and no gap.
    void drawGroup(const sRect& rect, const char* caption, sColor color);
    void drawGroup(const sRect& rect, const AutoString& caption, sColor color);

    // Nothing is drawn of a null or empty text.
    void drawString(const sPoint& point, const char* text, sColor color);
    void drawString(const sPoint& point, const AutoString& text, sColor color);

    // Draws what of the text fits, its beginning, middle or end by the alignment, and no pixel outside `rect`.
    void drawString(const sRect& rect, const char* text, sColor color, eAlignment alignment);
    void drawString(const sRect& rect, const AutoString& text, sColor color, eAlignment alignment);

private:
    void beginPlain();
    void beginTextured();
    void drawBevel(const sRect& rect, sColor topLeft, sColor bottomRight);
    void drawGlyphs(const sPoint& position, const char* text, sColor color, const sRect& clip);

    DrawContext* mContext;
    Texture* mTexture = nullptr;
    eBlendMode mBlendMode = eBlendMode::Opaque;
    eTextureFiltering mTextureFiltering = eTextureFiltering::Linear;
    sPoint mOrigin = sPoint::Zero;
    unsigned int mPriority;
};
