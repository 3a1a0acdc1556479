#pragma once

#include "foundation/autostring.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"
#include "sequencer/resourceallocated.h"
#include "sequencer/sequencerrecord.h"

// One value at one frame, in its editable form. The value itself belongs to the classes of the family
// SequencerUniqueKey, one for each type of value.
class SequencerKey : public ObjectBase, public ResourceAllocated
{
    REFLECTED(SequencerKey)

public:
    // Copies a value in from, or out to, memory that need not be aligned for it.
    virtual void* setParameter(const void* value) = 0;
    virtual void* getParameter() = 0;
    virtual void copyParameter(void* value) const = 0;

    // In bytes; 0 where the value does not travel through the three above.
    virtual unsigned int getParameterSize() const = 0;

    void setFrame(unsigned int frame) { mFrame = static_cast<unsigned short>(frame); }
    unsigned int getFrame() const { return mFrame; }

    void setInterpolateType(eInterpolateType type) { mInterpolateType = static_cast<unsigned char>(type); }
    eInterpolateType getInterpolateType() const { return static_cast<eInterpolateType>(mInterpolateType); }

    // Whether the interpolate type is not offered for editing.
    void setTriggerOnly(bool triggerOnly) { mTriggerOnly = triggerOnly; }
    bool isTriggerOnly() const { return mTriggerOnly != 0; }

    // The name of the control that the lane drives; not saved.
    void setLabel(const AutoString& label) { mLabel = label; }
    const AutoString& getLabel() const { return mLabel; }

    void makePropertyList(PropertyList& list) override;

    // Frame and interpolate type; the family adds its value. The widgets write into this object and nowhere else.
    void makeUIList(List<UIBase>& list) override;

private:
    unsigned short mFrame = 0;
    unsigned char mInterpolateType = 0;
    unsigned char mTriggerOnly = 0;
    AutoString mLabel;
};
