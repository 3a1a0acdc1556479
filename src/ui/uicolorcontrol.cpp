#include "ui/uicolorcontrol.h"

#include "reflection/typeset.h"
#include "ui/uipainter.h"

#include <algorithm>

namespace
{
constexpr unsigned int ColorType = ValueTraits<sColor>::type;
constexpr unsigned int ColorFType = ValueTraits<sColorF>::type;

constexpr sSize SliderMinimumSize{96, 8};

// The places of a slider, the last one included.
constexpr int SliderEnd = 127;
constexpr int ChannelEnd = 255;
constexpr unsigned int AlphaChannel = 3;

constexpr int SliderLeft = 20;
constexpr int SliderDrop = 4;
constexpr int BoxGap = 4;
constexpr unsigned int BoxWidth = 32;

// The box, and the space on both sides of slider and box.
constexpr unsigned int WidthBesideSlider = 64;
constexpr unsigned int MinimumWidth = SliderMinimumSize.width + 80;
constexpr unsigned int StartWidth = SliderEnd + 1 + WidthBesideSlider;
}

UIColorControl::UIColorControl(PropertyBase* property, bool disable, unsigned int index)
    : UIComponentControl(property, disable, index)
{
    requireType(typeRange(ColorType, ColorFType));
    if (property->getType() == ColorType)
        makeRows<sColor>(MinimumWidth);
    else
        makeRows<sColorF>(MinimumWidth);

    for (unsigned int channel = 0; channel < MaximumRowNum; ++channel)
    {
        mSlider[channel] = new UIColorSliderControl(property, disable, index, channel);
        add(mSlider[channel]);
    }
    // The least width cuts the ends of the sliders off.
    setSize({std::max(getSize().width, StartWidth), getSize().height});
    align();
}

// A slider takes what the box leaves, up to its whole line.
void UIColorControl::align()
{
    const unsigned int width = std::clamp(getSize().width - WidthBesideSlider, SliderMinimumSize.width, SliderEnd + 1u);
    for (unsigned int channel = 0; channel < MaximumRowNum; ++channel)
    {
        place(mSlider[channel], sPoint(SliderLeft, getRowTop(channel) + SliderDrop), {width, SliderMinimumSize.height});
    }
    placeBoxes(SliderLeft + static_cast<int>(width) + BoxGap, BoxWidth);
}

UIColorControl::UIColorSliderControl::UIColorSliderControl(PropertyBase* property, bool disable, unsigned int index,
                                                           unsigned int channel)
    : UIControl(property, disable, index), mChannel(channel)
{
    setMinimumSize(SliderMinimumSize);
    setBorderStyle(eBorderStyle::Concave);
    setSize(SliderMinimumSize);
}

void UIColorControl::UIColorSliderControl::setColor(const sPoint& position)
{
    sColor color = getColor();
    color[static_cast<int>(mChannel)] =
        static_cast<unsigned char>(std::clamp(position.x, 0, SliderEnd) * ChannelEnd / SliderEnd);
    if (getProperty()->getType() == ColorType)
        getProperty()->setByType(color, getIndex());
    else
        getProperty()->setByType(sColorF(color), getIndex());
}

void UIColorControl::UIColorSliderControl::eventPaint(UIPainter* painter)
{
    paintGradient(painter);
    drawBorder(painter);
    paintMarker(painter);
}

void UIColorControl::UIColorSliderControl::eventMouseMove(const sPoint& position)
{
    if (isEditing())
        setColor(position);
}

void UIColorControl::UIColorSliderControl::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (!isEnabled() || !(button & UIMouseDownMessage::FirstButton))
        return;
    sendMessage(UIBeginEditMessage());
    setColor(position);
}

// Whatever ends the capture ends the edit.
void UIColorControl::UIColorSliderControl::eventMouseUp(const sPoint& /*position*/, unsigned int /*button*/)
{
    if (isEditing())
        sendMessage(UIEndEditMessage());
}

// Two quick presses are two edits.
void UIColorControl::UIColorSliderControl::eventMouseDoubleClick(const sPoint& position, unsigned int button)
{
    eventMouseDown(position, button);
}

sColor UIColorControl::UIColorSliderControl::getColor() const
{
    if (getProperty()->getType() == ColorType)
        return getProperty()->getByType<sColor>(getIndex());
    return getProperty()->getByType<sColorF>(getIndex());
}

// Alpha shows over black; the other channels show without regard to it.
void UIColorControl::UIColorSliderControl::paintGradient(UIPainter* painter) const
{
    const sRect line(0, 0, SliderEnd, static_cast<int>(getSize().height));
    sColor first = getColor();
    sColor last = first;
    first[static_cast<int>(mChannel)] = 0;
    last[static_cast<int>(mChannel)] = ChannelEnd;

    if (mChannel == AlphaChannel)
    {
        painter->drawRect(line, sColor::Black);
        painter->setBlendMode(UIPainter::eBlendMode::Alpha);
    }
    painter->drawRect(line, first, last, first, last);
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
}

// Dark on both sides, so that it stands out from any colour.
void UIColorControl::UIColorSliderControl::paintMarker(UIPainter* painter) const
{
    const int x = getColor()[static_cast<int>(mChannel)] * SliderEnd / ChannelEnd;
    const int height = static_cast<int>(getSize().height);
    painter->drawRect(sRect(x - 1, 0, x + 2, height), sColor::Black);
    painter->drawRect(sRect(x, 0, x + 1, height), sColor::White);
}
