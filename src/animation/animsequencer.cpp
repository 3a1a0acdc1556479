#include "animation/animsequencer.h"

#include "animation/animresource.h"
#include "reflection/propertylist.h"
#include "sequencer/control.h"

UniqueTypeInfo<AnimSequencer> AnimSequencer::mTypeInfo("AnimSequencer", "Sequencer");

TypeInfo* AnimSequencer::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* AnimSequencer::getTypeInfo() const
{
    return &mTypeInfo;
}

AnimSequencer::AnimSequencer(AllocatorBase* allocator) : Sequencer(allocator)
{
}

void AnimSequencer::makePropertyList(PropertyList& list)
{
    Sequencer::makePropertyList(list);
    list.addReference("Position", mPosition);
    list.addReference("Color", mColor);
    list.addReference("Orientation", mOrientation);
}

void AnimSequencer::makeControlList(List<ControlBase>& list)
{
    makeTransportControls(list, AnimResource::getStaticTypeInfo());
    list.addLast(new PropertyControl(new ReferenceProperty("Position", &mPosition)));
    list.addLast(new PropertyControl(new ReferenceProperty("Color", &mColor)));
    list.addLast(new PropertyControl(new ReferenceProperty("Orientation", &mOrientation)));
}
