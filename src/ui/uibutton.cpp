#include "ui/uibutton.h"

#include "ui/uicolor.h"
#include "ui/uipainter.h"

namespace
{
constexpr unsigned int FirstButton = UIMouseDownMessage::FirstButton;

constexpr sSize PulldownMinimum{12, 16};
constexpr sSize SystemSize{14, 14};

// Between an arrow and the edges of its button.
constexpr int ArrowMargin = 3;

struct sLine
{
    sPoint from;
    sPoint to;
};

void drawArrow(UIPainter* painter, const sRect& rect, UISpinButton::eDirection direction)
{
    const int left = rect.left + ArrowMargin;
    const int top = rect.top + ArrowMargin;
    const int right = rect.right - ArrowMargin;
    const int bottom = rect.bottom - ArrowMargin;
    const int middleX = rect.left + static_cast<int>(rect.getWidth() / 2);
    const int middleY = rect.top + static_cast<int>(rect.getHeight() / 2);
    const auto draw = [painter](const sPoint& tip, const sPoint& base1, const sPoint& base2)
    {
        painter->drawTriangle(tip, base1, base2, UIPainter::getColors().mFontColor);
    };

    switch (direction)
    {
    case UISpinButton::eDirection::Left: draw({left, middleY}, {right, top}, {right, bottom}); break;
    case UISpinButton::eDirection::Right: draw({right, middleY}, {left, top}, {left, bottom}); break;
    case UISpinButton::eDirection::Up: draw({middleX, top}, {left, bottom}, {right, bottom}); break;
    case UISpinButton::eDirection::Down: draw({middleX, bottom}, {left, top}, {right, top}); break;
    }
}

template <std::size_t Num>
void drawLines(UIPainter* painter, const sLine (&lines)[Num])
{
    for (const sLine& line : lines)
        painter->drawLine(line.from, line.to, UIPainter::getColors().mFontColor);
}

// A window with a heavy title bar.
void drawMaximize(UIPainter* painter, const sRect& r)
{
    drawLines(painter, {{{r.left + 2, r.top + 2}, {r.right - 3, r.top + 2}},
                        {{r.left + 2, r.top + 3}, {r.right - 3, r.top + 3}},
                        {{r.left + 2, r.top + 4}, {r.left + 2, r.bottom - 3}},
                        {{r.right - 3, r.top + 2}, {r.right - 3, r.bottom - 3}},
                        {{r.left + 2, r.bottom - 3}, {r.right - 2, r.bottom - 3}}});
}

void drawBar(UIPainter* painter, const sRect& r, int y)
{
    drawLines(painter, {{{r.left + 2, y}, {r.right - 2, y}}});
}

void drawCross(UIPainter* painter, const sRect& r)
{
    drawLines(painter, {{{r.left + 4, r.top + 4}, {r.right - 3, r.bottom - 3}},
                        {{r.left + 4, r.bottom - 4}, {r.right - 3, r.top + 3}}});
}
}

UIButton::UIButton()
{
    setBorderStyle(eBorderStyle::Convex);
}

UIButton::~UIButton()
{
    delete mFunctor;
}

void UIButton::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawRect(getOwnRegion(), colors.mWindowColor);
    drawBorder(painter);
    if (mCaption)
        painter->drawString(getOwnRegion(), mCaption, colors.mFontColor, UIPainter::eAlignment::CenterMiddle);
}

// On purpose: a position in the button's own coordinates is compared with a region of the view.
void UIButton::eventMouseMove(const sPoint& position)
{
    if (isDragging() && getDragButton() == FirstButton)
        mPressed = getAbsRegion().intersect(position);
}

void UIButton::eventMouseDown(const sPoint&, unsigned int button)
{
    if (button != FirstButton)
        return;
    mPressed = true;
    setBorderStyle(eBorderStyle::Concave);
}

// Any button that comes up ends the press.
void UIButton::eventMouseUp(const sPoint& position, unsigned int button)
{
    if (mFunctor && button == FirstButton && getOwnRegion().intersect(position))
        (*mFunctor)(this);
    mPressed = false;
    setBorderStyle(eBorderStyle::Convex);
}

UISpinButton::UISpinButton(eDirection direction, unsigned int firstDelay, unsigned int repeatInterval)
    : mDirection(direction), mFirstDelay(firstDelay), mRepeatInterval(repeatInterval)
{
}

void UISpinButton::eventPaint(UIPainter* painter)
{
    UIButton::eventPaint(painter);
    drawArrow(painter, getOwnRegion(), mDirection);
}

void UIPulldownButton::eventPaint(UIPainter* painter)
{
    UIButton::eventPaint(painter);
    drawArrow(painter, getOwnRegion(), UISpinButton::eDirection::Down);
}

void UIPulldownButton::init()
{
    setMinimumSize(PulldownMinimum);
}

UISystemButton::UISystemButton(eButtonType type) : mButtonType(type)
{
    init();
}

void UISystemButton::eventPaint(UIPainter* painter)
{
    UIButton::eventPaint(painter);
    const sRect rect = getOwnRegion();
    switch (mButtonType)
    {
    case eButtonType::Maximize: drawMaximize(painter, rect); break;
    case eButtonType::Minimize: drawBar(painter, rect, rect.bottom - 3); break;
    case eButtonType::Normalize: drawBar(painter, rect, (rect.top + rect.bottom) / 2); break;
    case eButtonType::Close: drawCross(painter, rect); break;
    }
}

void UISystemButton::init()
{
    setMinimumSize(SystemSize);
    setSize(SystemSize);
}
