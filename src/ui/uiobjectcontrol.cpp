#include "ui/uiobjectcontrol.h"

#include "reflection/typeset.h"
#include "ui/uiaxis.h"
#include "ui/uitextcontrol.h"

namespace
{
constexpr unsigned int ObjectType = PropertyBase::getPropertyType<ObjectBase*>();
constexpr int NameHeight = 16;
constexpr int ElementNameWidth = 64;
constexpr unsigned int MinimumWidth = 48;
constexpr unsigned int MinimumElementWidth = 112;
}

UIObjectControl::UIObjectControl(PropertyBase* property, bool disable, unsigned int index)
    : UIControl(property, disable, index), mBox(new UITextControl(property, true, index))
{
    requireType(typeRange(ObjectType, ObjectType), "Property type missmatch.");
    add(mBox);
    const unsigned int height = mBox->getMinimumSize().height;
    setMinimumSize(isElement() ? sSize{MinimumElementWidth, height} : sSize{MinimumWidth, height + NameHeight});
    setDefaultSize();
}

void UIObjectControl::align()
{
    const sRect box = getBox();
    mBox->setPosition(sPoint(box.left, box.top));
    mBox->setSize({box.getWidth(), box.getHeight()});
}

void UIObjectControl::eventPaint(UIPainter* painter)
{
    const sRect own = getOwnRegion();
    paintName(painter, isElement() ? sRect(0, 0, ElementNameWidth, own.bottom) : sRect(0, 0, own.right, NameHeight));
}

sRect UIObjectControl::getBox() const
{
    const sRect own = getOwnRegion();
    return isElement() ? sRect(ElementNameWidth, 0, own.right, own.bottom)
                       : sRect(0, NameHeight, own.right, own.bottom);
}
