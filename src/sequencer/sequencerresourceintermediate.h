#pragma once

#include "reflection/objectlist.h"
#include "sequencer/mirroredlist.h"
#include "sequencer/sequencerresource.h"

class ControlBase;
class SequencerKey;
class SequencerLane;
class SequencerMarker;
class SequencerTrack;
class TextFileStream;

// The form of a sequence that an editor works on: next to the packed arrays it owns a tree of objects, and every
// operation changes both and marks the resource, so that whoever plays it sees the edit at once. Tracks, lanes and
// markers are named, keys are given by name and frame; what names nothing does nothing, silently.
class SequencerResourceIntermediate : public SequencerResource
{
    REFLECTED(SequencerResourceIntermediate)

public:
    SequencerResourceIntermediate();
    ~SequencerResourceIntermediate() override;

    // The document. Elements that do not belong where they stand are traced and thrown away; a document of another
    // class or no document at all is refused and leaves the resource empty.
    [[nodiscard]] bool load(Stream& stream) override;
    [[nodiscard]] bool save(Stream& stream) override;

    const char* getExtension() const override;
    const TypeInfo* getNativeType() const override;
    const char* getFilter() const override;

    void removeAll() override;
    void makePropertyList(PropertyList& list) override;

    void setFPS(unsigned int fps);
    void setStartFrame(unsigned int frame);
    void setEndFrame(unsigned int frame);

    // An empty name adds nothing; a name in use is not refused.
    void addTrack(const TypeInfo* type, AutoString name);
    void removeTrack(AutoString name);
    void moveTrackForward(AutoString name);
    void moveTrackBackward(AutoString name);
    void moveTrackToFirst(AutoString name);
    void moveTrackToLast(AutoString name);

    SequencerTrack* findTrack(AutoString name) const;
    bool isExistTrack(AutoString name) const { return findTrack(name) != nullptr; }
    const sTrackRecord* findNativeTrack(AutoString name) const;

    // 0xFFFFFFFF for a track that is not here.
    unsigned int getTrackIndex(const SequencerTrack* track) const;
    const ObjectList& getTrackList() const { return mTrackList; }

    // Refuses a control whose name has a lane already. The control stays the caller's.
    void addLane(AutoString trackName, const ControlBase* control);
    void removeLane(AutoString trackName, AutoString controlName);
    void removeAllLane(AutoString trackName);
    void moveLaneForward(AutoString trackName, AutoString controlName);
    void moveLaneBackward(AutoString trackName, AutoString controlName);
    void moveLaneToFirst(AutoString trackName, AutoString controlName);
    void moveLaneToLast(AutoString trackName, AutoString controlName);

    SequencerLane* findLane(AutoString trackName, AutoString controlName) const;
    const sLaneRecord* findNativeLane(AutoString trackName, AutoString controlName) const;

    // Refuses a frame that the lane holds already.
    void addKey(AutoString trackName, AutoString controlName, unsigned int frame, eInterpolateType type);
    void removeKey(AutoString trackName, AutoString controlName, unsigned int frame);
    void removeAllKey(AutoString trackName, AutoString controlName);

    // On purpose: refuses nothing, so that two keys may come to share a frame.
    void moveKey(AutoString trackName, AutoString controlName, unsigned int frame, unsigned int newFrame);

    // `value` points at a value of the lane's type.
    void setKeyParameter(AutoString trackName, AutoString controlName, unsigned int frame, const void* value);
    void setKeyInterpolateType(AutoString trackName, AutoString controlName, unsigned int frame, eInterpolateType type);

    SequencerKey* findKey(AutoString trackName, AutoString controlName, unsigned int frame) const;

    // By the key's place in its lane; null as well when `frame` names none.
    const void* findNativeKey(AutoString trackName, AutoString controlName, unsigned int frame) const;

    // The same for one certain key of the lane, as several may share its frame. The last two bring the record up to
    // date with a key whose value or interpolate type was set directly.
    void removeKey(AutoString trackName, AutoString controlName, SequencerKey& key);
    void moveKey(AutoString trackName, AutoString controlName, SequencerKey& key, unsigned int newFrame);
    void updateKeyParameter(AutoString trackName, AutoString controlName, SequencerKey& key);
    void updateKeyInterpolateType(AutoString trackName, AutoString controlName, SequencerKey& key);

    // A name in use is not refused.
    void addMarker(AutoString name, unsigned int frame);
    void removeMarker(AutoString name);
    void removeAllMarker();
    void moveMarker(AutoString name, unsigned int frame);

