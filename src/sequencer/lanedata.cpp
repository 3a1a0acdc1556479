#include "sequencer/lanedata.h"

#include "foundation/dev.h"
#include "foundation/utils.h"
#include "reflection/typeinfo.h"
#include "resource/resourcebase.h"
#include "resource/resourcesystem.h"
#include "sequencer/control.h"
#include "sequencer/keytable.h"

#include <cstring>

namespace
{
bool isDue(const sLaneData& lane, const sPlayHead& head)
{
    return head.frame < lane.currentFrame || lane.nextUpdateFrame <= head.frame;
}

// On purpose: a lane that has left its current key behind goes on by one key at least, reached or not.
unsigned int findCurrentKey(const sLaneData& lane, unsigned int frame)
{
    const sKeyRun keys = lane.getKeys();
    unsigned int i = 0;
    if (lane.currentKey && lane.currentFrame < frame)
        i = static_cast<unsigned int>(lane.currentKey - lane.key) / keys.stride + 1;
    while (i + 1 < keys.num && readKeyHead(keys.at(i + 1)).frame <= frame)
        ++i;
    return i < keys.num ? i : keys.num - 1;
}

void setCurrentKey(sLaneData& lane, unsigned int index)
{
    const unsigned char* current = lane.getKeys().at(index);
    const sKeyHead head = readKeyHead(current);
    lane.currentKey = current;
    lane.currentFrame = head.frame;
    lane.currentTime = static_cast<float>(head.frame);
    lane.trigger = head.interpolateType == static_cast<unsigned int>(eInterpolateType::Trigger);
    lane.fired = false;
}

template <typename T>
void prepareSegment(sLaneData& lane, unsigned int index)
{
    const sKeyRun keys = lane.getKeys();
    const eInterpolateType type = getInterpolateType(lane.currentKey);
    const unsigned int following = readKeyHead(keys.at(index + 1)).frame;
    lane.interpolateType = static_cast<unsigned char>(type) & 0xF;
    lane.nextUpdateFrame = static_cast<unsigned short>(following);
    if (type != eInterpolateType::Linear && type != eInterpolateType::Hermite)
        return;
    lane.inverseDuration = 1.0f / static_cast<float>(static_cast<int>(following - lane.currentFrame));
    makeInterpolateParameter<T>(lane.interpolateParameter, keys, index);
}

// What has no coefficients is applied as it stands in the key.
void holdKey(sLaneData& lane, unsigned int nextUpdateFrame)
{
    lane.interpolateType = static_cast<unsigned char>(eInterpolateType::Constant);
    lane.nextUpdateFrame = static_cast<unsigned short>(nextUpdateFrame);
}

template <typename T>
void updateLaneInterpolateData(sLaneData& lane, const sPlayHead& head)
{
    const unsigned int index = findCurrentKey(lane, head.frame);
    setCurrentKey(lane, index);
    if (lane.currentFrame > head.frame)
        holdKey(lane, lane.currentFrame);
    else if (index + 1u >= lane.keyNum)
        holdKey(lane, NoFrame);
    else
        prepareSegment<T>(lane, index);
}

// On purpose: only the first application of a trigger key is guarded; it is then applied with every step.
bool passTrigger(sLaneData& lane, const sPlayHead& head)
{
    const sFixed keyFrame(lane.currentFrame, 16);
    if (lane.trigger && !lane.fired)
        lane.fired = head.previous == head.current || head.hasReached(keyFrame);
    return !lane.trigger || lane.fired;
}

template <typename T>
T getValue(const sLaneData& lane, const sPlayHead& head)
{
    const eInterpolateType type = static_cast<eInterpolateType>(lane.interpolateType);
    if constexpr (!std::is_same_v<T, bool>)
    {
        if (type == eInterpolateType::Linear || type == eInterpolateType::Hermite)
        {
            const float t = lane.inverseDuration * (head.time - lane.currentTime);
            return interpolate<T>(lane.interpolateParameter, type, t);
        }
    }
    return readKeyValue<T>(lane.currentKey);
}

PropertyBase& getProperty(const sLaneData& lane)
{
    return *static_cast<PropertyControl*>(lane.control)->getProperty();
}

template <typename T>
void applyPropertyControl(sLaneData& lane, const sPlayHead& head)
{
    if (isDue(lane, head))
        updateLaneInterpolateData<T>(lane, head);
    if (!passTrigger(lane, head))
        return;
    const T value = getValue<T>(lane, head);
    if (lane.target)
        *static_cast<T*>(lane.target) = value;
    else
        getProperty(lane).setByType<T>(value);
}

void fetchResource(PropertyBase& property, const sResourceKeyRecord& record)
{
    ResourceSystem* system = ResourceSystem::getInstance();
    const TypeInfo* type = TypeInfo::find(record.typeID);
    const bool terminated = std::memchr(record.path, 0, sizeof(record.path)) != nullptr;
    if (!system || !type || !terminated)
        return;
    if (ResourceBase* resource = system->createResource(record.path, type))
    {
        property.setByType<ResourceBase*>(resource);
        resource->release();
    }
}

// A resource is asked for only where it changes. On purpose: an empty key leaves the property as it is.
void applyResourceControl(sLaneData& lane, const sPlayHead& head)
{
    if (isDue(lane, head))
        updateLaneInterpolateData<bool>(lane, head);
    if (!passTrigger(lane, head))
        return;

    sResourceKeyRecord record;
    std::memcpy(&record, lane.currentKey, sizeof(record));
    PropertyBase& property = getProperty(lane);
    const ResourceBase* present = property.getByType<ResourceBase*>();
    if (record.hash == (present ? present->getHash() : sResourceKeyRecord::None))
        return;
    fetchResource(property, record);
}

template <typename T>
void applyTrigger(TriggerControlBase& control, const unsigned char* key)
{
    TriggerControl<T>& trigger = static_cast<TriggerControl<T>&>(control);
    if constexpr (std::is_void_v<T>)
        trigger.trigger();
    else if constexpr (std::is_same_v<T, bool>)
        trigger.trigger(key[KeyTraits<bool>::offset] == 1);
    else
        trigger.trigger(readKeyValue<T>(key));
}

// On purpose: the key that follows counts from its own frame on, so a key ahead of the head is found anew, and fires,
// with each step up to its frame.
template <typename T>
void applyTriggerControl(sLaneData& lane, const sPlayHead& head)
{
    if (isDue(lane, head))
    {
        const unsigned int index = findCurrentKey(lane, head.frame);
        setCurrentKey(lane, index);
        holdKey(lane, index + 1u >= lane.keyNum ? NoFrame : lane.currentFrame);
    }
    if (lane.fired)
        return;

    const sFixed keyFrame(lane.currentFrame, 16);
    const bool standsOnKey = head.previous == head.current && head.current == keyFrame;
    if (!standsOnKey && !head.hasReached(keyFrame))
        return;
    lane.fired = true;
    applyTrigger<T>(*static_cast<TriggerControlBase*>(lane.control), lane.currentKey);
}

// Whoever sets an element of an array selects it first, so only a value of its own may be stored at its address.
template <typename T>
void* getPlainTarget(PropertyBase& property)
{
    return property.getCount() == 0 ? static_cast<PropertyIntermediate<T>&>(property).getPointer() : nullptr;
}

struct sBinding
{
    sLaneData::Apply apply = nullptr;
    void* target = nullptr;
};

sBinding bindProperty(PropertyBase* property)
{
    if (!property)
        return {};
    if (property->getType() == KeyTable::ResourceType)
        return {&applyResourceControl, nullptr};
    sBinding binding;
    visitValueType(ValueTypes{}, property->getType(),
                   [&]<typename T>() {
                       binding = {&applyPropertyControl<T>, getPlainTarget<T>(*property)};
                   });
    return binding;
}

sBinding bindTrigger(const TriggerControlBase& trigger)
{
    sBinding binding;
    visitType<TriggerTraits>(TriggerTypes{}, trigger.getArgumentType(),
                             [&]<typename T>() { binding.apply = &applyTriggerControl<T>; });
    return binding;
}

sBinding bindControl(const ControlBase& control)
{
    if (control.getType() == ControlBase::eControlType::Property)
        return bindProperty(static_cast<const PropertyControl&>(control).getProperty());
    if (control.getType() == ControlBase::eControlType::Trigger)
        return bindTrigger(static_cast<const TriggerControlBase&>(control));
    return {};
}
}

// A file may name a control and bring keys of another type, so the shape of the keys has to agree as well.
bool sLaneData::isMatch(const sLaneRecord& record, const ControlBase& candidate)
{
    if (static_cast<unsigned int>(candidate.getType()) != record.controlType ||
        candidate.getNameHash() != record.nameHash)
        return false;
    const sKeyRow* row = KeyTable::find(KeyTable::getType(candidate));
    return record.keyStride == (row ? row->stride : 0) && record.keyInterpolateNum == (row ? row->componentNum : 0);
}

void sLaneData::bind(ControlBase* owned, const sLaneRecord& record, sInterpolateParameter* parameter)
{
    const sBinding binding = record.keyNum ? bindControl(*owned) : sBinding();
    control = owned;
    key = record.key;
    keyNum = record.keyNum;
    keyStride = record.keyStride;
    interpolateParameter = parameter;
    apply = binding.apply;
    target = binding.target;
    clearCurrentKey();
}

void sLaneData::clearCurrentKey()
{
    currentKey = nullptr;
    currentFrame = NoCurrentFrame;
    nextUpdateFrame = 0;
    fired = false;
}
