#include "ui/uiobjectcontrol.h"

#include "reflection/typeset.h"
#include "ui/uitextcontrol.h"

namespace
{
constexpr unsigned int ObjectType = PropertyBase::getPropertyType<ObjectBase*>();
constexpr int ElementNameWidth = 64;
constexpr unsigned int MinimumWidth = 48;
constexpr unsigned int MinimumElementWidth = 112;
}

UIObjectControl::UIObjectControl(PropertyBase* property, bool disable, unsigned int index)
    : UIControl(property, disable, index), mBox(new UITextControl(property, true, index))
{
    requireType(typeRange(ObjectType, ObjectType));
    add(mBox);
    const unsigned int height = mBox->getMinimumSize().height;
    setMinimumSize(isElement() ? sSize{MinimumElementWidth, height} : sSize{MinimumWidth, height + NameHeight});
    setDefaultSize();
}

void UIObjectControl::align()
{
    const sRect box = getBox();
    place(mBox, sPoint(box.left, box.top), {box.getWidth(), box.getHeight()});
}

void UIObjectControl::eventPaint(UIPainter* painter)
{
    if (isElement())
        paintName(painter, sRect(ElementNameWidth, getSize().height));
    else
        paintName(painter);
}

sRect UIObjectControl::getBox() const
{
    const sRect own = getOwnRegion();
    return isElement() ? sRect(ElementNameWidth, 0, own.right, own.bottom)
                       : sRect(0, NameHeight, own.right, own.bottom);
}