    // Renames the targets of jumps that lead here as well. A name in use is refused.
    void setMarkerName(AutoString name, AutoString newName);
    void setMarkerType(AutoString name, eMarkerType type);
    void setMarkerTargetName(AutoString name, AutoString targetName);
    void setMarkerTargetFrame(AutoString name, unsigned int frame);
    void setMarkerCount(AutoString name, unsigned int count);
    void setMarkerReset(AutoString name, bool reset);

    SequencerMarker* findMarker(AutoString name) const;
    SequencerMarker* findMarker(unsigned int frame) const;

    // The last marker with a frame not greater, or null.
    SequencerMarker* findMarkerBlock(unsigned int frame) const;
    const sMarkerRecord* findNativeMarker(AutoString name) const;
    const ObjectList& getMarkerList() const { return mMarkerList; }

    // Write frame and interpolate type of a key, and its value, into a record of a lane of that type. A key of
    // another class than that of the lane writes no value.
    static void makeKey(void* record, const SequencerKey& key);
    static void copyKeyParameter(void* record, const SequencerKey& key, unsigned int type);

    // Whether the arrays are what build() makes of the tree and the markers' records are those of the markers, but
    // for the indices of targets. The only edits after which they differ are those that document it: moves to a
    // later place, and moves of markers at all, whose records keep the old frame.
    bool isConsistent() const;

private:
    friend class SequenceTreeCheck;

    struct sTrackPlace
    {
        SequencerTrack* track = nullptr;
        sTrackRecord* record = nullptr;
        unsigned int index = 0;
    };

    struct sLanePlace
    {
        sTrackPlace track;
        SequencerLane* lane = nullptr;
        sLaneRecord* record = nullptr;
        unsigned int index = 0;
    };

    struct sKeyPlace
    {
        sLanePlace lane;
        SequencerKey* key = nullptr;
        unsigned char* record = nullptr;
        unsigned int index = 0;
    };

    struct sMarkerPlace
    {
        SequencerMarker* marker = nullptr;
        sMarkerRecord* record = nullptr;
        unsigned int index = 0;
    };

    using Tracks = MirroredList<sTrackRecord, unsigned int>;
    using Lanes = MirroredList<sLaneRecord, unsigned int>;
    using Keys = MirroredList<unsigned char, unsigned short>;
    using Markers = MirroredList<sMarkerRecord, unsigned int>;

    // What moves one element: the place it has to go to, of its present place and the last one.
    using Destination = unsigned int (*)(unsigned int index, unsigned int last);

    Tracks tracks() { return {mTrackList, {mpTrack, mTrackNum}}; }
    Markers markers() { return {mMarkerList, {mpMarker, mMarkerNum}}; }
    static Lanes lanes(const sTrackPlace& place);
    static Keys keys(const sLanePlace& place);

    // The object and its record, both null for a name that names nothing.
    sTrackPlace resolveTrack(const AutoString& name) const;
    sLanePlace resolveLane(const AutoString& trackName, const AutoString& controlName) const;
    sKeyPlace resolveKey(const AutoString& trackName, const AutoString& controlName, unsigned int frame) const;
    static sKeyPlace resolveKey(const sLanePlace& place, const SequencerKey* key);
    sMarkerPlace resolveMarker(const AutoString& name) const;

    // The tree of a document; false, and no tree, when there is none or not enough memory for all of it.
    [[nodiscard]] bool readTree(TextFileStream& stream);

    void setValue(unsigned int& field, unsigned int value);
    void moveTrack(const AutoString& name, Destination destination);
    void moveLane(const AutoString& trackName, const AutoString& controlName, Destination destination);
    void removeKey(const sKeyPlace& place);
    void moveKey(const sKeyPlace& place, unsigned int newFrame);
    void updateKeyParameter(const sKeyPlace& place);
    void updateKeyInterpolateType(const sKeyPlace& place);
    void setTarget(const sMarkerPlace& place, const AutoString& targetName);
    void retargetJumps(const AutoString& name, const AutoString& newName, unsigned int index);
    bool areMarkersConsistent() const;

    // Makes the arrays of tracks, lanes and keys anew from the tree, in an empty resource. On purpose: markers reach
    // the arrays only through addMarker(). False when there is not enough memory.
    [[nodiscard]] bool build(SequencerResource& target) const;

    ObjectList mTrackList;
    ObjectList mMarkerList;
};
