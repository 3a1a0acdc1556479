#pragma once

#include "sequencer/sequencertool.h"

// The left column of the timeline: the names of the rows.
class SequencerTool::HeaderForm : public UIForm
{
public:
    explicit HeaderForm(TrackForm* trackForm);

    void update(float deltaTime) override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseWheel(const sPoint& amount) override;
    void eventKeyDown(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) override { delegate(); }

private:
    TrackForm* mpTrackForm;
};
