#include "ui/uicontrol.h"

#include "reflection/typeset.h"
#include "reflection/valuetext.h"
#include "ui/uicolor.h"
#include "ui/uipainter.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

UIControl::UIControl(PropertyBase* property, bool disable, unsigned int index, unsigned int attribute)
    : UIBase(attribute), mpProperty(property), mIndex(index)
{
    if (disable)
        UIBase::disable();
    if (property)
        property->addRef();
}

UIControl::~UIControl()
{
    if (mpProperty)
        mpProperty->release();
}

AutoString UIControl::getName() const
{
    char buffer[ValueTextSize];
    return getLabel(buffer);
}

void UIControl::setDefaultSize()
{
    char buffer[ValueTextSize];
    sSize size = getMinimumSize();
    if (const char* label = getLabel(buffer))
        size.width =
            std::max(size.width, UIPainter::getFontSize().width * (static_cast<unsigned int>(std::strlen(label)) + 2));
    setSize(size);
}

void UIControl::update(float deltaTime)
{
    UIBase::update(deltaTime);
    align();
}

void UIControl::eventBeginEdit()
{
    mEditing = true;
    delegate();
}

void UIControl::eventEndEdit()
{
    delegate();
    mEditing = false;
}

void UIControl::requireType(unsigned int types, const char* message) const
{
    if (!mpProperty || !containsType(types, mpProperty->getType()))
        dev_assert(message, __FILE__, __LINE__);
}

void UIControl::place(UIBase* child, const sPoint& position, const sSize& size)
{
    if (child->getPosition() != position)
        child->setPosition(position);
    if (child->getSize() != size)
        child->setSize(size);
}

const char* UIControl::getLabel(char* buffer) const
{
    const char* name = mpProperty ? mpProperty->getName() : nullptr;
    if (!name || mIndex == WholeValue)
        return name;
    std::snprintf(buffer, ValueTextSize, "[%d]", static_cast<int>(mIndex));
    return buffer;
}

// A document may have given the name, and with its length the width.
void UIControl::paintName(UIPainter* painter, const sRect& rect) const
{
    char buffer[ValueTextSize];
    const int widest = UIPainter::MaximumFit * static_cast<int>(UIPainter::getFontSize().width);
    const sRect line(rect.left, rect.top, std::min(rect.right, rect.left + widest), rect.bottom);
    painter->drawString(line, requireLabel(buffer), UIPainter::getColors().mFontColor,
                        UIPainter::eAlignment::LeftMiddle);
}

void UIControl::paintName(UIPainter* painter) const
{
    paintName(painter, sRect(getSize().width, NameHeight));
}

void UIControl::paintGroup(UIPainter* painter) const
{
    char buffer[ValueTextSize];
    painter->drawGroup(getOwnRegion(), requireLabel(buffer), UIPainter::getColors().mFontColor);
}

const char* UIControl::requireLabel(char* buffer) const
{
    const char* label = getLabel(buffer);
    if (!label)
        dev_assert("Nameless property.", __FILE__, __LINE__);
    return label;
}
