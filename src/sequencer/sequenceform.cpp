#include "sequencer/sequenceform.h"

#include "foundation/autostring.h"
#include "reflection/valuetext.h"
#include "sequencer/trackform.h"
#include "ui/uilinerun.h"

#include <algorithm>

namespace
{
constexpr int LastFrame = static_cast<int>(MaximumFrame);

// How many frames the head moves with each frame of the program while it is held beyond an edge, and from how many
// pixels on it moves faster.
constexpr int SlowStep = 1;
constexpr int FastStep = 5;
constexpr int FastDistance = 32;

constexpr int TickFrames = 10;
constexpr int NumberFrames = 60;

// Below the base line of the scale, which runs one line of text under the top.
constexpr int TickHeight = 4;
constexpr int NumberTickHeight = 8;

constexpr sColor InkColor = sColor::Black;

int getBaseLine()
{
    return static_cast<int>(UIPainter::getFontSize().height);
}

int getStep(bool isFar)
{
    return isFar ? FastStep : SlowStep;
}
}

void SequencerTool::SequenceForm::update(float deltaTime)
{
    if (mDraggingHead)
        dragHead();
    TimelineForm::update(deltaTime);
}

void SequencerTool::SequenceForm::eventPaint(UIPainter* painter)
{
    TimelineForm::eventPaint(painter);
    const SequencerTool& tool = getTrackForm()->getTool();
    const int scroll = getTrackForm()->getScrollBarPosition().x;
    paintScale(painter, scroll);
    // The limits are what a document says they are, and may wrap.
    const auto toX = [scroll](unsigned int frame)
    {
        return static_cast<int>(frame - static_cast<unsigned int>(scroll));
    };
    paintLimit(painter, toX(tool.getStartFrame()), "S");
    paintLimit(painter, toX(tool.getEndFrame()), "E");
    paintFrameLine(painter, toX(tool.getCurrentFrame()));
}

void SequencerTool::SequenceForm::eventMouseMove(const sPoint& position)
{
    mLastMouseX = position.x;
}

void SequencerTool::SequenceForm::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (!(button & UIMouseDownMessage::FirstButton) || position.y >= RulerHeight)
        return;
    mDraggingHead = true;
    mLastMouseX = position.x;
    dragHead();
}

// Any release ends the capture of the mouse, and so the drag.
void SequencerTool::SequenceForm::eventMouseUp(const sPoint& /*position*/, unsigned int /*button*/)
{
    mDraggingHead = false;
}

void SequencerTool::SequenceForm::eventMouseWheel(const sPoint& amount)
{
    getTrackForm()->setScrollBarPosition(getTrackForm()->getScrollBarPosition() - amount);
}

// Two quick presses are two drags.
void SequencerTool::SequenceForm::eventMouseDoubleClick(const sPoint& position, unsigned int button)
{
    eventMouseDown(position, button);
}

void SequencerTool::SequenceForm::dragHead()
{
    TrackForm& form = *getTrackForm();
    const int width = static_cast<int>(getSize().width);
    const int current = static_cast<int>(form.getTool().getCurrentFrame());
    const sPoint scroll = form.getScrollBarPosition();
    int frame = scroll.x + mLastMouseX;
    if (mLastMouseX < 0)
    {
        frame = std::max(current - getStep(mLastMouseX < -FastDistance), 0);
        form.setScrollBarPosition(sPoint(frame, scroll.y));
    }
    else if (mLastMouseX >= width)
    {
        frame = std::min(current + getStep(mLastMouseX >= width + FastDistance), LastFrame);
        form.setScrollBarPosition(sPoint(frame - width, scroll.y));
    }
    form.getTool().setCurrentFrame(static_cast<unsigned int>(frame));
}

// What lies outside of the form is not drawn, but for numbers of which a part is inside.
void SequencerTool::SequenceForm::paintScale(UIPainter* painter, int scroll) const
{
    const int base = getBaseLine();
    const int width = static_cast<int>(getSize().width);
    UILineRun lines(*painter);
    lines.add(sPoint(0, base), sPoint(width, base), InkColor);
    for (int frame = scroll - scroll % NumberFrames; frame < scroll + width + NumberFrames; frame += TickFrames)
    {
        const int x = frame - scroll;
        const bool hasNumber = frame % NumberFrames == 0;
        if (x >= 0 && x < width)
            lines.add(sPoint(x, base + (hasNumber ? NumberTickHeight : TickHeight)), sPoint(x, base), InkColor);
        if (!hasNumber)
            continue;
        char buffer[ValueTextSize];
        const char* number = formatInteger(buffer, frame);
        painter->drawString(sPoint(x - UIPainter::getTextWidth(number) / 2, base + NumberTickHeight), number, InkColor);
    }
}

void SequencerTool::SequenceForm::paintLimit(UIPainter* painter, int x, const char* label) const
{
    if (x >= 0 && x < static_cast<int>(getSize().width))
        painter->drawString(sPoint(x, 0), label, InkColor);
    paintFrameLine(painter, x);
}

void SequencerTool::SequenceForm::paintFrameLine(UIPainter* painter, int x) const
{
    if (x >= 0 && x < static_cast<int>(getSize().width))
        painter->drawLine(sPoint(x, getBaseLine()), sPoint(x, static_cast<int>(getSize().height)), InkColor);
}
