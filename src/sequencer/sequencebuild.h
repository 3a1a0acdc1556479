#pragma once

#include "sequencer/sequencerresource.h"

class ObjectList;
class SequencerLane;
class SequencerTrack;

// Makes the packed arrays of a sequence from its tree in one go: the second of the two ways to them, next to the
// edits, each of which changes tree and arrays by hand.
class SequenceBuild
{
public:
    // `resource` is empty.
    explicit SequenceBuild(SequencerResource& resource) : mrResource(resource) {}

    // False when there is not enough memory; what has been made by then is complete in itself.
    [[nodiscard]] bool run(const ObjectList& tracks);

    // The record of a lane, without keys.
    static sLaneRecord makeLane(const SequencerLane& lane);

    // Whether two resources have the same tracks, lanes and keys, to the byte.
    static bool isEqual(const SequencerResource& a, const SequencerResource& b);

private:
    static bool buildTrack(sTrackRecord& record, const SequencerTrack& track);
    static bool buildLane(sLaneRecord& record, const SequencerLane& lane);

    SequencerResource& mrResource;
};
