#include "sequencer/sequencerresourceintermediate.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/utils.h"
#include "io/stream.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "sequencer/framesearch.h"
#include "sequencer/keytable.h"
#include "sequencer/sequencebuild.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"
#include "sequencer/sequencetreecheck.h"

#include <cstring>

REFLECT(SequencerResourceIntermediate, eTypeAttribute::None, "SequencerResource");

namespace
{
unsigned int toPrevious(unsigned int index, unsigned int)
{
    return index ? index - 1 : index;
}

unsigned int toNext(unsigned int index, unsigned int last)
{
    return index < last ? index + 1 : index;
}

unsigned int toFirst(unsigned int, unsigned int)
{
    return 0;
}

unsigned int toLast(unsigned int, unsigned int last)
{
    return last;
}

void traceLackOfMemory()
{
    DEV_TRACE("SequencerResource : Not enough memory, nothing is added.\n");
}

// Whether one more can be made, and be read again from a document.
bool hasRoomIn(const ObjectList& list)
{
    const bool hasRoom = AllocatorBase::getGlobalAllocator()->hasRoom() && ResourceBase::hasRoom() &&
                         list.size() < ObjectList::MaximumLoadedCount;
    if (!hasRoom)
        traceLackOfMemory();
    return hasRoom;
}

// The object's record; null, and the object is deleted, when there is no memory for one more.
template <typename Mirrored>
auto* insert(Mirrored list, unsigned int index, ObjectBase* object)
{
    auto* record = list.insert(index, object);
    if (!record)
    {
        traceLackOfMemory();
        delete object;
    }
    return record;
}

void deleteAll(ObjectList& list)
{
    for (ObjectBase* object : list)
        delete object;
    list.clear();
}

void clearKeys(sLaneRecord& record)
{
    ResourceBase::deallocate(record.key);
    record.key = nullptr;
    record.keyNum = 0;
}

void clearLanes(sTrackRecord& record)
{
    for (unsigned int i = 0; i < record.laneNum; ++i)
        clearKeys(record.lane[i]);
    RecordBlock(record.lane, record.laneNum).clear();
}

unsigned char* getRecord(const sLaneRecord& lane, unsigned int index)
{
    return lane.key + index * lane.keyStride;
}

void copyKeyResource(void* record, const ResourceBase* resource)
{
    sResourceKeyRecord value{};
    value.typeID = resource ? resource->getTypeInfo()->getID() : sResourceKeyRecord::None;
    value.hash = resource ? resource->getHash() : sResourceKeyRecord::None;
    if (resource)
    {
        const AutoString path = Utils::getResourcePath(resource->getPath().c_str());
        if (path.size() >= sResourceKeyRecord::PathSize)
            dev_assert("Too long path.", __FILE__, __LINE__);
        if (path.size())
            std::memcpy(value.path, path.c_str(), path.size());
    }
    std::memcpy(&value.head, record, sizeof(value.head));
    std::memcpy(record, &value, sizeof(value));
}
}

SequencerResourceIntermediate::SequencerResourceIntermediate()
{
    setAttribute(Intermediate);
    mTrackList.setContentStability(false);
}

SequencerResourceIntermediate::~SequencerResourceIntermediate()
{
    SequencerResourceIntermediate::removeAll();
}

bool SequencerResourceIntermediate::load(Stream& stream)
{
    removeAll();
    clearModify();
    clearUpdate();
    if (stream.getType() != Stream::TextFile)
        return false;

    TextFileStream& text = static_cast<TextFileStream&>(stream);
    if (!readTree(text))
        return false;
    SequenceTreeCheck(mTrackList).run();
    const bool built = build(*this);
    if (!built)
        removeAll();
    // Reading a document edits the object on the way; what comes out is what the file holds.
    clearModify();
    clearUpdate();
    if (built && getPath().empty())
        setPath(text.getPath());
    return built;
}

