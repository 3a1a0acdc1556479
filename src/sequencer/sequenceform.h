#pragma once

#include "sequencer/timelineform.h"

// The right column of the timeline: the ruler, on which the play head is dragged, and below it the frames of the rows.
class SequencerTool::SequenceForm : public TimelineForm
{
public:
    using TimelineForm::TimelineForm;

    bool isDraggingHead() const { return mDraggingHead; }

    // With the head dragged beyond an edge the form scrolls in every frame, whether the mouse moves or not.
    void update(float deltaTime) override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventMouseWheel(const sPoint& amount) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

private:
    void dragHead();
    void paintScale(UIPainter* painter, int scroll) const;
    void paintLimit(UIPainter* painter, int x, const char* label) const;
    void paintFrameLine(UIPainter* painter, int x) const;

    bool mDraggingHead = false;
    int mLastMouseX = 0;
};
