#pragma once

#include "sequencer/rubberband.h"
#include "sequencer/timelinerow.h"

// The row of the markers.
class SequencerTool::UIMarker : public TimelineRow
{
public:
    explicit UIMarker(TrackForm* trackForm);

    bool isSelected() const override;
    void eventFocus() override;
};

class SequencerTool::MarkerInfo : public UIMarker
{
public:
    using UIMarker::UIMarker;

    void eventPaint(UIPainter* painter) override;
};

class SequencerTool::MarkerSequence : public UIMarker
{
public:
    using UIMarker::UIMarker;

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;

private:
    RubberBand mBand;
};
