#include "sequencer/sequencerkey.h"

#include "reflection/propertylist.h"
#include "ui/uienumcontrol.h"
#include "ui/uiparametercontrol.h"

#include <iterator>

REFLECT(SequencerKey, eTypeAttribute::Abstract, "ObjectBase");

namespace
{
constexpr unsigned short FirstFrame = 0;
constexpr unsigned short LastFrame = MaximumFrame;

constexpr sEnumInfo InterpolateTypes[] = {
    {"CONSTANT", static_cast<unsigned int>(eInterpolateType::Constant)},
    {"LINEAR", static_cast<unsigned int>(eInterpolateType::Linear)},
    {"HERMITE", static_cast<unsigned int>(eInterpolateType::Hermite)},
    {"TRIGGER", static_cast<unsigned int>(eInterpolateType::Trigger)},
};
}

void SequencerKey::makePropertyList(PropertyList& list)
{
    list.addReference("frame", mFrame);
    list.addReference("interpolate_type", mInterpolateType);
    list.addReference("trigger_only", mTriggerOnly);
}

void SequencerKey::makeUIList(List<UIBase>& list)
{
    list.addLast(new UIParameterControl(new ReferenceProperty<unsigned short>("frame", &mFrame), FirstFrame, LastFrame,
                                        false, UIControl::WholeValue));
    list.addLast(new UIEnumControl(new ReferenceProperty<unsigned char>("interpolate_type", &mInterpolateType),
                                   InterpolateTypes, std::size(InterpolateTypes), isTriggerOnly(),
                                   UIControl::WholeValue));
}
