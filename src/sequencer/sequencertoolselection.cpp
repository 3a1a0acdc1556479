#include "sequencer/sequencertool.h"

#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"

#include <type_traits>

namespace
{
using Tool = SequencerTool;
using Sequence = SequencerResourceIntermediate;

// The key operations of a resource, on the selected key.
template <typename... Values>
void editSelectKey(Tool& tool, void (Sequence::*edit)(AutoString, AutoString, SequencerKey&, Values...),
                   std::type_identity_t<Values>... values)
{
    Sequence* sequence = tool.getSequence();
    if (!sequence || !tool.getSelectTrack() || !tool.getSelectLane() || !tool.getSelectKey())
        return;
    const Tool::OwnEdit own(tool);
    (sequence->*edit)(tool.getSelectTrack()->getTrackName(), tool.getSelectLane()->getControlName(),
                      *tool.getSelectKey(), values...);
}

// The same for markers.
template <typename Value>
void editSelectMarker(Tool& tool, void (Sequence::*edit)(AutoString, Value), std::type_identity_t<Value> value)
{
    Sequence* sequence = tool.getSequence();
    if (!sequence || !tool.getSelectMarker())
        return;
    const Tool::OwnEdit own(tool);
    (sequence->*edit)(tool.getSelectMarker()->getMarkerName(), value);
}

// The neighbour of an element, or the element itself at the end of the list.
ObjectBase* step(const ObjectList& list, const ObjectBase* element, bool forward)
{
    const unsigned int index = list.getIndex(list.find(element));
    if (forward)
        return list[index + 1 < list.size() ? index + 1 : index];
    return list[index ? index - 1 : index];
}
}

void SequencerTool::setSelectMarker(SequencerMarker* marker)
{
    commitEdit();
    if (marker == mpSelectMarker)
        return;
    clearSelection();
    mMarkerTrackSelected = true;
    mpSelectMarker = marker;
    refreshControlForm();
}

void SequencerTool::selectMarkerTrack()
{
    commitEdit();
    if (mMarkerTrackSelected)
        return;
    clearSelection();
    mMarkerTrackSelected = true;
    mpSelectMarker = mpResource ? mpResource->findMarkerBlock(getCurrentFrame()) : nullptr;
    refreshControlForm();
}

void SequencerTool::setSelectTrack(SequencerTrack* track)
{
    commitEdit();
    if (track == mpSelectTrack)
        return;
    clearSelection();
    mpSelectTrack = track;
    refreshControlForm();
}

void SequencerTool::setSelectLane(SequencerLane* lane)
{
    commitEdit();
    if (lane == mpSelectLane)
        return;
    mpSelectMarker = nullptr;
    mMarkerTrackSelected = false;
    mpSelectLane = lane;
    if (lane)
        selectTrackOf(*lane);
    mpSelectKey = lane ? lane->findKeyBlock(getCurrentFrame()) : nullptr;
    refreshControlForm();
}

void SequencerTool::setSelectKey(SequencerKey* key)
{
    commitEdit();
    if (key == mpSelectKey)
        return;
    mpSelectKey = key;
    refreshControlForm();
}

void SequencerTool::selectTrackOf(const SequencerLane& lane)
{
    const auto has = [&lane](const SequencerTrack& track)
    {
        const ObjectList& lanes = track.getLaneList();
        return lanes.find(&lane) != lanes.end();
    };
    if (!mpResource || (mpSelectTrack && has(*mpSelectTrack)))
        return;
    for (ObjectBase* object : mpResource->getTrackList())
        if (SequencerTrack* track = static_cast<SequencerTrack*>(object); has(*track))
            mpSelectTrack = track;
}

void SequencerTool::moveSelectKey(unsigned int frame)
{
    editSelectKey(*this, &Sequence::moveKey, frame);
}

void SequencerTool::copySelectKeyInterpolateTypeToNative()
{
    editSelectKey(*this, &Sequence::updateKeyInterpolateType);
}

void SequencerTool::copySelectKeyParameterToNative()
{
    editSelectKey(*this, &Sequence::updateKeyParameter);
}

void SequencerTool::setSelectMarkerType(eMarkerType type)
{
    editSelectMarker(*this, &Sequence::setMarkerType, type);
}

void SequencerTool::setSelectMarkerCount(unsigned int count)
{
    editSelectMarker(*this, &Sequence::setMarkerCount, count);
}

void SequencerTool::moveSelectMarker(unsigned int frame)
{
    editSelectMarker(*this, &Sequence::moveMarker, frame);
}

void SequencerTool::setSelectMarkerTargetFrame(unsigned int frame)
{
    editSelectMarker(*this, &Sequence::setMarkerTargetFrame, frame);
}

void SequencerTool::setSelectMarkerReset(bool reset)
{
    editSelectMarker(*this, &Sequence::setMarkerReset, reset);
}

void SequencerTool::setSelectMarkerName(const AutoString& name)
{
    editSelectMarker(*this, &Sequence::setMarkerName, name);
}

void SequencerTool::setSelectMarkerTargetName(const AutoString& name)
{
    editSelectMarker(*this, &Sequence::setMarkerTargetName, name);
}

void SequencerTool::stepSelection(bool forward)
{
    if (!mpResource)
        return;
    if (mpSelectMarker)
        return setSelectMarker(
            static_cast<SequencerMarker*>(step(mpResource->getMarkerList(), mpSelectMarker, forward)));
    if (!mpSelectLane || mpSelectLane->getKeyList().empty())
        return;
    // On purpose: where no key is selected, it is backward that comes to the first one.
    const ObjectList& keys = mpSelectLane->getKeyList();
    ObjectBase* const end = forward ? *keys.rbegin() : *keys.begin();
    setSelectKey(static_cast<SequencerKey*>(mpSelectKey ? step(keys, mpSelectKey, forward) : end));
}
