#pragma once

#include "reflection/valuetraits.h"
#include "sequencer/control.h"

#include <algorithm>

class TypeInfo;

// The shape of a key of a plain value: small values share the word of the head, all others lie behind it. bool does
// not interpolate; what does has as many components as the value has numbers.
template <typename T>
struct KeyTraits
{
    static constexpr unsigned int offset = sizeof(T) <= 2 ? 2 : 4;
    static constexpr unsigned int stride = offset == 2 ? 4 : 4 + sizeof(T);

    static constexpr unsigned int getComponentNum()
    {
        if constexpr (CompositeValue<T>)
            return ValueTraits<T>::components.size();
        else
            return std::is_same_v<T, bool> ? 0 : 1;
    }

    static constexpr unsigned int componentNum = getComponentNum();
};

// What a lane takes from the type of its control.
struct sKeyRow
{
    unsigned int type;          // of a property
    unsigned int triggerType;   // of a trigger's argument; 0 for values that no trigger takes
    unsigned int offset;        // of the value in the record of a key
    unsigned int stride;        // of the records
    unsigned int componentNum;  // that are interpolated
    TypeInfo* (*getTypeInfo)(); // of the keys
};

namespace KeyTable
{
template <typename... Ts>
constexpr std::size_t getWidest(TypeList<Ts...>)
{
    return std::max({sizeof(Ts)...});
}

// The bytes that hold the value of any key, but for the resource.
constexpr std::size_t WidestValue = getWidest(ValueTypes{});

constexpr unsigned int VoidTrigger = TriggerTraits<void>::type;
constexpr unsigned int ResourceType = ValueTraits<ResourceBase*>::type;

// By the type number of a property or of a trigger's argument; null for types that have no keys.
const sKeyRow* find(unsigned int type);

// The type number that a control's lane has; 0 for a control without property and for an invalid one.
unsigned int getType(const ControlBase& control);

// Whether a block of keys may have this stride.
bool isStride(unsigned int stride);
}