// What has been read only in part must not be saved as the whole. The reader's memory is free again behind this.
bool SequencerResourceIntermediate::readTree(TextFileStream& stream)
{
    const char* typeName = getTypeInfo()->getName();
    XmlReader reader;
    if (!reader.load(&stream) || !reader.openTag(typeName))
        return false;
    reader.closeTag();
    reader.read(this, typeName);
    if (reader.isComplete() && ResourceBase::hasRoom())
        return true;
    DEV_TRACE("SequencerResource : Not enough memory for all that %s names.\n", stream.getPath());
    removeAll();
    clearModify();
    clearUpdate();
    return false;
}

bool SequencerResourceIntermediate::save(Stream& stream)
{
    if (stream.getType() != Stream::TextFile)
        return false;
    XmlWriter writer(getTypeInfo()->getName());
    serialize(&writer, false, 0);
    if (!writer.isReadable())
        return false;
    writer.write(&static_cast<TextFileStream&>(stream));
    return !stream.eof();
}

const char* SequencerResourceIntermediate::getExtension() const
{
    return "seq.xml";
}

const TypeInfo* SequencerResourceIntermediate::getNativeType() const
{
    return SequencerResource::getStaticTypeInfo();
}

const char* SequencerResourceIntermediate::getFilter() const
{
    return "seq.xml|Intermediate Sequence";
}

void SequencerResourceIntermediate::removeAll()
{
    deleteAll(mMarkerList);
    deleteAll(mTrackList);
    SequencerResource::removeAll();
    setModify();
}

void SequencerResourceIntermediate::makePropertyList(PropertyList& list)
{
    list.addReference("start_frame", mStartFrame);
    list.addReference("end_frame", mEndFrame);
    list.addReference("fps", mFPS);
    list.add(new ObjectProperty("track_list", &mTrackList));
}

bool SequencerResourceIntermediate::build(SequencerResource& target) const
{
    return SequenceBuild(target).run(mTrackList);
}

void SequencerResourceIntermediate::setFPS(unsigned int fps)
{
    setValue(mFPS, fps);
}

void SequencerResourceIntermediate::setStartFrame(unsigned int frame)
{
    setValue(mStartFrame, frame);
}

void SequencerResourceIntermediate::setEndFrame(unsigned int frame)
{
    setValue(mEndFrame, frame);
}

void SequencerResourceIntermediate::setValue(unsigned int& field, unsigned int value)
{
    if (field == value)
        return;
    field = value;
    setModify();
}

SequencerResourceIntermediate::sTrackPlace SequencerResourceIntermediate::resolveTrack(const AutoString& name) const
{
    unsigned int index = 0;
    for (ObjectBase* object : mTrackList)
    {
        SequencerTrack* track = static_cast<SequencerTrack*>(object);
        if (!name.empty() && track->getTrackName() == name)
            return {track, &mpTrack[index], index};
        ++index;
    }
    return {};
}

void SequencerResourceIntermediate::addTrack(const TypeInfo* type, AutoString name)
{
    if (!type || name.size() == 0 || !hasRoomIn(mTrackList))
        return;

    SequencerTrack* track = new SequencerTrack;
    track->setTrackName(name);
    track->setObjectTypeID(type->getID());
    sTrackRecord* record = insert(tracks(), mTrackList.size(), track);
    if (!record)
        return;
    record->objectTypeID = type->getID();
    setModify();
}

void SequencerResourceIntermediate::removeTrack(AutoString name)
{
    const sTrackPlace place = resolveTrack(name);
    if (!place.track)
        return;

    clearLanes(*place.record);
    tracks().remove(place.index);
    delete place.track;
    setModify();
}

void SequencerResourceIntermediate::moveTrack(const AutoString& name, Destination destination)
{
    const sTrackPlace place = resolveTrack(name);
    const unsigned int to = place.track ? destination(place.index, mTrackNum - 1) : place.index;
    if (to == place.index)
        return;

    tracks().move(place.index, to);
    setModify();
}

void SequencerResourceIntermediate::moveTrackForward(AutoString name)
{
    moveTrack(name, toPrevious);
}

void SequencerResourceIntermediate::moveTrackBackward(AutoString name)
{
    moveTrack(name, toNext);
}

void SequencerResourceIntermediate::moveTrackToFirst(AutoString name)
{
    moveTrack(name, toFirst);
}

