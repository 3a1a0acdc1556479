#include "sequencer/nativesequence.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "sequencer/keytable.h"

#include <cstring>

namespace
{
constexpr unsigned int Magic = 0x20514553; // "SEQ "
constexpr unsigned int Version = 0;

struct sFileHeader
{
    unsigned int magic;
    unsigned int version;
    unsigned int sequenceType;
    unsigned int startFrame;
    unsigned int endFrame;
    unsigned int fps;
    unsigned int trackNum;
    unsigned int markerNum;
    unsigned int extraSize;
};

struct sFileMarker
{
    unsigned short frame;
    unsigned short targetFrame;
    unsigned short targetIndex;
    unsigned char type : 2;
    unsigned char : 5;
    unsigned char reset : 1;
    unsigned char count;
};

struct sFileTrack
{
    unsigned int objectTypeID;
    unsigned int laneNum;
};

struct sFileLane
{
    unsigned int controlType;
    unsigned int nameHash;
    unsigned short keyNum;
    unsigned char keyStride;
    unsigned char keyInterpolateNum;
};

static_assert(sizeof(sFileHeader) == 36 && sizeof(sFileMarker) == 8);
static_assert(sizeof(sFileTrack) == 8 && sizeof(sFileLane) == 12);

template <typename T>
T copyFrom(const ByteView& view, ByteView::Offset offset)
{
    T record;
    std::memcpy(&record, view.at(offset), sizeof(T));
    return record;
}

// Stops writing at the first byte that the stream refuses.
class Output
{
public:
    explicit Output(BinaryStream& stream) : mrStream(stream) {}

    void write(const void* bytes, unsigned int size)
    {
        mComplete = mComplete && (size == 0 || mrStream.write(bytes, size) == size);
    }

    template <typename Record>
    void writeRecord(const Record& record)
    {
        write(&record, sizeof(record));
    }

    bool isComplete() const { return mComplete; }

private:
    BinaryStream& mrStream;
    bool mComplete = true;
};

void writeLane(Output& output, const sLaneRecord& lane)
{
    output.writeRecord(sFileLane{lane.controlType, lane.nameHash, lane.keyNum, lane.keyStride, lane.keyInterpolateNum});
    output.write(lane.key, lane.keyNum * lane.keyStride);
}

void writeTrack(Output& output, const sTrackRecord& track)
{
    output.writeRecord(sFileTrack{track.objectTypeID, track.laneNum});
    for (unsigned int i = 0; i < track.laneNum; ++i)
        writeLane(output, track.lane[i]);
}

void writeMarker(Output& output, const sMarkerRecord& marker)
{
    sFileMarker file{};
    file.frame = static_cast<unsigned short>(marker.frame);
    file.targetFrame = static_cast<unsigned short>(marker.targetFrame);
    file.targetIndex = static_cast<unsigned short>(marker.targetIndex);
    file.type = static_cast<unsigned char>(marker.type);
    file.reset = static_cast<unsigned char>(marker.reset);
    file.count = static_cast<unsigned char>(marker.count);
    output.writeRecord(file);
}
}

bool writeNativeSequence(const SequencerResource& resource, BinaryStream& stream)
{
    Output output(stream);
    output.writeRecord(sFileHeader{Magic, Version, static_cast<unsigned int>(resource.getSequenceType()),
                                   resource.getStartFrame(), resource.getEndFrame(), resource.getFPS(),
                                   resource.getTrackNum(), resource.getMarkerNum(), resource.getExtraSize()});
    output.write(resource.getExtraData(), resource.getExtraSize());
    for (unsigned int i = 0; i < resource.getMarkerNum(); ++i)
        writeMarker(output, resource.getMarkerArray()[i]);
    for (unsigned int i = 0; i < resource.getTrackNum(); ++i)
        writeTrack(output, resource.getTrackArray()[i]);
    return output.isComplete();
}

bool NativeSequenceReader::read()
{
    return readHeader() && readMarkers() && readTracks();
}

bool NativeSequenceReader::readHeader()
{
    if (!pass(sizeof(sFileHeader)))
        return false;
    const sFileHeader header = copyFrom<sFileHeader>(mView, mPassed);
    if (header.magic != Magic || header.version != Version || !readExtraData(header.extraSize))
        return false;

    mrResource.mSequenceType = static_cast<SequencerResource::eSequenceType>(header.sequenceType);
    mrResource.mStartFrame = header.startFrame;
    mrResource.mEndFrame = header.endFrame;
    mrResource.mFPS = header.fps;
    mrResource.mTrackNum = header.trackNum;
    mrResource.mMarkerNum = header.markerNum;
    return true;
}

