#include "sequencer/uilane.h"

#include "sequencer/sequencerlane.h"
#include "sequencer/uitrack.h"
#include "ui/uiaxis.h"
#include "ui/uicolor.h"

namespace
{
constexpr sSize StartSize{64, 48};
constexpr sPoint LabelPosition{12, 8};

// Of the frame of the track's row, on each side.
constexpr int Border = 1;
}

SequencerTool::UILane::UILane(SequencerLane* lane, UITrack* track, unsigned int place)
    : TimelineRow(track->getTrackForm()), mpLane(lane), mpTrack(track)
{
    setPosition(sPoint(Border, UITrack::CollapsedHeight + static_cast<int>(place) * Height));
    setSize(StartSize);
}

void SequencerTool::UILane::setTrackWidth(unsigned int width)
{
    setSize(makeSize(static_cast<int>(width) - 2 * Border, Height));
}

bool SequencerTool::UILane::isSelected() const
{
    return getTool().getSelectLane() == mpLane;
}

void SequencerTool::UILane::eventFocus()
{
    getTool().setSelectLane(mpLane);
}

void SequencerTool::LaneInfo::eventPaint(UIPainter* painter)
{
    painter->drawString(LabelPosition, getLane()->getControlName(), UIPainter::getColors().mFontColor);
    UILane::eventPaint(painter);
}

const ObjectList* SequencerTool::LaneSequence::getElements() const
{
    return &getLane()->getKeyList();
}

const SequencerKey* SequencerTool::LaneSequence::getSelectElement() const
{
    return getTool().getSelectKey();
}

// A selected key is one of the selected lane.
void SequencerTool::LaneSequence::select(SequencerKey* key)
{
    if (key)
        getTool().setSelectLane(getLane());
    getTool().setSelectKey(key);
}
