#include "ui/uiflagcontrol.h"

#include "reflection/typeset.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uipainter.h"

namespace
{
constexpr unsigned int AcceptedTypes = typeRange(1, 11) | typeRange(18, 18);
constexpr sSize MinimumSize{64, 16};
constexpr int BoxSize = 12;
constexpr int NameLeft = 14;
}

// The default size leaves no room for the gap between box and name.
UIFlagControl::UIFlagControl(PropertyBase* property, unsigned int mask, bool disable, unsigned int index)
    : UIControl(property, disable, index), mMask(mask)
{
    requireType(AcceptedTypes);
    setMinimumSize(MinimumSize);
    setDefaultSize();
    setSize({getSize().width + NameLeft - BoxSize, getSize().height});
}

bool UIFlagControl::isSet() const
{
    return getNumeric() & mMask;
}

void UIFlagControl::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    const int width = static_cast<int>(getSize().width);
    const int height = static_cast<int>(getSize().height);
    const int top = (height - BoxSize) / 2;
    const sRect box = sRect(0, 0, BoxSize, BoxSize) + sPoint(0, top);
    painter->drawRect(box, colors.mClientRegionColor);
    if (isSet())
    {
        const sColor color = isEnabled() ? colors.mClientFontColor : colors.mDisableFontColor;
        painter->drawLine(sPoint(4, top + 6), sPoint(6, top + 8), color);
        painter->drawLine(sPoint(6, top + 8), sPoint(9, top + 2), color);
    }
    painter->drawConcaveRect(box);
    paintName(painter, sRect(NameLeft, 0, width, height));
}

void UIFlagControl::eventMouseUp(const sPoint& position, unsigned int button)
{
    if (!isEnabled() || button != UIMouseUpMessage::FirstButton || !getOwnRegion().intersect(position))
        return;
    toggle();
    sendMessage(UIEndEditMessage());
}

// On purpose: each key ends an edit, though only one begins to toggle.
void UIFlagControl::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (!isEnabled() || combinationKey)
        return;
    if (keyCode == UIKeyCode::Return)
        toggle();
    sendMessage(UIEndEditMessage());
}

// In 32 bits, so that a bool with every bit cleared is false.
unsigned int UIFlagControl::getNumeric() const
{
    return static_cast<unsigned int>(getProperty()->getNumeric(getIndex()));
}

void UIFlagControl::toggle()
{
    const unsigned int value = getNumeric();
    getProperty()->setNumeric(value & mMask ? value & ~mMask : value | mMask, getIndex());
}
