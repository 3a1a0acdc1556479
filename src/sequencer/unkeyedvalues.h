#pragma once

#include "foundation/list.h"

class Sequencer;

// What the live objects of a sequencer hold beside what its keys give them. A sequencer that follows a change of its
// resource makes its objects anew; whoever edits notes these values before, and puts them back behind it.
class UnkeyedValues
{
public:
    UnkeyedValues() = default;
    ~UnkeyedValues();

    UnkeyedValues(const UnkeyedValues&) = delete;
    UnkeyedValues& operator=(const UnkeyedValues&) = delete;

    // Once.
    void note(const Sequencer& sequencer);

    // Where a track still has an object of the same class. What has keys by now is left to them.
    void restore(const Sequencer& sequencer) const;

private:
    struct sTrack;

    List<sTrack> mTrack;
};
