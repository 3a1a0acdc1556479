#include "sequencer/sequencer.h"

#include "application/application.h"
#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/list.h"
#include "foundation/minmax.h"
#include "foundation/replacereference.h"
#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "sequencer/control.h"
#include "sequencer/liveobject.h"
#include "sequencer/sequencerresource.h"

#include <cmath>
#include <cstring>
#include <new>

REFLECT(Sequencer, eTypeAttribute::None, "ObjectBase");

namespace
{
constexpr unsigned int Alignment = alignof(void*);
constexpr float DefaultFrameRate = 60.0f;

sFixed toFrame(unsigned int frame)
{
    return sFixed(static_cast<int>(minimum(frame, Sequencer::LastFrame)), 16);
}

float getFrameRate()
{
    const Application* application = Application::getInstance();
    return application ? application->getFrameRate() : DefaultFrameRate;
}

void deleteControls(List<ControlBase>& controls)
{
    for (ControlBase* control : controls)
        delete control;
}
}

Sequencer::Sequencer(AllocatorBase* allocator) : mpAllocator(allocator)
{
}

Sequencer::~Sequencer()
{
    deleteAllTrack();
    if (mpResource)
        mpResource->release();
}

void Sequencer::update(sFixed delta)
{
    if (!mpResource)
        return;

    const sFixed step = minimum(maximum(delta, sFixed::Zero), toFrame(LastFrame));
    const bool moving = mPlaying && step != sFixed::Zero;
    if (rebuildIfDue() && !moving)
        advance(sFixed::Zero);
    if (!moving)
        return;

    advance(step);
    if (mCurrentFrame > getEndFrame())
    {
        mCurrentFrame = getEndFrame();
        stop();
    }
}

void Sequencer::update(float rate)
{
    const float fps = mpResource ? static_cast<float>(mpResource->getFPS()) : 0.0f;
    const float delta = fps * rate / getFrameRate();
    update(std::isfinite(delta) ? sFixed(delta) : sFixed::Zero);
}

void Sequencer::setResource(ResourceBase* resource)
{
    SequencerResource* sequence = resource ? resource->cast<SequencerResource>() : nullptr;
    if (sequence && isPlayedAbove(sequence))
    {
        DEV_TRACE("Sequence plays itself.\n");
        sequence = nullptr;
    }

    stop();
    deleteAllTrack();
    replaceReference(mpResource, sequence);

    mCurrentFrame = mpResource ? getStartFrame() : sFixed::Zero;
    if (mpResource)
        build();
    else
        mPreviousFrame = sFixed::Zero;
    findMarker();
    advance(sFixed::Zero);
}

ResourceBase* Sequencer::getResource() const
{
    return mpResource;
}

void Sequencer::play()
{
    mPlaying = mpResource != nullptr;
}

void Sequencer::seek(unsigned int frame)
{
    seekWithoutApplySequence(frame);
    advance(sFixed::Zero);
}

void Sequencer::seekWithoutApplySequence(unsigned int frame)
{
    rebuildIfDue();
    moveHead(frame);
}

void Sequencer::moveHead(unsigned int frame)
{
    if (mpResource)
    {
        const sFixed wanted = toFrame(frame);
        mCurrentFrame = wanted < getStartFrame() ? getStartFrame() : minimum(wanted, getEndFrame());
        mPreviousFrame = mCurrentFrame;
    }
    findMarker();
    clearCurrentKey();
}

void Sequencer::applySequence(sFixed delta)
{
    rebuildIfDue();
    advance(minimum(maximum(delta, sFixed::Zero), toFrame(LastFrame)));
}

void Sequencer::resetMarkerCount()
{
    if (mpMarkerCount)
        std::memset(mpMarkerCount, 0, mMarkerNum);
}

void Sequencer::clearCurrentMarker()
{
    mpCurrentMarker = nullptr;
    mNextMarkerFrame = sFixed::Zero;
}

void Sequencer::clearCurrentKey()
{
    for (unsigned int i = 0; i < mTrackNum; ++i)
    {
        for (unsigned int j = 0; j < mpTrack[i].laneNum; ++j)
            mpTrack[i].lane[j].clearCurrentKey();
    }
}

// The flag of the resource is gone after a frame; a sequencer that slept through it still has an old revision.
bool Sequencer::isRebuildDue() const
{
    return mpResource && (mpResource->isUpdated() || mpResource->getRevision() != mBuiltRevision);
}

void Sequencer::makePropertyList(PropertyList& list)
{
    list.add(new IndirectResourceProperty("Resource", this, &Sequencer::getResource, &Sequencer::setResource));
}

