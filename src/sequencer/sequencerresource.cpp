#include "sequencer/sequencerresource.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "resource/fileblock.h"
#include "sequencer/keytable.h"
#include "sequencer/nativesequence.h"
#include "sequencer/sequencerresourceintermediate.h"

#include <algorithm>
#include <cstring>

REFLECT(SequencerResource, eTypeAttribute::None, "ResourceBase");

namespace
{
constexpr unsigned int EmptyEndFrame = 0;
constexpr unsigned int DefaultFPS = 60;
}

SequencerResource::SequencerResource()
{
    setAttribute(Native);
}

SequencerResource::~SequencerResource()
{
    SequencerResource::removeAll();
}

bool SequencerResource::load(Stream& stream)
{
    removeAll();
    const FileBlock file(stream);
    if (file.empty())
        return false;
    if (!NativeSequenceReader(*this, file.getView()).read())
    {
        removeAll();
        return false;
    }
    if (getPath().empty())
        setPath(static_cast<BinaryFileStream&>(stream).getPath());
    return true;
}

bool SequencerResource::save(Stream& stream)
{
    return stream.getType() == Stream::BinaryFile && writeNativeSequence(*this, static_cast<BinaryFileStream&>(stream));
}

const char* SequencerResource::getExtension() const
{
    return "seq";
}

const TypeInfo* SequencerResource::getIntermediateType() const
{
    return SequencerResourceIntermediate::getStaticTypeInfo();
}

const TypeInfo* SequencerResource::getExtraIntermediateType(unsigned int index) const
{
    return index == 0 ? TypeInfo::find("AnimResource") : nullptr;
}

const char* SequencerResource::getFilter() const
{
    return "seq|Sequence";
}

void SequencerResource::removeAll()
{
    for (unsigned int i = 0; mpTrack && i < mTrackNum; ++i)
        freeLanes(mpTrack[i], mpTrack[i].laneNum);
    setExtraData(nullptr, 0);
    freeArrays();
    raiseRevision();
}

void SequencerResource::destructData(unsigned int trackIndex, unsigned int laneIndex)
{
    for (unsigned int i = 0; mpTrack && i < mTrackNum && i <= trackIndex; ++i)
        freeLanes(mpTrack[i], i == trackIndex ? laneIndex : mpTrack[i].laneNum);
    freeArrays();
}

void SequencerResource::freeLanes(sTrackRecord& track, unsigned int laneNum)
{
    for (unsigned int i = 0; track.lane && i < laneNum; ++i)
        deallocate(track.lane[i].key);
    deallocate(track.lane);
    track.lane = nullptr;
    track.laneNum = 0;
}

void SequencerResource::freeArrays()
{
    deallocate(mpTrack);
    deallocate(mpMarker);
    mpTrack = nullptr;
    mpMarker = nullptr;
    mTrackNum = 0;
    mMarkerNum = 0;
    mStartFrame = 0;
    // On purpose: unlike a new sequence, an emptied one has no length.
    mEndFrame = EmptyEndFrame;
    mFPS = DefaultFPS;
}

void SequencerResource::setExtraData(const void* bytes, unsigned int size)
{
    deallocate(mpExtra);
    mpExtra = bytes && size ? static_cast<unsigned char*>(allocate(size)) : nullptr;
    mExtraSize = mpExtra ? size : 0;
    if (mpExtra)
        std::memcpy(mpExtra, bytes, size);
}

// A file must not open windows or make a second one of what the system holds once.
bool SequencerResource::isTrackType(const TypeInfo& type) const
{
    static constexpr const char* Refused[] = {"UIWindow", "System", "Application"};
    return std::none_of(std::begin(Refused), std::end(Refused),
                        [&type](const char* name) { return type.isDerivedFrom(name); });
}

void* SequencerResource::getKeyParameter(void* key, unsigned int type)
{
    const sKeyRow* row = KeyTable::find(type);
    const bool behindHead = row && row->offset == 4 && row->type != KeyTable::ResourceType;
    return behindHead ? static_cast<unsigned char*>(key) + row->offset : nullptr;
}
