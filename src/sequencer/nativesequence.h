#pragma once

#include "resource/byteview.h"
#include "sequencer/sequencerresource.h"

class BinaryStream;

// Builds the arrays of an empty resource from the bytes of a native file. Each count is held against the bytes that
// are left before anything is allocated for it.
class NativeSequenceReader
{
public:
    NativeSequenceReader(SequencerResource& resource, const ByteView& view) : mrResource(resource), mView(view) {}

    // False leaves the resource without arrays.
    [[nodiscard]] bool read();

private:
    using Offset = ByteView::Offset;

    bool readHeader();
    bool readExtraData(unsigned int size);
    bool readMarkers();
    bool readTracks();
    bool readTrack(sTrackRecord& track);
    bool readLanes(sTrackRecord& track);
    bool readLane(sLaneRecord& lane);

    // Whether that many bytes follow; steps over them if so. `mPassed` is where they begin.
    bool pass(Offset size);

    template <typename Record>
    bool allocate(Record*& record, unsigned int count);

    SequencerResource& mrResource;
    const ByteView& mView;
    Offset mPassed = 0;
    Offset mNext = 0;
    unsigned int mTrackIndex = 0;
    unsigned int mLaneIndex = 0;
};

// The way back: writes what NativeSequenceReader reads. False when the stream takes less than all.
[[nodiscard]] bool writeNativeSequence(const SequencerResource& resource, BinaryStream& stream);
