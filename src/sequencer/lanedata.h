#pragma once

#include "foundation/sfixed.h"
#include "sequencer/interpolation.h"

class ControlBase;

// Where the play head stands, for all lanes of one step.
struct sPlayHead
{
    sPlayHead(sFixed newPrevious, sFixed newCurrent)
        : previous(newPrevious),
          current(newCurrent),
          frame(static_cast<unsigned int>(static_cast<int>(newCurrent))),
          time(static_cast<float>(newCurrent))
    {
    }

    // Whether the last step came up to that frame, and not beyond it.
    bool hasReached(sFixed keyFrame) const { return previous < keyFrame && current <= keyFrame; }

    sFixed previous;
    sFixed current;
    unsigned int frame; // the whole part of `current`, which is never negative
    float time;         // the same with its fraction
};

// A lane bound to a control of a live object. What a step needs is made where the head comes to another key and kept
// here, so that most steps read this record and the coefficients and nothing else.
struct sLaneData
{
    using Apply = void (*)(sLaneData& lane, const sPlayHead& head);

    static constexpr unsigned int NoCurrentFrame = 0xFFFF;

    // Whether the lane of a resource is of the kind that this control drives.
    static bool isMatch(const sLaneRecord& record, const ControlBase& control);

    // Binds the lane to a control, which it then owns. `parameter` holds one set for each component of the record;
    // the resource keeps the keys.
    void bind(ControlBase* owned, const sLaneRecord& record, sInterpolateParameter* parameter);

    // Moves the lane to the head. Does nothing without control, without keys and for types without keys.
    void step(const sPlayHead& head)
    {
        if (apply)
            apply(*this, head);
    }

    void clearCurrentKey();

    sKeyRun getKeys() const { return {key, keyNum, keyStride}; }

    ControlBase* control;     // null when the object has none that matches
    const unsigned char* key; // the keys, in the memory of the resource
    const unsigned char* currentKey;
    sInterpolateParameter* interpolateParameter;
    Apply apply;
    void* target;          // of a property whose value is a plain store
    float currentTime;     // the frame of the current key
    float inverseDuration; // of the segment behind it
    unsigned short currentFrame;
    unsigned short nextUpdateFrame;
    unsigned short keyNum;
    unsigned char keyStride;
    unsigned char interpolateType : 4; // of the segment
    unsigned char trigger : 1;         // the current key waits for the head to come to it
    unsigned char fired : 1;
};

static_assert(sizeof(sLaneData) <= 64);
