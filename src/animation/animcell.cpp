#include "animation/animcell.h"

#include "reflection/propertylist.h"
#include "sequencer/control.h"

#include <iterator>

UniqueTypeInfo<AnimCell> AnimCell::mTypeInfo("AnimCell", "AnimPrimitive");

namespace
{
constexpr PropertyControl::sMaskInfo AttributeTable[] = {
    {"Visible", AnimCell::Visible},
    {"HFlip", AnimCell::HFlip},
    {"VFlip", AnimCell::VFlip},
};
}

TypeInfo* AnimCell::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* AnimCell::getTypeInfo() const
{
    return &mTypeInfo;
}

void AnimCell::makePropertyList(PropertyList& list)
{
    list.addReference("Position", mPosition);
    list.addReference("UV", mUV);
    list.addReference("Size", mSize);
    list.addReference("Color", mColor);
    list.addReference("Attribute", mAttribute);
}

void AnimCell::makeControlList(List<ControlBase>& list)
{
    list.addLast(new PropertyControl(new ReferenceProperty("Position", &mPosition)));
    list.addLast(new PropertyControl(new ReferenceProperty("UV", &mUV)));
    list.addLast(new PropertyControl(new ReferenceProperty("Size", &mSize)));
    list.addLast(new PropertyControl(new ReferenceProperty("Color", &mColor)));
    list.addLast(new PropertyControl(new ReferenceProperty("Attribute", &mAttribute), AttributeTable,
                                     static_cast<unsigned int>(std::size(AttributeTable))));
}
