#include "sequencer/sequencermarker.h"

#include "reflection/propertylist.h"
#include "ui/uienumcontrol.h"
#include "ui/uiflagcontrol.h"
#include "ui/uiparametercontrol.h"

#include <iterator>

REFLECT(SequencerMarker, eTypeAttribute::None, "ObjectBase");

namespace
{
constexpr unsigned short FirstFrame = 0;
constexpr unsigned short LastFrame = MaximumFrame;

constexpr sEnumInfo MarkerTypes[] = {
    {"TARGET", static_cast<unsigned int>(eMarkerType::Target)},
    {"JUMP TARGET", static_cast<unsigned int>(eMarkerType::JumpTarget)},
    {"JUMP FRAME", static_cast<unsigned int>(eMarkerType::JumpFrame)},
};

template <typename T>
UIBase* makeBox(const char* name, T& value)
{
    return new UIParameterControl(new ReferenceProperty<T>(name, &value), false, UIControl::WholeValue);
}

UIBase* makeFrameBox(const char* name, unsigned short& frame)
{
    return new UIParameterControl(new ReferenceProperty<unsigned short>(name, &frame), FirstFrame, LastFrame, false,
                                  UIControl::WholeValue);
}
}

void SequencerMarker::makePropertyList(PropertyList& list)
{
    list.addReference("marker_name", mMarkerName);
    list.addReference("frame", mFrame);
    list.addReference("marker_type", mMarkerType);
    list.addReference("initial_count", mInitialCount);
    list.addReference("reset", mReset);
    list.addReference("target_frame", mTargetFrame);
    list.addReference("target_marker_name", mTargetMarkerName);
}

void SequencerMarker::makeUIList(List<UIBase>& list)
{
    list.addLast(makeBox("marker_name", mMarkerName));
    list.addLast(makeFrameBox("frame", mFrame));
    list.addLast(new UIEnumControl(new ReferenceProperty<unsigned char>("marker_type", &mMarkerType), MarkerTypes,
                                   std::size(MarkerTypes), false, UIControl::WholeValue));
    list.addLast(makeBox("initial_count", mInitialCount));
    list.addLast(new UIFlagControl(new ReferenceProperty<bool>("reset", &mReset), UIFlagControl::WholeMask, false,
                                   UIControl::WholeValue));
    list.addLast(makeFrameBox("target_frame", mTargetFrame));
    list.addLast(makeBox("target_marker_name", mTargetMarkerName));
}
