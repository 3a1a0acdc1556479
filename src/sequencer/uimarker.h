#pragma once

#include "sequencer/bandrow.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/timelinerow.h"

// The row of the markers.
class SequencerTool::UIMarker : public TimelineRow
{
public:
    using TimelineRow::TimelineRow;

    bool isSelected() const override;
    void eventFocus() override;
};

class SequencerTool::MarkerInfo : public UIMarker
{
public:
    using UIMarker::UIMarker;

    void eventPaint(UIPainter* painter) override;
};

class SequencerTool::MarkerSequence : public BandRow<UIMarker, SequencerMarker>
{
public:
    using BandRow::BandRow;

protected:
    const ObjectList* getElements() const override;
    const SequencerMarker* getSelectElement() const override;
    void select(SequencerMarker* marker) override;
};
