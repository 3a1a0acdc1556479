#pragma once

#include "foundation/autostring.h"
#include "sequencer/timelinerow.h"

class UITextControl;

// The row of a track, with the rows of its lanes, which show when they are extracted. Its key is the track.
class SequencerTool::UITrack : public TimelineRow
{
public:
    static constexpr int CollapsedHeight = 24;

    UITrack(SequencerTrack* track, TrackForm* trackForm);

    SequencerTrack* getTrack() const { return mpTrack; }

    // Below the present ones.
    template <typename Lane>
    void addLane(SequencerLane* lane)
    {
        Lane* row = new Lane(lane, this, mLaneList.size());
        mLaneList.addLast(row);
        mLaneWidth = 0;
        add(row);
    }

    virtual bool isExtracted() const = 0;

    bool isSelected() const override;
    void eventFocus() override;

    // The width is that of the form, the height follows from the lanes.
    void eventSize() override;

private:
    SequencerTrack* mpTrack;
    List<UILane> mLaneList;
    unsigned int mLaneWidth = 0; // of the row when the lanes were given theirs
};

// The left side has the name, and a box that extracts the lanes of both sides.
class SequencerTool::TrackInfo : public UITrack
{
public:
    TrackInfo(SequencerTrack* track, TrackForm* trackForm);

    bool isExtracted() const override { return mExtracted; }

    void eventPaint(UIPainter* painter) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

private:
    AutoString getTrackName() const;
    void setTrackName(AutoString name);

    UITextControl* mpNameControl;
    bool mExtracted = false;
};

class SequencerTool::TrackSequence : public UITrack
{
public:
    TrackSequence(SequencerTrack* track, const TrackInfo* info, TrackForm* trackForm);

    bool isExtracted() const override { return mpInfo->isExtracted(); }

private:
    const TrackInfo* mpInfo;
};
