#include "sequencer/sequencertrack.h"

#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "sequencer/sequencerlane.h"

REFLECT(SequencerTrack, eTypeAttribute::None, "ObjectBase");

SequencerTrack::SequencerTrack()
{
    mLaneList.setContentStability(false);
}

SequencerLane* SequencerTrack::findLane(const AutoString& controlName) const
{
    if (controlName.empty())
        return nullptr;
    for (ObjectBase* object : mLaneList)
    {
        SequencerLane* lane = static_cast<SequencerLane*>(object);
        if (lane->getControlName() == controlName)
            return lane;
    }
    return nullptr;
}

void SequencerTrack::makePropertyList(PropertyList& list)
{
    list.addReference("track_name", mTrackName);
    list.addReference("object_type_id", mObjectTypeID);
    list.add(new ObjectProperty("lane_list", &mLaneList));
}
