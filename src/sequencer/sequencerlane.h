#pragma once

#include "foundation/autostring.h"
#include "reflection/objectlist.h"
#include "reflection/reflect.h"
#include "sequencer/resourceallocated.h"

class ControlBase;
class SequencerKey;

// One control of a track's object, found by type and name, with the keys that drive it sorted by frame. The numbers
// of the keys follow from the type of the control's value and are set once, when the lane is added or loaded.
class SequencerLane : public ObjectBase, public ResourceAllocated
{
    REFLECTED(SequencerLane)

public:
    SequencerLane();

    // Takes over type and name of the control.
    void setControl(const ControlBase& control);

    // Sets stride, class and component number of the keys from the type; zeros for a type that has no keys.
    void setupKeys();

    unsigned int getControlType() const { return mControlType; }
    const AutoString& getControlName() const { return mControlName; }
    unsigned int getKeyType() const { return mKeyType; }
    unsigned int getKeyStride() const { return mKeyStride; }
    unsigned int getKeyTypeID() const { return mKeyTypeID; }
    unsigned int getKeyInterpolateNum() const { return mKeyInterpolateNum; }

    ObjectList& getKeyList() { return mKeyList; }
    const ObjectList& getKeyList() const { return mKeyList; }

    // The first key at exactly that frame, or null.
    SequencerKey* findKey(unsigned int frame) const;

    // The last key with a frame not greater, or null.
    SequencerKey* findKeyBlock(unsigned int frame) const;

    void makePropertyList(PropertyList& list) override;

private:
    unsigned int mControlType = 0;
    AutoString mControlName;
    unsigned int mKeyType = 0;
    unsigned int mKeyStride = 0;
    unsigned int mKeyTypeID = 0;
    unsigned int mKeyInterpolateNum = 0;
    ObjectList mKeyList;
};
