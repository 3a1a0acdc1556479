#include "ui/uipainter.h"

#include "foundation/dev.h"
#include "render/drawcontext.h"
#include "tool/toolsystem.h"
#include "ui/uisystem.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{
constexpr int FontWidth = ToolSystem::FontWidth;
constexpr int FontHeight = ToolSystem::FontHeight;

// Between the edge of a group and its caption, and on both sides of the caption.
constexpr int CaptionIndent = 6;
constexpr int CaptionGap = 2;

enum class eSide : unsigned int
{
    Begin,
    Middle,
    End,
};

// The alignments are three horizontal groups of three vertical ones.
eSide getHorizontal(UIPainter::eAlignment alignment)
{
    return static_cast<eSide>(static_cast<unsigned int>(alignment) / 3);
}

eSide getVertical(UIPainter::eAlignment alignment)
{
    return static_cast<eSide>(static_cast<unsigned int>(alignment) % 3);
}

// Where a piece of the given length begins between two coordinates. The sum may be negative.
int place(eSide side, int begin, int end, int length)
{
    switch (side)
    {
    case eSide::Begin: return begin;
    case eSide::Middle: return (begin + end - length) >> 1;
    case eSide::End: return end - length;
    }
    return begin;
}

// Which part of a text is shown when it does not fit as a whole.
std::size_t getHidden(eSide side, std::size_t length, std::size_t visible)
{
    const std::size_t hidden = length - visible;
    return side == eSide::Begin ? 0 : side == eSide::Middle ? hidden / 2 : hidden;
}
}

UIPainter::UIPainter(DrawContext* context, unsigned int priority) : mContext(context)
{
    mContext->setView(InterfaceView);
    setPriority(priority);
}

const UIColorScheme& UIPainter::getColors()
{
    static constexpr UIColorScheme Default;
    const UISystem* uiSystem = UISystem::getInstance();
    return uiSystem ? *uiSystem : Default;
}

sSize UIPainter::getFontSize()
{
    return {FontWidth, FontHeight};
}

int UIPainter::getTextWidth(const char* text)
{
    return text ? static_cast<int>(std::strlen(text)) * FontWidth : 0;
}

bool UIPainter::hasRoom() const
{
    return mContext->hasRoom();
}

void UIPainter::setPriority(unsigned int priority)
{
    mPriority = priority;
    mContext->setDrawLevel(0, mPriority);
}

void UIPainter::setRegion(const sRect& rect, const sPoint& origin)
{
    mContext->setScissorRect(rect);
    mOrigin = origin;
}

void UIPainter::setBlendMode(eBlendMode mode)
{
    if (mode > eBlendMode::Subtract)
        dev_assert("Invalid blend mode.", __FILE__, __LINE__);
    mBlendMode = mode;
    mContext->setBlendMode(mBlendMode);
}

void UIPainter::setTextureFiltering(eTextureFiltering filtering)
{
    if (filtering > eTextureFiltering::Linear)
        dev_assert("Invalid texture filtering.", __FILE__, __LINE__);
    mTextureFiltering = filtering;
}

void UIPainter::drawLine(const sPoint& a, const sPoint& b, sColor colorA, sColor colorB)
{
    beginPlain();
    ToolSystem::drawLine(mContext, a + mOrigin, b + mOrigin, colorA, colorB);
}

void UIPainter::drawLine(const sPoint& a, const sPoint& b, sColor color)
{
    drawLine(a, b, color, color);
}

void UIPainter::drawLines(const sColorLine* lines, unsigned int num)
{
    beginPlain();
    ToolSystem::drawLines(mContext, lines, num, mOrigin);
}

void UIPainter::drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor colorA, sColor colorB,
                             sColor colorC)
{
    beginPlain();
    ToolSystem::drawTriangle(mContext, a + mOrigin, b + mOrigin, c + mOrigin, colorA, colorB, colorC);
}

void UIPainter::drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor color)
{
    drawTriangle(a, b, c, color, color, color);
}

void UIPainter::drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor colorA, sColor colorB,
                             sColor colorC, const sTexcoord& texA, const sTexcoord& texB, const sTexcoord& texC)
{
    beginTextured();
    ToolSystem::drawTriangle(mContext, a + mOrigin, b + mOrigin, c + mOrigin, colorA, colorB, colorC, texA, texB, texC);
}

void UIPainter::drawTriangle(const sPoint& a, const sPoint& b, const sPoint& c, sColor color, const sTexcoord& texA,
                             const sTexcoord& texB, const sTexcoord& texC)
{
    drawTriangle(a, b, c, color, color, color, texA, texB, texC);
}

void UIPainter::drawRect(const sRect& rect, sColor color)
{
    drawRect(rect, color, color, color, color);
}

void UIPainter::drawRect(const sRect& rect, sColor color1, sColor color2, sColor color3, sColor color4)
{
    beginPlain();
    ToolSystem::drawRect(mContext, rect + mOrigin, color1, color2, color3, color4);
}

void UIPainter::drawRect(const sRect& rect, sColor color, const sTexcoord& texTopLeft, const sTexcoord& texBottomRight)
{
    drawRect(rect, color, color, color, color, texTopLeft, texBottomRight);
}

void UIPainter::drawRect(const sRect& rect, sColor color1, sColor color2, sColor color3, sColor color4,
                         const sTexcoord& texTopLeft, const sTexcoord& texBottomRight)
{
    beginTextured();
    ToolSystem::drawRect(mContext, rect + mOrigin, color1, color2, color3, color4, texTopLeft, texBottomRight);
}

