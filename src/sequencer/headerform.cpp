#include "sequencer/headerform.h"

#include "sequencer/trackform.h"

// On purpose: over the names the wheel turns the other way than over the frames.
void SequencerTool::HeaderForm::eventMouseWheel(const sPoint& amount)
{
    TrackForm& form = *getTrackForm();
    form.setScrollBarPosition(form.getScrollBarPosition() + sPoint(0, amount.y));
}
