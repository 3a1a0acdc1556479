#pragma once

#include "sequencer/sequencertool.h"

// A column of the timeline, of rows that scroll below a strip that does not.
class SequencerTool::TimelineForm : public UIForm
{
public:
    static constexpr int RulerHeight = 32;

    explicit TimelineForm(TrackForm* trackForm);

    TrackForm* getTrackForm() const { return mpTrackForm; }

    // How much of the rows can be seen at once, in pixels.
    unsigned int getViewHeight() const;

    void update(float deltaTime) override;
    void eventPaint(UIPainter* painter) override;
    void eventKeyDown(unsigned int /*keyCode*/, unsigned int /*combinationKey*/) override { delegate(); }

private:
    TrackForm* mpTrackForm;
};
