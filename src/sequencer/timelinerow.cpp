#include "sequencer/timelinerow.h"

#include "sequencer/trackform.h"

namespace
{
constexpr sSize StartSize{64, 24};
}

SequencerTool::TimelineRow::TimelineRow(TrackForm* trackForm) : UIContainer(RowElement), mpTrackForm(trackForm)
{
    setSize(StartSize);
    setBorderStyle(eBorderStyle::Frame);
}

SequencerTool& SequencerTool::TimelineRow::getTool() const
{
    return mpTrackForm->getTool();
}

int SequencerTool::TimelineRow::getScroll() const
{
    return mpTrackForm->getScrollBarPosition().x;
}

void SequencerTool::TimelineRow::eventPaint(UIPainter* painter)
{
    setBorderColor(isSelected() ? sColor::Red : sColor::Black);
    drawBorder(painter);
}
