#include "sequencer/uitrack.h"

#include "reflection/property.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/uilane.h"
#include "ui/uitextcontrol.h"

namespace
{
// Below the lanes, for the frame of the row.
constexpr int Border = 1;

constexpr sRect ExtractBox{0, 15, 9, 24};
constexpr sPoint MinusBegin{2, 19};
constexpr sPoint MinusEnd{7, 19};
constexpr sPoint BarBegin{4, 17};
constexpr sPoint BarEnd{4, 22};

constexpr sPoint NamePosition{12, 2};
constexpr sSize NameSize{64, 16};
}

SequencerTool::UITrack::UITrack(SequencerTrack* track, TrackForm* trackForm) : TimelineRow(trackForm), mpTrack(track)
{
    setFindKey(track);
}

bool SequencerTool::UITrack::isSelected() const
{
    return getTool().getSelectTrack() == mpTrack;
}

void SequencerTool::UITrack::eventFocus()
{
    getTool().setSelectTrack(mpTrack);
}

void SequencerTool::UITrack::eventSize()
{
    const unsigned int width = getSize().width;
    const unsigned int lanes = isExtracted() ? mLaneList.size() * UILane::Height + Border : 0;
    setSize({width, CollapsedHeight + lanes});
    if (width == mLaneWidth)
        return;
    mLaneWidth = width;
    for (UILane* lane : mLaneList)
        lane->setTrackWidth(width);
}

SequencerTool::TrackInfo::TrackInfo(SequencerTrack* track, TrackForm* trackForm) : UITrack(track, trackForm)
{
    PropertyBase* name =
        new IndirectProperty<AutoString>("TrackName", this, &TrackInfo::getTrackName, &TrackInfo::setTrackName);
    mpNameControl = new UITextControl(name, false, UIControl::WholeValue);
    mpNameControl->setPosition(NamePosition);
    mpNameControl->setSize(NameSize);
    add(mpNameControl);
}

void SequencerTool::TrackInfo::eventPaint(UIPainter* painter)
{
    painter->drawFrame(ExtractBox, sColor::Black);
    painter->drawLine(MinusBegin, MinusEnd, sColor::Black);
    if (!mExtracted)
        painter->drawLine(BarBegin, BarEnd, sColor::Black);
    UITrack::eventPaint(painter);
}

void SequencerTool::TrackInfo::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (button & UIMouseDownMessage::FirstButton && ExtractBox.intersect(position))
        mExtracted = !mExtracted;
}

// Two quick presses of the box open and close it.
void SequencerTool::TrackInfo::eventMouseDoubleClick(const sPoint& position, unsigned int button)
{
    eventMouseDown(position, button);
}

AutoString SequencerTool::TrackInfo::getTrackName() const
{
    return getTrack()->getTrackName();
}

void SequencerTool::TrackInfo::setTrackName(AutoString name)
{
    getTool().renameTrack(*getTrack(), name);
}

SequencerTool::TrackSequence::TrackSequence(SequencerTrack* track, const TrackInfo* info, TrackForm* trackForm)
    : UITrack(track, trackForm), mpInfo(info)
{
}