void SequencerResourceIntermediate::moveTrackToLast(AutoString name)
{
    moveTrack(name, toLast);
}

SequencerTrack* SequencerResourceIntermediate::findTrack(AutoString name) const
{
    return resolveTrack(name).track;
}

const sTrackRecord* SequencerResourceIntermediate::findNativeTrack(AutoString name) const
{
    return resolveTrack(name).record;
}

unsigned int SequencerResourceIntermediate::getTrackIndex(const SequencerTrack* track) const
{
    const ObjectList::Iterator place = mTrackList.find(track);
    return track && place != mTrackList.end() ? mTrackList.getIndex(place) : 0xFFFFFFFF;
}

SequencerResourceIntermediate::Lanes SequencerResourceIntermediate::lanes(const sTrackPlace& place)
{
    return {place.track->getLaneList(), {place.record->lane, place.record->laneNum}};
}

SequencerResourceIntermediate::sLanePlace
SequencerResourceIntermediate::resolveLane(const AutoString& trackName, const AutoString& controlName) const
{
    const sTrackPlace track = resolveTrack(trackName);
    SequencerLane* lane = track.track ? track.track->findLane(controlName) : nullptr;
    if (!lane)
        return {};
    const ObjectList& list = track.track->getLaneList();
    const unsigned int index = list.getIndex(list.find(lane));
    return {track, lane, &track.record->lane[index], index};
}

void SequencerResourceIntermediate::addLane(AutoString trackName, const ControlBase* control)
{
    const sTrackPlace place = resolveTrack(trackName);
    if (!place.track || !control || !control->getName() || place.track->findLane(control->getName()) ||
        !hasRoomIn(place.track->getLaneList()))
        return;

    SequencerLane* lane = new SequencerLane;
    lane->setControl(*control);
    sLaneRecord* record = insert(lanes(place), place.record->laneNum, lane);
    if (!record)
        return;
    *record = SequenceBuild::makeLane(*lane);
    setModify();
}

void SequencerResourceIntermediate::removeLane(AutoString trackName, AutoString controlName)
{
    const sLanePlace place = resolveLane(trackName, controlName);
    if (!place.lane)
        return;

    clearKeys(*place.record);
    lanes(place.track).remove(place.index);
    delete place.lane;
    setModify();
}

void SequencerResourceIntermediate::removeAllLane(AutoString trackName)
{
    const sTrackPlace place = resolveTrack(trackName);
    if (!place.track)
        return;

    clearLanes(*place.record);
    deleteAll(place.track->getLaneList());
    setModify();
}

void SequencerResourceIntermediate::moveLane(const AutoString& trackName, const AutoString& controlName,
                                             Destination destination)
{
    const sLanePlace place = resolveLane(trackName, controlName);
    const unsigned int to = place.lane ? destination(place.index, place.track.record->laneNum - 1) : place.index;
    if (to == place.index)
        return;

    lanes(place.track).move(place.index, to);
    setModify();
}

void SequencerResourceIntermediate::moveLaneForward(AutoString trackName, AutoString controlName)
{
    moveLane(trackName, controlName, toPrevious);
}

void SequencerResourceIntermediate::moveLaneBackward(AutoString trackName, AutoString controlName)
{
    moveLane(trackName, controlName, toNext);
}

void SequencerResourceIntermediate::moveLaneToFirst(AutoString trackName, AutoString controlName)
{
    moveLane(trackName, controlName, toFirst);
}

void SequencerResourceIntermediate::moveLaneToLast(AutoString trackName, AutoString controlName)
{
    moveLane(trackName, controlName, toLast);
}

SequencerLane* SequencerResourceIntermediate::findLane(AutoString trackName, AutoString controlName) const
{
    return resolveLane(trackName, controlName).lane;
}

const sLaneRecord* SequencerResourceIntermediate::findNativeLane(AutoString trackName, AutoString controlName) const
{
    return resolveLane(trackName, controlName).record;
}

SequencerResourceIntermediate::Keys SequencerResourceIntermediate::keys(const sLanePlace& place)
{
    return {place.lane->getKeyList(), {place.record->key, place.record->keyNum, place.record->keyStride}};
}