void Sequencer::makeControlList(List<ControlBase>& list)
{
    makeTransportControls(list, SequencerResource::getStaticTypeInfo());
}

void Sequencer::makeTransportControls(List<ControlBase>& list, const TypeInfo* resourceType)
{
    list.addLast(new PropertyControl(
        new IndirectResourceProperty("Resource", this, &Sequencer::getResource, &Sequencer::setResource),
        resourceType));
    list.addLast(new TriggerControl<unsigned int>("Seek", this, &Sequencer::seek));
    list.addLast(new TriggerControl<void>("Play", this, &Sequencer::play));
    list.addLast(new TriggerControl<void>("Stop", this, &Sequencer::stop));
}

void* Sequencer::allocate(unsigned int size)
{
    return mpAllocator ? mpAllocator->allocate(static_cast<int>(size), Alignment)
                       : ::operator new[](size, std::nothrow);
}

void Sequencer::deallocate(void* block)
{
    if (mpAllocator)
        mpAllocator->deallocate(block);
    else
        ::operator delete[](block);
}

// Zeroed. Without memory there are no records, and `count` says so.
template <typename Record>
Record* Sequencer::allocateRecords(unsigned int& count)
{
    const unsigned long long size = static_cast<unsigned long long>(count) * sizeof(Record);
    void* block = size && size <= 0x7FFFFFFF ? allocate(static_cast<unsigned int>(size)) : nullptr;
    if (block)
        std::memset(block, 0, size);
    else
        count = 0;
    return static_cast<Record*>(block);
}

bool Sequencer::isPlayedAbove(const SequencerResource* resource) const
{
    for (const Sequencer* parent = mpParent; parent; parent = parent->mpParent)
    {
        if (parent->mpResource == resource)
            return true;
    }
    return false;
}

bool Sequencer::rebuildIfDue()
{
    if (!isRebuildDue())
        return false;
    deleteAllTrack();
    build();
    findMarker();
    return true;
}

void Sequencer::build()
{
    mBuiltRevision = mpResource->getRevision();
    mMarkerNum = mpResource->getMarkerNum();
    mpMarkerCount = allocateRecords<unsigned char>(mMarkerNum);
    mTrackNum = mpResource->getTrackNum();
    mpTrack = allocateRecords<sTrackData>(mTrackNum);
    unsigned int built = 0;
    for (; built < mTrackNum && AllocatorBase::getGlobalAllocator()->hasRoom(); ++built)
        buildTrack(mpTrack[built], mpResource->getTrackArray()[built]);
    if (built < mTrackNum)
        DEV_TRACE("Not enough memory for all tracks.\n");
    repairHead();
}

void Sequencer::buildTrack(sTrackData& track, const sTrackRecord& record)
{
    const TypeInfo* type = TypeInfo::find(record.objectTypeID);
    if (!type)
        return;
    if (!mpResource->isTrackType(*type))
    {
        DEV_TRACE("No track may hold a %s.\n", type->getName());
        return;
    }
    track.object = type->newInstance();
    if (!track.object)
        return;
    if (Sequencer* child = track.object->cast<Sequencer>())
        child->mpParent = this;
    if (record.laneNum)
        buildLanes(track, record);
}

void Sequencer::buildLanes(sTrackData& track, const sTrackRecord& record)
{
    track.laneNum = record.laneNum;
    track.lane = allocateRecords<sLaneData>(track.laneNum);
    List<ControlBase> controls;
    track.object->makeControlList(controls);
    for (unsigned int i = 0; i < track.laneNum && AllocatorBase::getGlobalAllocator()->hasRoom(); ++i)
        buildLane(track.lane[i], record.lane[i], controls);
    deleteControls(controls);
}

void Sequencer::buildLane(sLaneData& lane, const sLaneRecord& record, const List<ControlBase>& controls)
{
    for (const ControlBase* control : controls)
    {
        if (!sLaneData::isMatch(record, *control))
            continue;
        unsigned int parameterNum = record.keyInterpolateNum;
        sInterpolateParameter* parameter = allocateRecords<sInterpolateParameter>(parameterNum);
        if (parameterNum == record.keyInterpolateNum)
            lane.bind(control->duplicate(), record, parameter);
        return;
    }
}

// On purpose: a head behind the end goes to the start, unlike one that is sought.
void Sequencer::repairHead()
{
    const int start = static_cast<int>(getStartFrame());
    const int end = static_cast<int>(getEndFrame());
    const auto isOutside = [start, end](sFixed frame)
    {
        return static_cast<int>(frame) < start || static_cast<int>(frame) > end;
    };

    if (isOutside(mCurrentFrame))
    {
        mCurrentFrame = getStartFrame();
        mPreviousFrame = mCurrentFrame;
    }
    if (isOutside(mPreviousFrame))
        mPreviousFrame = mCurrentFrame;
}

