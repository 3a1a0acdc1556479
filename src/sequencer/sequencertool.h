#pragma once

#include "sequencer/sequencer.h"
#include "sequencer/sequencerrecord.h"
#include "tool/toolbase.h"

class ControlBase;
class SequencerKey;
class SequencerLane;
class SequencerMarker;
class SequencerResourceIntermediate;
class SequencerTrack;
class UISplitter;

// The timeline editor. It shows one sequence and plays it with a sequencer of its own while it is edited, so that
// each edit is seen at once. Selections are pointers into the tree of the resource; whatever destroys a part of the
// tree clears them in the same step. Without a resource every command does nothing.
class SequencerTool : public ToolBase
{
    REFLECTED(SequencerTool)

public:
    class TimelineRow;
    class TrackForm;
    class TimelineForm;
    class HeaderForm;
    class SequenceForm;
    class UIMarker;
    class MarkerInfo;
    class MarkerSequence;
    class UITrack;
    class TrackInfo;
    class TrackSequence;
    class UILane;
    class LaneInfo;
    class LaneSequence;
    class ControlForm;

    // Edits of the resource within the life of one of these are the tool's own, and its rows follow them. A change
    // that comes from elsewhere makes the tool build its rows anew.
    class OwnEdit
    {
    public:
        explicit OwnEdit(SequencerTool& tool) : mTool(tool), mWasUpToDate(tool.isUpToDate()) {}
        ~OwnEdit();

        OwnEdit(const OwnEdit&) = delete;
        OwnEdit& operator=(const OwnEdit&) = delete;

    private:
        SequencerTool& mTool;
        bool mWasUpToDate;
    };

    static constexpr unsigned int NoTrack = 0xFFFFFFFF;

    // Takes a reference of the resource, which may be null.
    explicit SequencerTool(SequencerResourceIntermediate* resource = nullptr);
    ~SequencerTool() override;

    // The class of the sequencer that plays, and the class below which the objects of tracks are chosen.
    virtual const TypeInfo* getSequencerTypeInfo() const;
    virtual const TypeInfo* getRootTypeInfo() const;

    // Shows another sequence from its start, without any selection. What is no sequence counts as null.
    void setResource(ResourceBase* resource);
    ResourceBase* getResource() const;
    SequencerResourceIntermediate* getSequence() const { return mpResource; }

    ControlForm* getControlForm() const { return mpControlForm; }

    // Null until the window is created.
    Sequencer* getSequencer() const { return mpSequencer; }

    // The object on a track as it is now, or null. It lives until the sequencer is next updated or sought.
    ObjectBase* getLiveObject(unsigned int trackIndex) const;
    ObjectBase* getSelectLiveObject() const { return getLiveObject(getSelectTrackIndex()); }

    // Adds a widget for each lane of the track, which edits the live object and no key.
    void setControlList(UIBase* group, unsigned int trackIndex);

    // Commits what is being edited in the property pane. During the update, which may run in a job, nothing happens.
    void commitEdit();

    // Builds the rows anew, without any selection.
    void resetTrack();

    // The values of the header; all are 0 without a resource, and the setters limit what they are given.
    unsigned int getStartFrame() const;
    void setStartFrame(unsigned int frame);
    unsigned int getEndFrame() const;
    void setEndFrame(unsigned int frame);
    unsigned int getFPS() const;
    void setFPS(unsigned int fps);

    // The whole part of the play head's frame. Setting seeks.
    unsigned int getCurrentFrame() const;
    void setCurrentFrame(unsigned int frame);

    // Refused, silently, if a file could not hold the name or another track has it. On purpose: the resource does not
    // count as modified by it; the tool remembers that there is something to save.
    void renameTrack(SequencerTrack& track, const AutoString& name);

    SequencerMarker* getSelectMarker() const { return mpSelectMarker; }
    SequencerTrack* getSelectTrack() const { return mpSelectTrack; }
    SequencerLane* getSelectLane() const { return mpSelectLane; }
    SequencerKey* getSelectKey() const { return mpSelectKey; }
    bool isMarkerTrackSelected() const { return mMarkerTrackSelected; }

    // NoTrack without a selected track.
    unsigned int getSelectTrackIndex() const;

    // Selecting commits what is being edited and shows the selection in the property pane. All may be null.
    void setSelectMarker(SequencerMarker* marker);
    void selectMarkerTrack();
    void setSelectTrack(SequencerTrack* track);
    void setSelectLane(SequencerLane* lane);
    void setSelectKey(SequencerKey* key);

