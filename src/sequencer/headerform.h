#pragma once

#include "sequencer/timelineform.h"

// The left column of the timeline: the names of the rows.
class SequencerTool::HeaderForm : public TimelineForm
{
public:
    using TimelineForm::TimelineForm;

    void eventMouseWheel(const sPoint& amount) override;
};
