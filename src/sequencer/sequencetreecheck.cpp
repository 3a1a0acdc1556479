#include "sequencer/sequencetreecheck.h"

#include "foundation/dev.h"
#include "foundation/utils.h"
#include "sequencer/keytable.h"
#include "sequencer/liveobject.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"

#include <string_view>
#include <unordered_map>

void SequenceTreeCheck::run()
{
    filter(mrTracks, [this](ObjectBase* object) { return checkTrack(object); });
    nameTracks();
    disposeRejected();
}

template <typename Predicate>
void SequenceTreeCheck::filter(ObjectList& list, Predicate belongs)
{
    for (ObjectList::Iterator place = list.begin(); place != list.end();)
    {
        if (belongs(*place))
            ++place;
        else
            place = list.remove(place);
    }
}

// An object that stands elsewhere already is only taken out here.
bool SequenceTreeCheck::isFirst(ObjectBase* object)
{
    return object && mMet.insert(object).second;
}

template <typename Class>
bool SequenceTreeCheck::isFirstOf(ObjectBase* object, const char* trace)
{
    const bool first = isFirst(object);
    if (first && object->getTypeInfo() == Class::getStaticTypeInfo())
        return true;
    DEV_TRACE("%s", trace);
    if (first)
        reject(object);
    return false;
}

bool SequenceTreeCheck::checkTrack(ObjectBase* object)
{
    if (!isFirstOf<SequencerTrack>(object, "Null SequencerTrack detected.\n"))
        return false;
    SequencerTrack* track = static_cast<SequencerTrack*>(object);
    if (!TypeInfo::find(track->getObjectTypeID()))
    {
        DEV_TRACE("Invalid typeinfo detected.\n");
        reject(object);
        return false;
    }
    filter(track->getLaneList(), [this](ObjectBase* lane) { return checkLane(lane); });
    mergeLanes(track->getLaneList());
    return true;
}

bool SequenceTreeCheck::checkLane(ObjectBase* object)
{
    if (!isFirstOf<SequencerLane>(object, "Null SequencerLane detected.\n"))
        return false;
    SequencerLane* lane = static_cast<SequencerLane*>(object);
    if (lane->getControlName().size() == 0)
    {
        DEV_TRACE("Nameless SequencerLane detected.\n");
        reject(object);
        return false;
    }
    lane->setupKeys();
    checkKeys(*lane);
    return true;
}

// Edits find a lane by its name, and so the first one only.
void SequenceTreeCheck::mergeLanes(ObjectList& lanes)
{
    std::unordered_map<std::string_view, SequencerLane*> first;
    filter(lanes,
           [&](ObjectBase* object)
           {
               SequencerLane* lane = static_cast<SequencerLane*>(object);
               const auto [place, isFirstOfName] = first.try_emplace(lane->getControlName().c_str(), lane);
               if (isFirstOfName)
                   return true;
               DEV_TRACE("Second SequencerLane %s detected.\n", lane->getControlName().c_str());
               mergeKeys(*place->second, *lane);
               for (ObjectBase* key : lane->getKeyList())
                   reject(key);
               reject(lane);
               return false;
           });
}

// Both are sorted by frame. Of keys at the same frame the last one counts, as the second lane did when it was played.
// What cannot be taken over stays with the other lane.
void SequenceTreeCheck::mergeKeys(SequencerLane& lane, SequencerLane& other)
{
    ObjectList& keys = lane.getKeyList();
    ObjectList& others = other.getKeyList();
    const unsigned int keyNum = keys.size() + others.size();
    if (lane.getKeyType() != other.getKeyType() || keyNum > sLaneRecord::MaximumKeyNum)
        return;

    const auto getFrame = [](ObjectBase* key)
    {
        return static_cast<SequencerKey*>(key)->getFrame();
    };
    keys.reserve(keyNum);
    ObjectList::Iterator place = keys.begin();
    for (ObjectBase* key : others)
    {
        while (place != keys.end() && getFrame(*place) <= getFrame(key))
            ++place;
        keys.insertFront(place, key);
    }
    others.clear();
}

void SequenceTreeCheck::checkKeys(SequencerLane& lane)
{
    const sKeyRow* row = KeyTable::find(lane.getKeyType());
    unsigned int keyNum = 0;
    filter(lane.getKeyList(),
           [&](ObjectBase* object)
           {
               const bool first = isFirst(object);
               const bool belongs = row && first && object->getTypeInfo() == row->getTypeInfo();
               if (!belongs || keyNum == sLaneRecord::MaximumKeyNum)
               {
                   DEV_TRACE("Null SequencerKey detected.\n");
                   if (first)
                       reject(object);
                   return false;
               }
               ++keyNum;
               adoptKey(*static_cast<SequencerKey*>(object), lane);
               return true;
           });
}

void SequenceTreeCheck::adoptKey(SequencerKey& key, const SequencerLane& lane)
{
    key.setLabel(lane.getControlName());
    if (lane.getKeyType() != KeyTable::ResourceType)
        return;
    SequencerUniqueKey<ResourceBase>& resourceKey = static_cast<SequencerUniqueKey<ResourceBase>&>(key);
    const ResourceBase* resource = resourceKey.getResource();
    const AutoString path = resource ? Utils::getResourcePath(resource->getPath().c_str()) : AutoString();
    if (path.size() < sResourceKeyRecord::PathSize)
        return;
    DEV_TRACE("Too long path.(%s)\n", path.c_str());
    resourceKey.setResource(nullptr);
}

// Every lookup goes by name.
void SequenceTreeCheck::nameTracks()
{
    std::unordered_set<std::string_view> names;
    for (ObjectBase* object : mrTracks)
    {
        const AutoString& name = static_cast<SequencerTrack*>(object)->getTrackName();
        if (name.size())
            names.insert(name.c_str());
    }

    // The texts stay where they are: the first track of a name keeps it.
    std::unordered_set<std::string_view> used;
    unsigned int number = 0;
    for (ObjectBase* object : mrTracks)
    {
        SequencerTrack* track = static_cast<SequencerTrack*>(object);
        AutoString name = track->getTrackName();
        if (name.size() && used.insert(name.c_str()).second)
            continue;
        do
            name.format("Track%u", number++);
        while (names.count(name.c_str()));
        DEV_TRACE("SequencerTrack renamed to %s.\n", name.c_str());
        track->setTrackName(name);
    }
}

void SequenceTreeCheck::reject(ObjectBase* object)
{
    mRejected.addLast(object);
}

// A rejected object may own elements that are kept elsewhere, so it must not delete them: those not met yet are
// rejected in their own right.
void SequenceTreeCheck::emptyRejected(ObjectBase* object)
{
    const auto rejectElements = [this](ObjectList& list)
    {
        for (ObjectBase* element : list)
        {
            if (isFirst(element))
                reject(element);
        }
        list.clear();
    };

    if (SequencerTrack* track = object->cast<SequencerTrack>())
        rejectElements(track->getLaneList());
    else if (SequencerLane* lane = object->cast<SequencerLane>())
        rejectElements(lane->getKeyList());
    else if (SequencerResourceIntermediate* resource = object->cast<SequencerResourceIntermediate>())
        rejectElements(resource->mTrackList);
}

void SequenceTreeCheck::disposeRejected()
{
    for (unsigned int i = 0; i < mRejected.size(); ++i)
        emptyRejected(mRejected[i]);
    for (unsigned int i = 0; i < mRejected.size(); ++i)
        disposeObject(mRejected[i]);
    mRejected.clear();
}
