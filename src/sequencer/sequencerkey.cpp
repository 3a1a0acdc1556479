#include "sequencer/sequencerkey.h"

#include "reflection/propertylist.h"

REFLECT(SequencerKey, eTypeAttribute::Abstract, "ObjectBase");

void SequencerKey::makePropertyList(PropertyList& list)
{
    list.addReference("frame", mFrame);
    list.addReference("interpolate_type", mInterpolateType);
    list.addReference("trigger_only", mTriggerOnly);
}
