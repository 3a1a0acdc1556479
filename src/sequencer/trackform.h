#pragma once

#include "sequencer/sequencertool.h"

class UIScrollBar;

// The timeline: names on the left, frames on the right, and the bars that scroll both sides. One frame is one pixel.
class SequencerTool::TrackForm : public UIBase
{
public:
    // Starts with the row of the markers.
    explicit TrackForm(SequencerTool* tool);

    SequencerTool& getTool() const { return *mpTool; }

    // Frames across, pixels down. Each is limited by its bar.
    sPoint getScrollBarPosition() const;
    void setScrollBarPosition(const sPoint& position);

    // Throws all rows away but that of the markers.
    void reset();

    void addMarkerTrack();

    // With the rows of the lanes that it has, as far as there is memory for them.
    void addTrack(SequencerTrack* track);

    // One more lane of a track, which is searched for. Nothing for a track without rows.
    void addLane(SequencerLane* lane, SequencerTrack* track);

    void update(float deltaTime) override;

    // The arrows step the selection.
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    static void addLane(SequencerLane* lane, UITrack& info, UITrack& sequence);
    void makeForms(unsigned int splitSize);
    void placeBars(int right, int bottom);
    void updateVerticalBar();

    UISplitter* mpSplitter = nullptr;
    UIScrollBar* mpHorizontalBar;
    UIScrollBar* mpVerticalBar;
    HeaderForm* mpHeaderForm = nullptr;
    SequenceForm* mpSequenceForm = nullptr;
    SequencerTool* mpTool;
};
