#pragma once

#include "foundation/autostring.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"
#include "sequencer/resourceallocated.h"
#include "sequencer/sequencerrecord.h"

// A named frame of a sequence that steers the play head when it is crossed. Markers are in no file: they live as
// long as the resource that they were added to.
class SequencerMarker : public ObjectBase, public ResourceAllocated
{
    REFLECTED(SequencerMarker)

public:
    void setMarkerName(const AutoString& name) { mMarkerName = name; }
    const AutoString& getMarkerName() const { return mMarkerName; }

    void setTargetMarkerName(const AutoString& name) { mTargetMarkerName = name; }
    const AutoString& getTargetMarkerName() const { return mTargetMarkerName; }

    void setMarkerType(eMarkerType type) { mMarkerType = static_cast<unsigned char>(type); }
    eMarkerType getMarkerType() const { return static_cast<eMarkerType>(mMarkerType); }

    // How often the marker acts; 0 means no limit.
    void setInitialCount(unsigned int count) { mInitialCount = static_cast<unsigned char>(count); }
    unsigned int getInitialCount() const { return mInitialCount; }

    void setFrame(unsigned int frame) { mFrame = static_cast<unsigned short>(frame); }
    unsigned int getFrame() const { return mFrame; }

    void setTargetFrame(unsigned int frame) { mTargetFrame = static_cast<unsigned short>(frame); }
    unsigned int getTargetFrame() const { return mTargetFrame; }

    // Whether a spent marker starts over once it has been passed.
    void setReset(bool reset) { mReset = reset; }
    bool isReset() const { return mReset; }

    // Both for editing. The widgets write into this object and nowhere else.
    void makePropertyList(PropertyList& list) override;
    void makeUIList(List<UIBase>& list) override;

private:
    AutoString mMarkerName;
    AutoString mTargetMarkerName;
    unsigned char mMarkerType = 0;
    unsigned char mInitialCount = 0;
    unsigned short mFrame = 0;
    unsigned short mTargetFrame = 0;
    bool mReset = false;
};
