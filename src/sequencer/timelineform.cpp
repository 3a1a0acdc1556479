#include "sequencer/timelineform.h"

#include "sequencer/trackform.h"
#include "ui/uicolor.h"
#include "ui/uipainter.h"

namespace
{
constexpr sSize StartSize{80, 128};
}

SequencerTool::TimelineForm::TimelineForm(TrackForm* trackForm)
    : UIForm(FlowLayout | FollowSize), mpTrackForm(trackForm)
{
    setSize(StartSize);
    setClientRegion(sRect(StartSize) + sPoint(0, RulerHeight));
    setBorderStyle(eBorderStyle::Concave);
}

unsigned int SequencerTool::TimelineForm::getViewHeight() const
{
    return (getClientRegion() & getOwnRegion()).getHeight();
}

void SequencerTool::TimelineForm::update(float deltaTime)
{
    UIForm::update(deltaTime);
    setClientPosition(sPoint(0, -mpTrackForm->getScrollBarPosition().y));
}

void SequencerTool::TimelineForm::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), UIPainter::getColors().mWindowColor);
    drawBorder(painter);
}