bool NativeSequenceReader::readExtraData(unsigned int size)
{
    if (!pass(size))
        return false;
    if (size)
        mrResource.setExtraData(mView.at(mPassed), size);
    return mrResource.mExtraSize == size;
}

bool NativeSequenceReader::readMarkers()
{
    const unsigned int markerNum = mrResource.mMarkerNum;
    if (!pass(Offset{markerNum} * sizeof(sFileMarker)) || !allocate(mrResource.mpMarker, markerNum))
        return false;

    for (unsigned int i = 0; i < markerNum; ++i)
    {
        const sFileMarker file = copyFrom<sFileMarker>(mView, mPassed + i * sizeof(sFileMarker));
        sMarkerRecord& marker = mrResource.mpMarker[i];
        marker.type = file.type;
        marker.frame = file.frame & MaximumFrame;
        marker.count = file.count;
        marker.reset = file.reset;
        marker.targetFrame = file.targetFrame & MaximumFrame;
        marker.targetIndex = file.targetIndex;
    }
    return true;
}

bool NativeSequenceReader::readTracks()
{
    const unsigned int trackNum = mrResource.mTrackNum;
    const bool fits = mView.contains(mNext, Offset{trackNum} * sizeof(sFileTrack));
    if (!fits || !allocate(mrResource.mpTrack, trackNum))
        return false;

    for (mTrackIndex = 0; mTrackIndex < trackNum; ++mTrackIndex)
    {
        mLaneIndex = 0;
        if (!readTrack(mrResource.mpTrack[mTrackIndex]))
        {
            mrResource.destructData(mTrackIndex, mLaneIndex);
            return false;
        }
    }
    return true;
}

bool NativeSequenceReader::readTrack(sTrackRecord& track)
{
    if (!pass(sizeof(sFileTrack)))
        return false;
    const sFileTrack file = copyFrom<sFileTrack>(mView, mPassed);
    if (!TypeInfo::find(file.objectTypeID))
    {
        DEV_TRACE("Object not found.\n");
        return false;
    }
    track.objectTypeID = file.objectTypeID;
    track.laneNum = file.laneNum;
    return readLanes(track);
}

bool NativeSequenceReader::readLanes(sTrackRecord& track)
{
    const bool fits = mView.contains(mNext, Offset{track.laneNum} * sizeof(sFileLane));
    if (!fits || !allocate(track.lane, track.laneNum))
        return false;

    for (mLaneIndex = 0; mLaneIndex < track.laneNum; ++mLaneIndex)
    {
        if (!readLane(track.lane[mLaneIndex]))
            return false;
    }
    return true;
}

bool NativeSequenceReader::readLane(sLaneRecord& lane)
{
    if (!pass(sizeof(sFileLane)))
        return false;
    const sFileLane file = copyFrom<sFileLane>(mView, mPassed);
    lane.controlType = file.controlType & 0xF;
    lane.nameHash = file.nameHash;
    lane.keyStride = file.keyStride;
    lane.keyInterpolateNum = file.keyInterpolateNum & 0xF;

    const bool strideFits = KeyTable::isStride(file.keyStride) || (!file.keyStride && !file.keyNum);
    const unsigned int size = file.keyNum * file.keyStride;
    if (!strideFits || !pass(size) || !allocate(lane.key, size))
        return false;
    lane.keyNum = file.keyNum;
    if (size)
        std::memcpy(lane.key, mView.at(mPassed), size);
    return true;
}

bool NativeSequenceReader::pass(Offset size)
{
    if (!mView.contains(mNext, size))
        return false;
    mPassed = mNext;
    mNext += size;
    return true;
}

// Zeroed, so that whatever frees a half filled array finds no stray pointers.
template <typename Record>
bool NativeSequenceReader::allocate(Record*& record, unsigned int count)
{
    const Offset size = Offset{count} * sizeof(Record);
    if (size == 0)
        return true;
    void* block = size <= 0x7FFFFFFF ? ResourceBase::allocate(static_cast<unsigned int>(size)) : nullptr;
    if (!block)
        return false;
    std::memset(block, 0, size);
    record = static_cast<Record*>(block);
    return true;
}
