#pragma once

#include "sequencer/sequencertool.h"
#include "ui/uicontainer.h"

// A row on either side of the timeline, framed in the colour of its selection. It takes the focus, by which it is
// selected, and passes the keys and the wheel on to the timeline.
class SequencerTool::TimelineRow : public UIContainer
{
public:
    explicit TimelineRow(TrackForm* trackForm);

    TrackForm* getTrackForm() const { return mpTrackForm; }
    SequencerTool& getTool() const;

    // The frame at the left edge of the right side.
    int getScroll() const;

    virtual bool isSelected() const = 0;

    void eventPaint(UIPainter* painter) override;

private:
    TrackForm* mpTrackForm;
};
