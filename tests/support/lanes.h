#pragma once

#include "reflection/typeinfo.h"
#include "sequencer/control.h"
#include "sequencer/sequencerresourceintermediate.h"

#include <memory>

// The lane for the control of that name of the track's class.
inline void addLane(SequencerResourceIntermediate& sequence, const AutoString& track, const AutoString& control)
{
    const sTrackRecord* record = sequence.findNativeTrack(track);
    if (!record)
        return;
    const std::unique_ptr<ObjectBase> sample(TypeInfo::find(record->objectTypeID)->newInstance());
    List<ControlBase> controls;
    sample->makeControlList(controls);
    for (ControlBase* candidate : controls)
    {
        if (control == candidate->getName())
            sequence.addLane(track, candidate);
        delete candidate;
    }
}
