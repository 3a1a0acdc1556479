#include "sequencer/sequencebuild.h"

#include "reflection/objectlist.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"

#include <cstring>

namespace
{
// Zeroed; null for no records and when there is not enough memory.
template <typename Record>
Record* allocateRecords(unsigned int count, unsigned int stride = sizeof(Record))
{
    const unsigned int size = count * stride;
    void* block = size ? ResourceBase::allocate(size) : nullptr;
    if (block)
        std::memset(block, 0, size);
    return static_cast<Record*>(block);
}

bool isEqualLane(const sLaneRecord& a, const sLaneRecord& b)
{
    return a.controlType == b.controlType && a.nameHash == b.nameHash && a.keyNum == b.keyNum &&
           a.keyStride == b.keyStride && a.keyInterpolateNum == b.keyInterpolateNum && !a.key == !b.key &&
           (!a.key || std::memcmp(a.key, b.key, a.keyNum * a.keyStride) == 0);
}

bool isEqualTrack(const sTrackRecord& a, const sTrackRecord& b)
{
    if (a.objectTypeID != b.objectTypeID || a.laneNum != b.laneNum || !a.lane != !b.lane)
        return false;
    for (unsigned int i = 0; i < a.laneNum; ++i)
    {
        if (!isEqualLane(a.lane[i], b.lane[i]))
            return false;
    }
    return true;
}
}

bool SequenceBuild::run(const ObjectList& tracks)
{
    if (tracks.empty())
        return true;
    mrResource.mpTrack = allocateRecords<sTrackRecord>(tracks.size());
    if (!mrResource.mpTrack)
        return false;
    mrResource.mTrackNum = tracks.size();

    sTrackRecord* record = mrResource.mpTrack;
    for (ObjectBase* object : tracks)
    {
        if (!buildTrack(*record++, *static_cast<SequencerTrack*>(object)))
            return false;
    }
    return true;
}

bool SequenceBuild::buildTrack(sTrackRecord& record, const SequencerTrack& track)
{
    const ObjectList& lanes = track.getLaneList();
    record.objectTypeID = track.getObjectTypeID();
    if (lanes.empty())
        return true;
    record.lane = allocateRecords<sLaneRecord>(lanes.size());
    if (!record.lane)
        return false;
    record.laneNum = lanes.size();

    sLaneRecord* laneRecord = record.lane;
    for (ObjectBase* object : lanes)
    {
        if (!buildLane(*laneRecord++, *static_cast<SequencerLane*>(object)))
            return false;
    }
    return true;
}

bool SequenceBuild::buildLane(sLaneRecord& record, const SequencerLane& lane)
{
    const ObjectList& keys = lane.getKeyList();
    record = makeLane(lane);
    if (keys.empty())
        return true;
    record.key = allocateRecords<unsigned char>(keys.size(), lane.getKeyStride());
    if (!record.key)
        return false;
    record.keyNum = static_cast<unsigned short>(keys.size());

    unsigned char* keyRecord = record.key;
    for (ObjectBase* object : keys)
    {
        const SequencerKey& key = *static_cast<SequencerKey*>(object);
        SequencerResourceIntermediate::makeKey(keyRecord, key);
        SequencerResourceIntermediate::copyKeyParameter(keyRecord, key, lane.getKeyType());
        keyRecord += lane.getKeyStride();
    }
    return true;
}

sLaneRecord SequenceBuild::makeLane(const SequencerLane& lane)
{
    sLaneRecord record{};
    record.controlType = lane.getControlType() & 0xF;
    record.nameHash = lane.getControlName().hash();
    record.keyStride = static_cast<unsigned char>(lane.getKeyStride());
    record.keyInterpolateNum = lane.getKeyInterpolateNum() & 0xF;
    return record;
}

bool SequenceBuild::isEqual(const SequencerResource& a, const SequencerResource& b)
{
    if (a.mTrackNum != b.mTrackNum || !a.mpTrack != !b.mpTrack)
        return false;
    for (unsigned int i = 0; i < a.mTrackNum; ++i)
    {
        if (!isEqualTrack(a.mpTrack[i], b.mpTrack[i]))
            return false;
    }
    return true;
}
