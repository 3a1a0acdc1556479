#pragma once

#include "foundation/sfixed.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"
#include "sequencer/lanedata.h"

class AllocatorBase;
class ResourceBase;
class SequencerResource;

// Plays a sequence: makes one live object for each track, binds the lanes to its controls, and moves a play head over
// keys and markers. It is an object with controls itself, so a track can hold another sequencer, which then goes with
// the steps of its parent. Time counts in frames of the sequence. One thread at a time plays it, and edits its
// resource; it makes its objects anew whenever the resource has changed.
class Sequencer : public ObjectBase
{
    REFLECTED(Sequencer)

public:
    using sLaneData = ::sLaneData;

    struct sTrackData
    {
        ObjectBase* object; // null when the track's class cannot be made
        sLaneData* lane;
        unsigned int laneNum;
    };

    // All frames are read as if they ended here: one more and a head could pass what means that no frame follows.
    static constexpr unsigned int LastFrame = NoFrame - 1;

    // The memory of tracks and lanes, not owned; the global heap for null.
    explicit Sequencer(AllocatorBase* allocator = nullptr);
    ~Sequencer() override;

    Sequencer(const Sequencer&) = delete;
    Sequencer& operator=(const Sequencer&) = delete;

    // One step, in frames of the sequence. Does nothing but follow the changes of the resource unless it plays.
    virtual void update(sFixed delta);

    // The same in frames of the application, at the rate of the sequence.
    void update(float rate);

    // Stops, and puts the head on the first frame. Takes a reference. What is no sequence counts as null; so does a
    // resource that a sequencer above this one plays, which would play itself without end.
    void setResource(ResourceBase* resource);
    ResourceBase* getResource() const;

    void play();
    void stop() { mPlaying = false; }
    bool isPlaying() const { return mPlaying; }

    // Puts the head on a frame, limited to start and end, and applies the lanes there. Does not stop.
    void seek(unsigned int frame);
    void seekWithoutApplySequence(unsigned int frame);

    // Moves the head by `delta` and applies the lanes, once for each marker on the way and once at the end.
    void applySequence(sFixed delta);

    void resetMarkerCount();
    void clearCurrentMarker();
    void clearCurrentKey();

    // Whether the next update or seek makes the live objects anew.
    bool isRebuildDue() const;

    const sTrackData* getTrackArray() const { return mpTrack; }
    unsigned int getTrackNum() const { return mTrackNum; }
    sFixed getCurrentFrame() const { return mCurrentFrame; }
    sFixed getPreviousFrame() const { return mPreviousFrame; }

    // How often each marker has acted, and the marker passed last, or null.
    const unsigned char* getMarkerCount() const { return mpMarkerCount; }
    const sMarkerRecord* getCurrentMarker() const { return mpCurrentMarker; }
    sFixed getNextMarkerFrame() const { return mNextMarkerFrame; }

    void makePropertyList(PropertyList& list) override;
    void makeControlList(List<ControlBase>& list) override;

protected:
    // "Resource" for resources of a class, then "Seek", "Play" and "Stop".
    void makeTransportControls(List<ControlBase>& list, const TypeInfo* resourceType);

private:
    void* allocate(unsigned int size);
    void deallocate(void* block);
    template <typename Record>
    Record* allocateRecords(unsigned int& count);

    bool isPlayedAbove(const SequencerResource* resource) const;
    bool rebuildIfDue();
    void build();
    void buildTrack(sTrackData& track, const sTrackRecord& record);
    void buildLanes(sTrackData& track, const sTrackRecord& record);
    void buildLane(sLaneData& lane, const sLaneRecord& record, const List<ControlBase>& controls);
    void repairHead();
    void deleteAllTrack();
    void deleteTrack(sTrackData& track);

    sFixed getStartFrame() const;
    sFixed getEndFrame() const;

    void moveHead(unsigned int frame);
    void advance(sFixed delta);
    void applyTrackSequence(sFixed delta);
    void findMarker();
    void updateCurrentMarker();
    unsigned int findFollowingMarker(unsigned int index) const;
    sFixed applyMarker(sFixed target);
    void jump(const sMarkerRecord& marker);

    AllocatorBase* mpAllocator;
    sTrackData* mpTrack = nullptr;
    unsigned char* mpMarkerCount = nullptr;
    unsigned int mTrackNum = 0;
    unsigned int mMarkerNum = 0;
    sFixed mCurrentFrame = sFixed::Zero;
    sFixed mPreviousFrame = sFixed::Zero;
    const sMarkerRecord* mpCurrentMarker = nullptr;
    sFixed mNextMarkerFrame = sFixed::Zero;
    bool mPlaying = false;
    SequencerResource* mpResource = nullptr;

    const Sequencer* mpParent = nullptr; // the one on a track of which this one lives
    unsigned int mBuiltRevision = 0;
};