void UIPainter::drawFrame(const sRect& rect, sColor color)
{
    drawBevel(rect, color, color);
}

void UIPainter::drawConvexRect(const sRect& rect)
{
    drawBevel(rect, getColors().mHighLightColor, getColors().mDarkLightColor);
}

void UIPainter::drawConcaveRect(const sRect& rect)
{
    drawBevel(rect, getColors().mDarkLightColor, getColors().mHighLightColor);
}

void UIPainter::drawConcaveLine(const sPoint& a, const sPoint& b)
{
    const bool steep = std::abs(b.x - a.x) <= std::abs(b.y - a.y);
    const sPoint shift = steep ? sPoint(1, 0) : sPoint(0, 1);
    const sColorLine lines[] = {{a, b, getColors().mDarkLightColor},
                                {a + shift, b + shift, getColors().mHighLightColor}};
    drawLines(lines, 2);
}

// The frame starts half a line of text below the top of the rectangle, so that the caption stands in its edge.
void UIPainter::drawGroup(const sRect& rect, const char* caption, sColor color)
{
    const sRect box(rect.left, rect.top + FontHeight / 2, rect.right - 1, rect.bottom - 1);
    sRect label(rect.left + CaptionIndent, rect.top, 0, rect.top + FontHeight);

    drawConcaveLine({box.right - 1, box.top}, {box.right - 1, box.bottom + 1});
    drawConcaveLine({box.left, box.bottom - 1}, {box.right, box.bottom - 1});
    if (caption)
    {
        const int widest = label.left + MaximumFit * FontWidth;
        label.right = std::min({label.left + getTextWidth(caption), rect.right - CaptionIndent, widest});
        drawConcaveLine({box.left, box.top}, {label.left - CaptionGap, box.top});
        drawConcaveLine({label.right + CaptionGap, box.top}, {box.right + 1, box.top});
    }
    else
        drawConcaveLine({box.left, box.top}, {box.right + 1, box.top});
    drawConcaveLine({box.left, box.top + 1}, {box.left, box.bottom + 1});
    drawString(label, caption, color, eAlignment::LeftMiddle);
}

void UIPainter::drawGroup(const sRect& rect, const AutoString& caption, sColor color)
{
    drawGroup(rect, caption.c_str(), color);
}

void UIPainter::drawString(const sPoint& point, const char* text, sColor color)
{
    if (!text || !*text)
        return;
    // Nothing is seen of a character that begins behind the region.
    sRect clip = sRect::Max;
    clip.right = mContext->getState().scissor.right + FontWidth;
    drawGlyphs(point + mOrigin, text, color, clip);
}

void UIPainter::drawString(const sPoint& point, const AutoString& text, sColor color)
{
    drawString(point, text.c_str(), color);
}

void UIPainter::drawString(const sRect& rect, const char* text, sColor color, eAlignment alignment)
{
    const long long width = static_cast<long long>(rect.right) - rect.left;
    const long long height = static_cast<long long>(rect.bottom) - rect.top;
    if (!text || !*text || height < FontHeight || width < FontWidth)
        return;

    const std::size_t length = std::strlen(text);
    // One partly visible character counts.
    const std::size_t visible = std::min(length, static_cast<std::size_t>(width + FontWidth - 1) / FontWidth);
    if (visible > MaximumFit)
        dev_assert("Too long string.", __FILE__, __LINE__);

    const eSide side = getHorizontal(alignment);
    char buffer[MaximumFit + 1];
    if (visible < length)
    {
        std::memcpy(buffer, text + getHidden(side, length, visible), visible);
        buffer[visible] = '\0';
        text = buffer;
    }

    const int extent = static_cast<int>(visible) * FontWidth;
    const sPoint position = mOrigin + sPoint(place(side, rect.left, rect.right, extent),
                                             place(getVertical(alignment), rect.top, rect.bottom, FontHeight));
    sRect clip = rect + mOrigin;
    if (extent <= width)
    {
        drawGlyphs(position, text, color, clip);
        return;
    }
    // ToolSystem clips whole characters only; the scissor cuts the one that is partly visible.
    const sRect scissor = mContext->getState().scissor;
    mContext->setScissorRect(scissor & clip);
    clip.left = position.x;
    clip.right = position.x + extent;
    drawGlyphs(position, text, color, clip);
    mContext->setScissorRect(scissor);
}

void UIPainter::drawString(const sRect& rect, const AutoString& text, sColor color, eAlignment alignment)
{
    drawString(rect, text.c_str(), color, alignment);
}

void UIPainter::beginPlain()
{
    mContext->setVertexDecl(eVertexDecl::Plain);
}

void UIPainter::beginTextured()
{
    mContext->setVertexDecl(eVertexDecl::Textured);
    mContext->setTextureFiltering(mTextureFiltering);
    if (mTexture)
        mContext->setTexture(mTexture);
}

void UIPainter::drawBevel(const sRect& rect, sColor topLeft, sColor bottomRight)
{
    beginPlain();
    ToolSystem::drawBevel(mContext, rect + mOrigin, topLeft, bottomRight);
}

// Texture and filtering are not put back: textured primitives set their own each time.
void UIPainter::drawGlyphs(const sPoint& position, const char* text, sColor color, const sRect& clip)
{
    mContext->setBlendMode(eBlendMode::Alpha);
    mContext->setVertexDecl(eVertexDecl::Textured);
    mContext->setTextureFiltering(eTextureFiltering::Nearest);
    mContext->setTexture(ToolSystem::getInstance()->getFontTexture());
    ToolSystem::drawString(mContext, position, text, FontWidth, color, clip);
    mContext->setBlendMode(mBlendMode);
}
