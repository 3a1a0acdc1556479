#include "sequencer/sequencermarker.h"

#include "reflection/propertylist.h"

REFLECT(SequencerMarker, eTypeAttribute::None, "ObjectBase");

void SequencerMarker::makePropertyList(PropertyList& list)
{
    list.addReference("marker_name", mMarkerName);
    list.addReference("frame", mFrame);
    list.addReference("marker_type", mMarkerType);
    list.addReference("initial_count", mInitialCount);
    list.addReference("reset", mReset);
    list.addReference("target_frame", mTargetFrame);
    list.addReference("target_marker_name", mTargetMarkerName);
}
