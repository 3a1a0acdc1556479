#pragma once

#include "foundation/autostring.h"
#include "reflection/objectlist.h"
#include "reflection/reflect.h"
#include "sequencer/resourceallocated.h"

class SequencerLane;

// One object of a sequence, named by its type; it comes to life where the sequence is played.
class SequencerTrack : public ObjectBase, public ResourceAllocated
{
    REFLECTED(SequencerTrack)

public:
    SequencerTrack();

    void setTrackName(const AutoString& name) { mTrackName = name; }
    const AutoString& getTrackName() const { return mTrackName; }

    void setObjectTypeID(unsigned int id) { mObjectTypeID = id; }
    unsigned int getObjectTypeID() const { return mObjectTypeID; }

    ObjectList& getLaneList() { return mLaneList; }
    const ObjectList& getLaneList() const { return mLaneList; }

    // The first lane of a control of that name, or null; null for an empty name.
    SequencerLane* findLane(const AutoString& controlName) const;

    void makePropertyList(PropertyList& list) override;

private:
    AutoString mTrackName;
    unsigned int mObjectTypeID = 31;
    ObjectList mLaneList;
};