    // Edits of the selected key and the selected marker on behalf of the property pane.
    void moveSelectKey(unsigned int frame);
    void copySelectKeyInterpolateTypeToNative();
    void copySelectKeyParameterToNative();
    void setSelectMarkerType(eMarkerType type);
    void setSelectMarkerCount(unsigned int count);
    void moveSelectMarker(unsigned int frame);
    void setSelectMarkerTargetFrame(unsigned int frame);
    void setSelectMarkerReset(bool reset);
    void setSelectMarkerName(const AutoString& name);
    void setSelectMarkerTargetName(const AutoString& name);

    // The commands of the menus and of the shortcuts.
    void eventAddMarker();
    void eventRemoveMarker();
    void eventRemoveAllMarker();
    void eventResetMarkerCount();
    virtual void eventAddTrack();
    void eventRemoveTrack();
    void eventAddSequencerTrack();
    void eventAddLane();
    void eventRemoveLane();
    void eventAddAllLane();
    void eventRemoveAllLane();
    void eventAddKey();
    void eventRemoveKey();
    void eventAddKeyAllLane();
    void eventRemoveAllKey();
    void togglePlay();
    void seekStart();
    void seekEnd();
    void seekPreviousTargetMarker();
    void seekNextTargetMarker();

    // One on along the markers if one is selected, else along the keys of the selected lane.
    void stepSelection(bool forward);

    bool isManagedResourceModified() const override;
    bool isManagedResourceMadeOf(const ResourceBase& other) const override;
    const UIShortcutBase* findShortcut(unsigned int keyCode, unsigned int combinationKey) const override;
    void eventCreate() override;
    void update(float deltaTime) override;

    // Places the panes in the window.
    virtual void updateLayout();

protected:
    // Timeline and property pane, for a derived class that gives them another place.
    UISplitter* getSplitter() const { return mpSplitter; }
    UIForm* getHeaderForm() const { return mpHeaderForm; }

    // The height that the header leaves, as wide as the window.
    sRect getPaneRegion() const;

    void eventSaved() override { mRenamed = false; }
    bool writeFile(ResourceBase& resource, const AutoString& fullPath) override;
    void carryOver(const ResourceBase& from, ResourceBase& to) override;

private:
    using ShortcutRow = UIShortcut<SequencerTool>;

    void makeMainMenu();
    UIForm* makeHeaderForm();

    // Whether all changes of the resource are the tool's own.
    bool isUpToDate() const;
    void noteRevision();
    void placeHeader();
    const Sequencer::sTrackData* getTrackData(unsigned int trackIndex) const;
    void clearSelection();
    void addRows();
    void removeRows();
    void refreshControlForm();

    // The one way in which the sequencer moves: values without a key stay as they are on the screen.
    template <typename Move>
    void moveSequencer(Move move);

    AutoString getNewTrackName();
    AutoString getNewMarkerName();
    void notifySelectObject(UIDialog* dialog);
    void notifySelectControl(UIDialog* dialog);
    void addTrack(const TypeInfo* type);
    void addLane(SequencerTrack& track, const ControlBase& control);
    SequencerKey* addKey(SequencerTrack& track, SequencerLane& lane);
    void initializeKeyParameter(const SequencerTrack& track, const SequencerLane& lane, SequencerKey& key);
    const ControlBase* findLiveControl(const SequencerTrack& track, const SequencerLane& lane) const;
    void selectTrackOf(const SequencerLane& lane);
    void seekMarker(SequencerMarker* marker);
    void stopAt(unsigned int frame);

    static const ShortcutRow mShortcutTable[];

    SequencerResourceIntermediate* mpResource = nullptr;
    UIForm* mpHeaderForm = nullptr;
    TrackForm* mpTrackForm = nullptr;
    ControlForm* mpControlForm = nullptr;
    UISplitter* mpSplitter = nullptr;
    unsigned int mNextTrackNumber = 0;
    unsigned int mNextMarkerNumber = 0;
    Sequencer* mpSequencer = nullptr;
    SequencerMarker* mpSelectMarker = nullptr;
    SequencerTrack* mpSelectTrack = nullptr;
    SequencerLane* mpSelectLane = nullptr;
    SequencerKey* mpSelectKey = nullptr;
    bool mMarkerTrackSelected = false;

    unsigned int mKnownRevision = 0;
    bool mRenamed = false;
    bool mUpdating = false;
    bool mControlFormStale = false; // its widgets edit objects that a rebuild has replaced
};
