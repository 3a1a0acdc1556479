#include "sequencer/unkeyedvalues.h"

#include "foundation/allocator.h"
#include "foundation/autostring.h"
#include "foundation/dev.h"
#include "reflection/property.h"
#include "resource/resourcebase.h"
#include "sequencer/control.h"
#include "sequencer/sequencer.h"

#include <memory>
#include <variant>

namespace
{
// Calls visit(property) for each property that lanes could drive.
template <typename Visitor>
void forEachProperty(ObjectBase& object, Visitor&& visit)
{
    List<ControlBase> controls;
    object.makeControlList(controls);
    for (ControlBase* control : controls)
    {
        const std::unique_ptr<ControlBase> owned(control);
        if (control->getType() != ControlBase::eControlType::Property)
            continue;
        if (PropertyBase* property = static_cast<PropertyControl*>(control)->getProperty())
            visit(*property);
    }
}

bool isKeyed(const Sequencer::sTrackData& track, unsigned int nameHash)
{
    for (unsigned int i = 0; i < track.laneNum; ++i)
    {
        const sLaneData& lane = track.lane[i];
        if (lane.control && lane.keyNum && lane.control->getNameHash() == nameHash)
            return true;
    }
    return false;
}

// The value of one property, whatever its type; nothing of an object, which belongs to its owner.
class NotedValue
{
public:
    explicit NotedValue(const PropertyBase& property) : mNameHash(property.getNameHash()), mType(property.getType())
    {
        visitValueType(NotedTypes{}, mType, [&]<typename T>() { mValue.emplace<T>(property.getByType<T>()); });
        if (ResourceBase* resource = getResource())
            resource->addRef();
    }

    ~NotedValue()
    {
        if (ResourceBase* resource = getResource())
            resource->release();
    }

    NotedValue(const NotedValue&) = delete;
    NotedValue& operator=(const NotedValue&) = delete;

    bool isOf(const PropertyBase& property) const
    {
        return property.getNameHash() == mNameHash && property.getType() == mType;
    }

    void putBack(PropertyBase& property) const
    {
        visitValueType(NotedTypes{}, mType, [&]<typename T>() { property.setByType<T>(*std::get_if<T>(&mValue)); });
    }

    // The values of a track hang together, each owned by the one before it.
    std::unique_ptr<NotedValue> next;

private:
    template <typename... Ts>
    static TypeList<Ts..., AutoString, ResourceBase*> extend(TypeList<Ts...>);
    using NotedTypes = decltype(extend(ValueTypes{}));

    template <typename... Ts>
    static std::variant<Ts...> makeVariant(TypeList<Ts...>);

    ResourceBase* getResource() const
    {
        ResourceBase* const* resource = std::get_if<ResourceBase*>(&mValue);
        return resource ? *resource : nullptr;
    }

    unsigned int mNameHash;
    unsigned int mType;
    decltype(makeVariant(NotedTypes{})) mValue;
};
}

// One for each track, so that both are counted alike; without a class where the track has no object.
struct UnkeyedValues::sTrack
{
    const TypeInfo* type = nullptr;
    std::unique_ptr<NotedValue> value;
};

UnkeyedValues::~UnkeyedValues()
{
    for (sTrack* track : mTrack)
        delete track;
}

void UnkeyedValues::note(const Sequencer& sequencer)
{
    const AllocatorBase& heap = *AllocatorBase::getGlobalAllocator();
    if (heap.hasRoom())
        mTrack.reserve(sequencer.getTrackNum());
    for (unsigned int i = 0; i < sequencer.getTrackNum(); ++i)
    {
        if (!heap.hasRoom())
        {
            DEV_TRACE("Not enough memory for all values without a key.\n");
            return;
        }
        sTrack* track = new sTrack;
        mTrack.addLast(track);
        ObjectBase* object = sequencer.getTrackArray()[i].object;
        if (!object)
            continue;
        track->type = object->getTypeInfo();
        forEachProperty(*object,
                        [&](const PropertyBase& property)
                        {
                            std::unique_ptr<NotedValue> value(new NotedValue(property));
                            value->next = std::move(track->value);
                            track->value = std::move(value);
                        });
    }
}

void UnkeyedValues::restore(const Sequencer& sequencer) const
{
    unsigned int index = 0;
    for (const sTrack* track : mTrack)
    {
        if (index == sequencer.getTrackNum())
            return;
        const Sequencer::sTrackData& data = sequencer.getTrackArray()[index++];
        if (!data.object || data.object->getTypeInfo() != track->type)
            continue;
        forEachProperty(*data.object,
                        [&](PropertyBase& property)
                        {
                            for (const NotedValue* value = track->value.get(); value; value = value->next.get())
                                if (value->isOf(property) && !isKeyed(data, property.getNameHash()))
                                    value->putBack(property);
                        });
    }
}
