#include "sequencer/trackform.h"

#include "foundation/allocator.h"
#include "sequencer/headerform.h"
#include "sequencer/sequenceform.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/uilane.h"
#include "sequencer/uimarker.h"
#include "sequencer/uitrack.h"
#include "ui/uiaxis.h"
#include "ui/uikeycode.h"
#include "ui/uiscrollbar.h"
#include "ui/uisplitter.h"

namespace
{
constexpr unsigned int StartSplitSize = 96;
}

SequencerTool::TrackForm::TrackForm(SequencerTool* tool)
    : mpHorizontalBar(new UIScrollBar(UIScrollBar::eBarDirection::Horizontal)),
      mpVerticalBar(new UIScrollBar(UIScrollBar::eBarDirection::Vertical)),
      mpTool(tool)
{
    makeForms(StartSplitSize);
    add(mpHorizontalBar);
    add(mpVerticalBar);
    addMarkerTrack();
}

sPoint SequencerTool::TrackForm::getScrollBarPosition() const
{
    return sPoint(mpHorizontalBar->getBarPosition(), mpVerticalBar->getBarPosition());
}

void SequencerTool::TrackForm::setScrollBarPosition(const sPoint& position)
{
    mpHorizontalBar->setBarPosition(position.x);
    mpVerticalBar->setBarPosition(position.y);
}

void SequencerTool::TrackForm::reset()
{
    const unsigned int splitSize = mpSplitter->getSplitSize();
    mpSplitter->remove();
    delete mpSplitter;
    makeForms(splitSize);
    addMarkerTrack();
    if (isCreated())
        mpSplitter->sendMessage(UICreateMessage(), this);
}

void SequencerTool::TrackForm::addMarkerTrack()
{
    mpHeaderForm->addClient(new MarkerInfo(this));
    mpSequenceForm->addClient(new MarkerSequence(this));
}

void SequencerTool::TrackForm::addTrack(SequencerTrack* track)
{
    TrackInfo* info = new TrackInfo(track, this);
    TrackSequence* sequence = new TrackSequence(track, info, this);
    for (ObjectBase* lane : track->getLaneList())
        if (AllocatorBase::getGlobalAllocator()->hasRoom())
            addLane(static_cast<SequencerLane*>(lane), *info, *sequence);
    mpHeaderForm->addClient(info);
    mpSequenceForm->addClient(sequence);
}

void SequencerTool::TrackForm::addLane(SequencerLane* lane, SequencerTrack* track)
{
    UIBase* info = mpHeaderForm->findKey(track);
    UIBase* sequence = mpSequenceForm->findKey(track);
    if (info && sequence)
        addLane(lane, *static_cast<UITrack*>(info), *static_cast<UITrack*>(sequence));
}

void SequencerTool::TrackForm::update(float deltaTime)
{
    const int right = static_cast<int>(getSize().width) - static_cast<int>(mpVerticalBar->getMinimumSize().width);
    const int bottom = static_cast<int>(getSize().height) - static_cast<int>(mpHorizontalBar->getMinimumSize().height);
    mpSplitter->setSize(makeSize(right, bottom));
    placeBars(right, bottom);
    updateVerticalBar();
    UIBase::update(deltaTime);
}

void SequencerTool::TrackForm::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (combinationKey == 0 && (keyCode == UIKeyCode::LeftArrow || keyCode == UIKeyCode::RightArrow))
        mpTool->stepSelection(keyCode == UIKeyCode::RightArrow);
    else
        delegate();
}

void SequencerTool::TrackForm::addLane(SequencerLane* lane, UITrack& info, UITrack& sequence)
{
    info.addLane<LaneInfo>(lane);
    sequence.addLane<LaneSequence>(lane);
}

void SequencerTool::TrackForm::makeForms(unsigned int splitSize)
{
    mpHeaderForm = new HeaderForm(this);
    mpSequenceForm = new SequenceForm(this);
    mpSplitter = new UISplitter(mpHeaderForm, mpSequenceForm, UISplitter::eSplitDirection::Beside, splitSize,
                                UISplitter::eSplitBase::First);
    add(mpSplitter);
}

// One runs below the frames, the other beside the rows.
void SequencerTool::TrackForm::placeBars(int right, int bottom)
{
    const int left = static_cast<int>(mpSplitter->getSplitSize());
    const int top = mpHeaderForm->getClientRegion().top;
    mpHorizontalBar->setPosition(sPoint(left, bottom));
    mpHorizontalBar->setSize(makeSize(right - left, 0));
    mpHorizontalBar->setMaximum(static_cast<int>(MaximumFrame));
    mpHorizontalBar->setBarRange(mpHorizontalBar->getSize().width);
    mpVerticalBar->setPosition(sPoint(right, top));
    mpVerticalBar->setSize(makeSize(0, bottom - top));
}

void SequencerTool::TrackForm::updateVerticalBar()
{
    const unsigned int height = mpHeaderForm->getClientExistRegion().getHeight();
    const unsigned int view = mpHeaderForm->getViewHeight();
    const bool isNeeded = height > view;
    mpVerticalBar->setMaximum(isNeeded ? static_cast<int>(height) : 0);
    mpVerticalBar->setBarRange(isNeeded ? view : 0);
    if (isNeeded)
        mpVerticalBar->sendMessage(UIEnableMessage(), this);
    else
        mpVerticalBar->sendMessage(UIDisableMessage(), this);
}
