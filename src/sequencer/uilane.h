#pragma once

#include "sequencer/bandrow.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/timelinerow.h"

// The row of a lane, inside that of its track.
class SequencerTool::UILane : public TimelineRow
{
public:
    static constexpr int Height = 32;

    // The first one of a track has the place 0.
    UILane(SequencerLane* lane, UITrack* track, unsigned int place);

    SequencerLane* getLane() const { return mpLane; }
    UITrack* getTrack() const { return mpTrack; }

    // In a row of a track of that width.
    void setTrackWidth(unsigned int width);

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

class SequencerTool::LaneSequence : public BandRow<UILane, SequencerKey>
{
public:
    using BandRow::BandRow;

protected:
    const ObjectList* getElements() const override;
    const SequencerKey* getSelectElement() const override;
    void select(SequencerKey* key) override;
};
