#include "tools/samples/trackbuilder.h"

#include "sequencer/control.h"
#include "sequencer/sequenceruniquekey.h"

TrackBuilder::TrackBuilder(AnimResource& resource, const TypeInfo* type, const char* name)
    : mResource(resource), mName(name), mObject(type->newInstance())
{
    mResource.addTrack(type, mName);
    mObject->makeControlList(mControls);
}

TrackBuilder::~TrackBuilder()
{
    for (ControlBase* control : mControls)
        delete control;
}

void TrackBuilder::setResource(const char* control, ResourceBase* value)
{
    openLane(control);
    mResource.addKey(mName, control, 0, eInterpolateType::Trigger);
    auto* key = mResource.findKey(mName, control, 0)->cast<SequencerUniqueKey<ResourceBase>>();
    key->setResource(value);
    key->setResourceTypeID(value->getTypeInfo()->getID());
    mResource.updateKeyParameter(mName, control, *key);
}

void TrackBuilder::openLane(const char* control)
{
    for (const ControlBase* candidate : mControls)
        if (AutoString::isEqual(candidate->getName(), control))
            mResource.addLane(mName, candidate);
}

void TrackBuilder::addKey(const char* control, unsigned int frame, eInterpolateType type, const void* value)
{
    mResource.addKey(mName, control, frame, type);
    mResource.setKeyParameter(mName, control, frame, value);
}