SequencerResourceIntermediate::sKeyPlace SequencerResourceIntermediate::resolveKey(const sLanePlace& place,
                                                                                   const SequencerKey* key)
{
    if (!place.lane || !key)
        return {};
    ObjectList& list = place.lane->getKeyList();
    const ObjectList::Iterator found = list.find(key);
    if (found == list.end())
        return {};
    const unsigned int index = list.getIndex(found);
    return {place, static_cast<SequencerKey*>(*found), getRecord(*place.record, index), index};
}

SequencerResourceIntermediate::sKeyPlace SequencerResourceIntermediate::resolveKey(const AutoString& trackName,
                                                                                   const AutoString& controlName,
                                                                                   unsigned int frame) const
{
    const sLanePlace place = resolveLane(trackName, controlName);
    return place.lane ? resolveKey(place, place.lane->findKey(frame)) : sKeyPlace();
}

void SequencerResourceIntermediate::addKey(AutoString trackName, AutoString controlName, unsigned int frame,
                                           eInterpolateType type)
{
    const sLanePlace place = resolveLane(trackName, controlName);
    const bool full = place.lane && place.record->keyNum == sLaneRecord::MaximumKeyNum;
    if (!place.lane || full || place.lane->findKey(frame) || !hasRoomIn(place.lane->getKeyList()))
        return;
    const TypeInfo* keyType = TypeInfo::find(place.lane->getKeyTypeID());
    SequencerKey* key = keyType ? static_cast<SequencerKey*>(keyType->newInstance()) : nullptr;
    if (!key)
        return;

    key->setFrame(frame);
    key->setInterpolateType(type);
    key->setLabel(place.lane->getControlName());
    const unsigned int index = findPlaceBehindFrame<SequencerKey>(place.lane->getKeyList(), key->getFrame());
    unsigned char* record = insert(keys(place), index, key);
    if (!record)
        return;
    makeKey(record, *key);
    copyKeyParameter(record, *key, place.lane->getKeyType());
    setModify();
}

void SequencerResourceIntermediate::removeKey(const sKeyPlace& place)
{
    if (!place.key)
        return;
    keys(place.lane).remove(place.index);
    delete place.key;
    setModify();
}

void SequencerResourceIntermediate::removeKey(AutoString trackName, AutoString controlName, unsigned int frame)
{
    removeKey(resolveKey(trackName, controlName, frame));
}

void SequencerResourceIntermediate::removeKey(AutoString trackName, AutoString controlName, SequencerKey& key)
{
    removeKey(resolveKey(resolveLane(trackName, controlName), &key));
}

void SequencerResourceIntermediate::removeAllKey(AutoString trackName, AutoString controlName)
{
    const sLanePlace place = resolveLane(trackName, controlName);
    if (!place.lane)
        return;
    clearKeys(*place.record);
    deleteAll(place.lane->getKeyList());
    setModify();
}

void SequencerResourceIntermediate::moveKey(const sKeyPlace& place, unsigned int newFrame)
{
    if (!place.key)
        return;
    // The key itself must not count among those in front of it.
    place.key->setFrame(newFrame);
    const unsigned int to = findPlaceAmongOthers<SequencerKey>(place.lane.lane->getKeyList(), *place.key);
    unsigned char* record = keys(place.lane).place(place.index, to);
    makeKey(record, *place.key);
    setModify();
}

void SequencerResourceIntermediate::moveKey(AutoString trackName, AutoString controlName, unsigned int frame,
                                            unsigned int newFrame)
{
    moveKey(resolveKey(trackName, controlName, frame), newFrame);
}

void SequencerResourceIntermediate::moveKey(AutoString trackName, AutoString controlName, SequencerKey& key,
                                            unsigned int newFrame)
{
    moveKey(resolveKey(resolveLane(trackName, controlName), &key), newFrame);
}

void SequencerResourceIntermediate::setKeyParameter(AutoString trackName, AutoString controlName, unsigned int frame,
                                                    const void* value)
{
    const sKeyPlace place = resolveKey(trackName, controlName, frame);
    if (!place.key)
        return;
    place.key->setParameter(value);
    updateKeyParameter(place);
}

