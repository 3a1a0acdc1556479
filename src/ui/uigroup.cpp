#include "ui/uigroup.h"

#include "ui/uicolor.h"
#include "ui/uiflow.h"
#include "ui/uipainter.h"

#include <algorithm>

namespace
{
constexpr int TitleHeight = 16;
constexpr int TitleInset = 2;

// On purpose: behind an element that begins a new row, the next one follows without a gap.
constexpr sUIFlow GroupFlow{.top = TitleHeight, .gapBehindWrap = 0};
}

void UIGroup::align(unsigned int width)
{
    const sSize used = GroupFlow.layOut(*this, width);
    const sSize size{std::max(used.width, width), used.height};
    if (size != getSize())
        setSize(size);
}

void UIGroup::update(float deltaTime)
{
    align(getSize().width);
    UIBase::update(deltaTime);
}

void UIGroup::eventCreate()
{
    align(getSize().width);
}

void UIGroup::eventSize()
{
    align(getSize().width);
}

void UIGroup::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    const sRect title(TitleInset, TitleInset, static_cast<int>(getSize().width) - TitleInset, TitleHeight);
    painter->drawRect(title, colors.mActiveTitleBarColor);
    painter->drawString(title, mCaption, colors.mActiveTitleFontColor, UIPainter::eAlignment::LeftMiddle);
}
