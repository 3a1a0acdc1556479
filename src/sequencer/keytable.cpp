#include "sequencer/keytable.h"

#include "sequencer/sequencerrecord.h"
#include "sequencer/sequenceruniquekey.h"

#include <algorithm>

namespace
{
template <typename T>
constexpr unsigned int triggerType = CompositeValue<T> ? 0 : TriggerTraits<T>::type;

template <typename T>
constexpr sKeyRow makeRow()
{
    return {ValueTraits<T>::type,       triggerType<T>,
            KeyTraits<T>::offset,       KeyTraits<T>::stride,
            KeyTraits<T>::componentNum, &SequencerUniqueKey<T>::getStaticTypeInfo};
}

constexpr sKeyRow ResourceRow = {KeyTable::ResourceType,     0, 4,
                                 sizeof(sResourceKeyRecord), 0, &SequencerUniqueKey<ResourceBase>::getStaticTypeInfo};

template <typename... Ts>
constexpr std::array<sKeyRow, sizeof...(Ts) + 1> makeRows(TypeList<Ts...>)
{
    return {makeRow<Ts>()..., ResourceRow};
}

constexpr auto Rows = makeRows(ValueTypes{});
}

const sKeyRow* KeyTable::find(unsigned int type)
{
    // On purpose: a trigger without argument has keys of bool, whose value nobody reads.
    const unsigned int code = type == VoidTrigger ? TriggerTraits<bool>::type : type;
    const auto row = std::find_if(Rows.begin(), Rows.end(),
                                  [code](const sKeyRow& candidate)
                                  { return code && (candidate.type == code || candidate.triggerType == code); });
    return row == Rows.end() ? nullptr : &*row;
}

unsigned int KeyTable::getType(const ControlBase& control)
{
    if (control.getType() == ControlBase::eControlType::Trigger)
        return static_cast<const TriggerControlBase&>(control).getArgumentType();
    if (control.getType() != ControlBase::eControlType::Property)
        return 0;
    const PropertyBase* property = static_cast<const PropertyControl&>(control).getProperty();
    return property ? property->getType() : 0;
}

bool KeyTable::isStride(unsigned int stride)
{
    return std::any_of(Rows.begin(), Rows.end(), [stride](const sKeyRow& row) { return row.stride == stride; });
}
