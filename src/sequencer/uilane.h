#pragma once

#include "sequencer/rubberband.h"
#include "sequencer/timelinerow.h"

// The row of a lane, below that of its track.
class SequencerTool::UILane : public TimelineRow
{
public:
    static constexpr int Height = 32;

    UILane(SequencerLane* lane, UITrack* track);

    SequencerLane* getLane() const { return mpLane; }
    UITrack* getTrack() const { return mpTrack; }

    bool isSelected() const override;
    void eventFocus() override;

private:
    SequencerLane* mpLane;
    UITrack* mpTrack;
};

class SequencerTool::LaneInfo : public UILane
{
public:
    using UILane::UILane;

    void eventPaint(UIPainter* painter) override;
};

class SequencerTool::LaneSequence : public UILane
{
public:
    using UILane::UILane;

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;

private:
    RubberBand mBand;
};
