#pragma once

#include "sequencer/keytable.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencertool.h"

class ResourceBase;
class UIGroup;

// The pane that shows what is selected: the live values of a track with one of its keys, or a marker. Its widgets
// write into the selected key or marker itself; each end of an edit compares it with a copy and takes what differs
// over into the packed arrays, by the operations of the tool.
class SequencerTool::ControlForm : public UIForm
{
public:
    explicit ControlForm(SequencerTool* tool);
    ~ControlForm() override;

    // Builds the pane anew; nothing that a hook of one of its widgets calls may do so. The key may be null, and an
    // index beyond the tracks shows no values.
    void setupControlList(unsigned int trackIndex, SequencerKey* key);

    // Null shows an empty group.
    void setupControlList(SequencerMarker* marker);

    void eventBeginEdit() override;
    void eventEndEdit() override;

private:
    // What the key was before an edit.
    struct sKeyCopy
    {
        unsigned int frame = 0;
        eInterpolateType interpolateType = eInterpolateType::Constant;
        unsigned char parameter[KeyTable::WidestValue] = {};
        ResourceBase* resource = nullptr; // one reference
    };

    UIGroup* addGroup(const char* caption);
    void makeTrackGroup(unsigned int trackIndex);
    void makeKeyGroup();
    void makeMarkerGroup();
    void showGroups();

    void takeCopy();
    void copyKey();
    void releaseCopy();
    void endKeyEdit();
    void endMarkerEdit();
    bool isKeyValueChanged() const;
    void refuseCycle();

    SequencerTool* mpTool;
    SequencerKey* mpKey = nullptr;
    SequencerMarker* mpMarker = nullptr;
    sKeyCopy mKeyCopy;
    SequencerMarker mMarkerCopy;
};
