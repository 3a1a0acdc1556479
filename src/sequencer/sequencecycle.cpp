#include "sequencer/sequencecycle.h"

#include "sequencer/sequencerlane.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"

namespace
{
template <typename Visitor>
void forEachResource(const SequencerResourceIntermediate& sequence, Visitor&& visitor)
{
    for (ObjectBase* track : sequence.getTrackList())
        for (ObjectBase* lane : static_cast<SequencerTrack*>(track)->getLaneList())
            for (ObjectBase* key : static_cast<SequencerLane*>(lane)->getKeyList())
                if (const auto* resourceKey = key->cast<SequencerUniqueKey<ResourceBase>>())
                    visitor(resourceKey->getResource());
}

// `visited` keeps the walk from going one way twice.
bool leadsTo(const ResourceBase* resource, const ResourceBase& target,
             List<const SequencerResourceIntermediate>& visited)
{
    const auto* step = resource ? resource->cast<SequencerResourceIntermediate>() : nullptr;
    if (!step || visited.find(step) != visited.end())
        return false;
    if (step == &target)
        return true;
    visited.addLast(step);
    bool found = false;
    forEachResource(*step, [&](const ResourceBase* next) { found = found || leadsTo(next, target, visited); });
    return found;
}
}

bool leadsTo(const ResourceBase* resource, const ResourceBase& target)
{
    List<const SequencerResourceIntermediate> visited;
    return leadsTo(resource, target, visited);
}