void Sequencer::deleteAllTrack()
{
    for (unsigned int i = 0; i < mTrackNum; ++i)
        deleteTrack(mpTrack[i]);
    deallocate(mpTrack);
    deallocate(mpMarkerCount);
    mpTrack = nullptr;
    mpMarkerCount = nullptr;
    mTrackNum = 0;
    mMarkerNum = 0;
}

// The controls lead into the object, so they go first.
void Sequencer::deleteTrack(sTrackData& track)
{
    for (unsigned int i = 0; i < track.laneNum; ++i)
    {
        delete track.lane[i].control;
        deallocate(track.lane[i].interpolateParameter);
    }
    deallocate(track.lane);
    disposeObject(track.object);
}

sFixed Sequencer::getStartFrame() const
{
    return toFrame(mpResource->getStartFrame());
}

sFixed Sequencer::getEndFrame() const
{
    return toFrame(mpResource->getEndFrame());
}

void Sequencer::advance(sFixed delta)
{
    if (!mpResource)
        return;

    mPreviousFrame = mCurrentFrame;
    sFixed target = mPreviousFrame + delta;
    while (mNextMarkerFrame < sFixed(NoFrame, 16) && mMarkerNum && mNextMarkerFrame <= target)
    {
        mCurrentFrame = mNextMarkerFrame;
        updateCurrentMarker();
        applyTrackSequence(mCurrentFrame - mPreviousFrame);
        target = applyMarker(target);
        mPreviousFrame = mCurrentFrame;
    }
    mCurrentFrame = target;
    applyTrackSequence(mCurrentFrame - mPreviousFrame);
}

void Sequencer::applyTrackSequence(sFixed delta)
{
    const sPlayHead head(mPreviousFrame, mCurrentFrame);
    for (unsigned int i = 0; i < mTrackNum; ++i)
    {
        const sTrackData& track = mpTrack[i];
        for (unsigned int j = 0; j < track.laneNum; ++j)
            track.lane[j].step(head);
        if (Sequencer* child = track.object ? track.object->cast<Sequencer>() : nullptr)
            child->update(delta);
    }
}

// A marker at or before the head counts as passed: it is current and is not crossed.
void Sequencer::findMarker()
{
    clearCurrentMarker();
    updateCurrentMarker();
}

void Sequencer::updateCurrentMarker()
{
    if (!mpResource || mMarkerNum == 0)
        return;

    const sMarkerRecord* markers = mpResource->getMarkerArray();
    unsigned int next = 0;
    if (mpCurrentMarker)
        next = findFollowingMarker(static_cast<unsigned int>(mpCurrentMarker - markers)) + 1;
    else
    {
        while (next < mMarkerNum && toFrame(markers[next].frame) <= mCurrentFrame)
            ++next;
    }
    mpCurrentMarker = next ? &markers[minimum(next, mMarkerNum) - 1] : nullptr;
    const unsigned int following = next ? findFollowingMarker(next - 1) : 0;
    mNextMarkerFrame = sFixed(static_cast<int>(following < mMarkerNum ? markers[following].frame : NoFrame), 16);
}

// Markers may lie out of order: those before the head are stepped over, or the head would cross them backward without
// end. The number of markers when none follows.
unsigned int Sequencer::findFollowingMarker(unsigned int index) const
{
    const sMarkerRecord* markers = mpResource->getMarkerArray();
    unsigned int following = index + 1;
    while (following < mMarkerNum && toFrame(markers[following].frame) < mCurrentFrame)
        ++following;
    return following;
}

// Returns where the step ends: a jump keeps what is left of it.
sFixed Sequencer::applyMarker(sFixed target)
{
    const sFixed rest = target - mCurrentFrame;
    const sMarkerRecord& marker = *mpCurrentMarker;
    unsigned char& count = mpMarkerCount[mpCurrentMarker - mpResource->getMarkerArray()];
    if (marker.count != 0 && count >= marker.count)
    {
        if (marker.reset)
            count = 0;
    }
    else
    {
        jump(marker);
        ++count;
    }
    return mCurrentFrame + rest;
}

void Sequencer::jump(const sMarkerRecord& marker)
{
    const eMarkerType type = static_cast<eMarkerType>(marker.type);
    if (type == eMarkerType::JumpFrame)
        moveHead(marker.targetFrame);
    else if (type == eMarkerType::JumpTarget && marker.targetIndex < mMarkerNum)
        moveHead(mpResource->getMarkerArray()[marker.targetIndex].frame);
}