void SequencerResourceIntermediate::updateKeyParameter(const sKeyPlace& place)
{
    if (!place.key)
        return;
    copyKeyParameter(place.record, *place.key, place.lane.lane->getKeyType());
    setModify();
}

void SequencerResourceIntermediate::updateKeyParameter(AutoString trackName, AutoString controlName, SequencerKey& key)
{
    updateKeyParameter(resolveKey(resolveLane(trackName, controlName), &key));
}

void SequencerResourceIntermediate::setKeyInterpolateType(AutoString trackName, AutoString controlName,
                                                          unsigned int frame, eInterpolateType type)
{
    const sKeyPlace place = resolveKey(trackName, controlName, frame);
    if (!place.key)
        return;
    place.key->setInterpolateType(type);
    updateKeyInterpolateType(place);
}

void SequencerResourceIntermediate::updateKeyInterpolateType(const sKeyPlace& place)
{
    if (!place.key)
        return;
    sKeyHead head = readKeyHead(place.record);
    head.interpolateType = static_cast<unsigned short>(place.key->getInterpolateType()) & 0xF;
    writeKeyHead(place.record, head);
    setModify();
}

void SequencerResourceIntermediate::updateKeyInterpolateType(AutoString trackName, AutoString controlName,
                                                             SequencerKey& key)
{
    updateKeyInterpolateType(resolveKey(resolveLane(trackName, controlName), &key));
}

SequencerKey* SequencerResourceIntermediate::findKey(AutoString trackName, AutoString controlName,
                                                     unsigned int frame) const
{
    return resolveKey(trackName, controlName, frame).key;
}

const void* SequencerResourceIntermediate::findNativeKey(AutoString trackName, AutoString controlName,
                                                         unsigned int frame) const
{
    return resolveKey(trackName, controlName, frame).record;
}

SequencerResourceIntermediate::sMarkerPlace SequencerResourceIntermediate::resolveMarker(const AutoString& name) const
{
    unsigned int index = 0;
    for (ObjectBase* object : mMarkerList)
    {
        SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        if (!name.empty() && marker->getMarkerName() == name)
            return {marker, &mpMarker[index], index};
        ++index;
    }
    return {};
}

void SequencerResourceIntermediate::addMarker(AutoString name, unsigned int frame)
{
    if (!hasRoomIn(mMarkerList))
        return;
    SequencerMarker* marker = new SequencerMarker;
    marker->setMarkerName(name);
    marker->setFrame(frame);
    const unsigned int index = findPlaceBehindFrame<SequencerMarker>(mMarkerList, marker->getFrame());
    sMarkerRecord* record = insert(markers(), index, marker);
    if (!record)
        return;
    record->frame = marker->getFrame() & MaximumFrame;
    setModify();
}

void SequencerResourceIntermediate::removeMarker(AutoString name)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    markers().remove(place.index);
    delete place.marker;
    setModify();
}

void SequencerResourceIntermediate::removeAllMarker()
{
    deleteAll(mMarkerList);
    RecordBlock(mpMarker, mMarkerNum).clear();
    setModify();
}

void SequencerResourceIntermediate::moveMarker(AutoString name, unsigned int frame)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    // On purpose: the record keeps the frame that it had.
    place.marker->setFrame(frame);
    const unsigned int to = findPlaceAmongOthers<SequencerMarker>(mMarkerList, *place.marker);
    markers().place(place.index, to);
    retargetJumps(name, name, to);
    setModify();
}

// On purpose: jumps to the markers that moved aside keep their old index.
void SequencerResourceIntermediate::retargetJumps(const AutoString& name, const AutoString& newName, unsigned int index)
{
    sMarkerRecord* record = mpMarker;
    for (ObjectBase* object : mMarkerList)
    {
        SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        if (marker->getMarkerType() == eMarkerType::JumpTarget && marker->getTargetMarkerName() == name)
        {
            marker->setTargetMarkerName(newName);
            record->targetIndex = index & sMarkerRecord::NoTarget;
        }
        ++record;
    }
}

