#pragma once

#include "foundation/vector.h"

#include <unordered_set>

class ObjectBase;
class ObjectList;
class SequencerKey;
class SequencerLane;
class SequencerTrack;

// Brings a tree that was read from a document into the shape that everything else relies on: each element is of the
// class that belongs there, stands in one place only, and agrees with the tables. A document may name any class, and
// one object in several places. What does not fit is traced, taken out and thrown away.
class SequenceTreeCheck
{
public:
    explicit SequenceTreeCheck(ObjectList& tracks) : mrTracks(tracks) {}

    void run();

private:
    // Takes out the elements for which `belongs` says no.
    template <typename Predicate>
    void filter(ObjectList& list, Predicate belongs);

    template <typename Class>
    bool isFirstOf(ObjectBase* object, const char* trace);
    bool isFirst(ObjectBase* object);

    bool checkTrack(ObjectBase* object);
    bool checkLane(ObjectBase* object);
    void mergeLanes(ObjectList& lanes);
    static void mergeKeys(SequencerLane& lane, SequencerLane& other);
    void checkKeys(SequencerLane& lane);
    static void adoptKey(SequencerKey& key, const SequencerLane& lane);
    void nameTracks();

    void reject(ObjectBase* object);
    void emptyRejected(ObjectBase* object);
    void disposeRejected();

    ObjectList& mrTracks;
    std::unordered_set<const ObjectBase*> mMet;
    Vector<ObjectBase> mRejected;
};
