#pragma once

#include "resource/resourcebase.h"
#include "sequencer/sequencerrecord.h"

// A timeline of keys bound by name to the controls of objects, as packed arrays made for playback. It can only be
// read; whoever edits works on SequencerResourceIntermediate, which keeps the same arrays up to date.
class SequencerResource : public ResourceBase
{
    REFLECTED(SequencerResource)

public:
    using eInterpolateType = ::eInterpolateType;

    // Written for whoever looks at a file; nothing depends on it.
    enum class eSequenceType : unsigned int
    {
        Sequence = 0,
        Animation = 1,
    };

    SequencerResource();
    ~SequencerResource() override;

    // The native file. A file that is no sequence, is cut short or counts beyond its end leaves the resource empty.
    [[nodiscard]] bool load(Stream& stream) override;
    [[nodiscard]] bool save(Stream& stream) override;

    const char* getExtension() const override;
    const TypeInfo* getIntermediateType() const override;
    const TypeInfo* getExtraIntermediateType(unsigned int index) const override;
    const char* getFilter() const override;

    // Frees all content. An emptied sequence ends at frame 0.
    virtual void removeAll();

    // Whether playback may make an object of that class for a track.
    virtual bool isTrackType(const TypeInfo& type) const;

    eSequenceType getSequenceType() const { return mSequenceType; }
    void setSequenceType(eSequenceType type) { mSequenceType = type; }

    // Frames of the sequence in a second.
    unsigned int getFPS() const { return mFPS; }

    // Both are played.
    unsigned int getStartFrame() const { return mStartFrame; }
    unsigned int getEndFrame() const { return mEndFrame; }

    const sTrackRecord* getTrackArray() const { return mpTrack; }
    unsigned int getTrackNum() const { return mTrackNum; }
    const sMarkerRecord* getMarkerArray() const { return mpMarker; }
    unsigned int getMarkerNum() const { return mMarkerNum; }

    // Bytes that travel with the native file.
    const unsigned char* getExtraData() const { return mpExtra; }
    unsigned int getExtraSize() const { return mExtraSize; }

    // The value in the record of a key of that type. Null for the types whose value shares the word of the head, for
    // resources and for types without keys.
    static void* getKeyParameter(void* key, unsigned int type);

protected:
    friend class NativeSequenceReader;
    friend class SequenceBuild;

    // Copies the bytes; null or 0 leaves no extra data.
    void setExtraData(const void* bytes, unsigned int size);

    // The part of removeAll() for arrays that are filled only up to a lane of a track.
    void destructData(unsigned int trackIndex, unsigned int laneIndex);

    eSequenceType mSequenceType = eSequenceType::Sequence;
    unsigned int mTrackNum = 0;
    unsigned int mMarkerNum = 0;
    unsigned int mStartFrame = 0;
    unsigned int mEndFrame = 120;
    unsigned int mFPS = 60;
    unsigned int mExtraSize = 0;
    unsigned char* mpExtra = nullptr;
    sTrackRecord* mpTrack = nullptr;
    sMarkerRecord* mpMarker = nullptr;

private:
    void freeLanes(sTrackRecord& track, unsigned int laneNum);
    void freeArrays();
};