void SequencerResourceIntermediate::setMarkerName(AutoString name, AutoString newName)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker || resolveMarker(newName).marker)
        return;
    place.marker->setMarkerName(newName);
    retargetJumps(name, newName, place.index);
    setModify();
}

void SequencerResourceIntermediate::setMarkerType(AutoString name, eMarkerType type)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    place.marker->setMarkerType(type);
    place.record->type = static_cast<unsigned int>(type) & 3;
    if (type == eMarkerType::JumpTarget)
        setTarget(place, place.marker->getTargetMarkerName());
    setModify();
}

void SequencerResourceIntermediate::setMarkerTargetName(AutoString name, AutoString targetName)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    setTarget(place, targetName);
    setModify();
}

void SequencerResourceIntermediate::setTarget(const sMarkerPlace& place, const AutoString& targetName)
{
    const sMarkerPlace target = resolveMarker(targetName);
    place.marker->setTargetMarkerName(targetName);
    place.record->targetIndex = (target.marker ? target.index : sMarkerRecord::NoTarget) & sMarkerRecord::NoTarget;
}

void SequencerResourceIntermediate::setMarkerTargetFrame(AutoString name, unsigned int frame)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    place.marker->setTargetFrame(frame);
    place.record->targetFrame = frame & MaximumFrame;
    setModify();
}

void SequencerResourceIntermediate::setMarkerCount(AutoString name, unsigned int count)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    place.marker->setInitialCount(count);
    place.record->count = count & 0xFF;
    setModify();
}

void SequencerResourceIntermediate::setMarkerReset(AutoString name, bool reset)
{
    const sMarkerPlace place = resolveMarker(name);
    if (!place.marker)
        return;
    place.marker->setReset(reset);
    place.record->reset = reset;
    setModify();
}

SequencerMarker* SequencerResourceIntermediate::findMarker(AutoString name) const
{
    return resolveMarker(name).marker;
}

SequencerMarker* SequencerResourceIntermediate::findMarker(unsigned int frame) const
{
    return findAtFrame<SequencerMarker>(mMarkerList, frame);
}

SequencerMarker* SequencerResourceIntermediate::findMarkerBlock(unsigned int frame) const
{
    return findUpToFrame<SequencerMarker>(mMarkerList, frame);
}

const sMarkerRecord* SequencerResourceIntermediate::findNativeMarker(AutoString name) const
{
    return resolveMarker(name).record;
}

void SequencerResourceIntermediate::makeKey(void* record, const SequencerKey& key)
{
    sKeyHead head;
    head.frame = key.getFrame() & MaximumFrame;
    head.interpolateType = static_cast<unsigned short>(key.getInterpolateType()) & 0xF;
    writeKeyHead(record, head);
}

void SequencerResourceIntermediate::copyKeyParameter(void* record, const SequencerKey& key, unsigned int type)
{
    const sKeyRow* row = KeyTable::find(type);
    if (!row || type == KeyTable::VoidTrigger || key.getTypeInfo() != row->getTypeInfo())
        return;
    if (row->type == KeyTable::ResourceType)
        return copyKeyResource(record, static_cast<const SequencerUniqueKey<ResourceBase>&>(key).getResource());

    unsigned char* const value = static_cast<unsigned char*>(record) + row->offset;
    key.copyParameter(value);
    if (row->type == ValueTraits<bool>::type)
        *value = *value == 1;
}

bool SequencerResourceIntermediate::isConsistent() const
{
    SequencerResource built;
    return build(built) && SequenceBuild::isEqual(*this, built) && areMarkersConsistent();
}

bool SequencerResourceIntermediate::areMarkersConsistent() const
{
    if (mMarkerNum != mMarkerList.size())
        return false;
    const sMarkerRecord* record = mpMarker;
    for (ObjectBase* object : mMarkerList)
    {
        const SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        const bool same = record->type == static_cast<unsigned int>(marker->getMarkerType()) &&
                          record->frame == (marker->getFrame() & MaximumFrame) &&
                          record->count == marker->getInitialCount() && record->reset == marker->isReset() &&
                          record->targetFrame == (marker->getTargetFrame() & MaximumFrame);
        if (!same)
            return false;
        ++record;
    }
    return true;
}
