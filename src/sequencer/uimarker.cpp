#include "sequencer/uimarker.h"

#include "sequencer/sequencerresourceintermediate.h"
#include "ui/uicolor.h"

namespace
{
constexpr sPoint LabelPosition{12, 2};
}

bool SequencerTool::UIMarker::isSelected() const
{
    return getTool().isMarkerTrackSelected();
}

void SequencerTool::UIMarker::eventFocus()
{
    getTool().selectMarkerTrack();
}

void SequencerTool::MarkerInfo::eventPaint(UIPainter* painter)
{
    painter->drawString(LabelPosition, "Marker", UIPainter::getColors().mFontColor);
    UIMarker::eventPaint(painter);
}

const ObjectList* SequencerTool::MarkerSequence::getElements() const
{
    const SequencerResourceIntermediate* sequence = getTool().getSequence();
    return sequence ? &sequence->getMarkerList() : nullptr;
}

const SequencerMarker* SequencerTool::MarkerSequence::getSelectElement() const
{
    return getTool().getSelectMarker();
}

void SequencerTool::MarkerSequence::select(SequencerMarker* marker)
{
    getTool().setSelectMarker(marker);
}
