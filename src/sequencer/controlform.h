#pragma once

#include "sequencer/sequencertool.h"

// The property pane: the selected key or marker and the live object of the selected track. Its controls write into
// the key or the marker itself; what an edit has changed is compared with a copy, and brought to the packed arrays.
class SequencerTool::ControlForm : public UIForm
{
public:
    explicit ControlForm(SequencerTool* tool);
    ~ControlForm() override;

    // Shows the live object of a track and a key, or a marker; NoTrack and null show nothing.
    void setupControlList(unsigned int trackIndex, SequencerKey* key);
    void setupControlList(SequencerMarker* marker);

    void eventBeginEdit() override;
    void eventEndEdit() override;

private:
    void makeTrackGroup();
    void makeKeyGroup();
    void makeMarkerGroup();

    SequencerTool* mpTool;
    unsigned int mTrackIndex = NoTrack;
    SequencerKey* mpKey = nullptr;
    SequencerMarker* mpMarker = nullptr;
};
