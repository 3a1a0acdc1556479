#pragma once

#include "sequencer/keytable.h"
#include "sequencer/sequencerrecord.h"

#include <cstring>
#include <limits>
#include <type_traits>

// The arithmetic between two neighbouring keys of a lane. All of it is done in floats of 32 bits on coefficients that
// are made once for each pair of keys; the differences between types of values below are wanted to the bit.

// The coefficients of one component: a0 and a1 of the straight line, c3 to c0 of the curve.
struct sInterpolateParameter
{
    float a0;
    float a1;
    float c3;
    float c2;
    float c1;
    float c0;
};

// The records of a lane's keys, which somebody else owns.
struct sKeyRun
{
    const unsigned char* at(unsigned int index) const { return key + index * stride; }

    const unsigned char* key = nullptr;
    unsigned int num = 0;
    unsigned int stride = 0;
};

template <typename T>
T readKeyValue(const unsigned char* key)
{
    T value;
    std::memcpy(&value, key + KeyTraits<T>::offset, sizeof(T));
    return value;
}

// A key's byte may be anything.
template <>
inline bool readKeyValue<bool>(const unsigned char* key)
{
    return key[KeyTraits<bool>::offset] != 0;
}

namespace Interpolation
{
// a - b of whole numbers in the width and sign of `Wide`, where it wraps.
template <typename Wide, typename T>
float subtractWide(T a, T b)
{
    using Bits = std::make_unsigned_t<Wide>;
    return static_cast<float>(static_cast<Wide>(static_cast<Bits>(a) - static_cast<Bits>(b)));
}

// On purpose: values without sign are subtracted without sign, so that a falling value gives a difference near 2^32
// (2^64 for u64).
template <typename T>
float subtractValue(T a, T b)
{
    if constexpr (RealValue<T>)
        return static_cast<float>(a - b);
    else if constexpr (sizeof(T) == 8)
        return subtractWide<T>(a, b);
    else
        return subtractWide<std::conditional_t<std::is_unsigned_v<T>, unsigned int, int>>(a, b);
}

// Components are floats before they are subtracted and behave when they fall.
template <typename Part>
float subtractPart(Part a, Part b)
{
    return static_cast<float>(a) - static_cast<float>(b);
}

// On purpose: but for the tangent at the end of a segment, which shows in sSize alone.
template <typename Part>
float subtractPartAtEnd(Part a, Part b)
{
    if constexpr (RealValue<Part>)
        return static_cast<float>(a - b);
    else
        return subtractWide<std::conditional_t<std::is_same_v<Part, unsigned int>, unsigned int, int>>(a, b);
}

// The slope that a key gives to a segment at its end: `before`, `at` and `behind` are the differences that its type
// may ask for.
struct sSlope
{
    float linear;
    float hermite;

    float pick(eInterpolateType type) const
    {
        if (type == eInterpolateType::Linear)
            return linear;
        return type == eInterpolateType::Hermite ? 0.5f * hermite : 0.0f;
    }
};

// `read` yields one component of a key; `subtract` and `subtractAtEnd` take two of them.
template <typename Read, typename Subtract, typename SubtractAtEnd>
sInterpolateParameter make(const sKeyRun& keys, unsigned int i, Read read, Subtract subtract,
                           SubtractAtEnd subtractAtEnd)
{
    sInterpolateParameter parameter{};
    const auto value = read(keys.at(i));
    const auto next = read(keys.at(i + 1));
    const float difference = subtract(next, value);
    if (getInterpolateType(keys.at(i)) == eInterpolateType::Linear)
    {
        parameter.a0 = static_cast<float>(value);
        parameter.a1 = difference;
        return parameter;
    }

    // On purpose: the type of the neighbour decides on the slope, not that of the key itself.
    float entry = 0.0f;
    if (i > 0)
    {
        const auto previous = read(keys.at(i - 1));
        const sSlope slope{subtract(value, previous), subtract(next, previous)};
        entry = slope.pick(getInterpolateType(keys.at(i - 1)));
    }
    float exit = 0.0f;
    if (i + 2 < keys.num)
    {
        const auto last = read(keys.at(i + 2));
        const sSlope slope{subtractAtEnd(last, next), subtractAtEnd(last, value)};
        exit = slope.pick(getInterpolateType(keys.at(i + 1)));
    }

    parameter.c3 = -2.0f * difference + entry + exit;
    parameter.c2 = -2.0f * entry + 3.0f * difference - exit;
    parameter.c1 = entry;
    parameter.c0 = static_cast<float>(value);
    return parameter;
}

inline float evaluate(const sInterpolateParameter& parameter, eInterpolateType type, float t)
{
    if (type == eInterpolateType::Linear)
        return parameter.a1 * t + parameter.a0;
    return parameter.c3 * t * t * t + parameter.c2 * t * t + parameter.c1 * t + parameter.c0;
}

// Truncates through 64 bits; not a number, and what 64 bits cannot hold, becomes `outside`.
inline long long truncate(float value, long long outside = 0)
{
    const bool inside = value >= -9223372036854775808.0f && value < 9223372036854775808.0f;
    return inside ? static_cast<long long>(value) : outside;
}

// The float result as a value: small integers wrap, u32 and u64 saturate.
template <typename T>
T fromFloat(float value)
{
    if constexpr (RealValue<T>)
        return T(value);
    else if constexpr (std::is_same_v<T, long long>)
        return truncate(value, std::numeric_limits<long long>::min());
    else if constexpr (std::is_same_v<T, unsigned int>)
        return value > 0.0f ? static_cast<T>(value < 4294967296.0f ? truncate(value) : 0xFFFFFFFF) : 0;
    else if constexpr (std::is_same_v<T, unsigned long long>)
    {
        if (value >= 18446744073709551616.0f)
            return std::numeric_limits<T>::max();
        return value >= 0.0f ? static_cast<T>(value) : static_cast<T>(truncate(value));
    }
    else
        return static_cast<T>(truncate(value));
}
}

// Prepares the coefficients of the segment that begins at key `i`, which is LINEAR or HERMITE and not the last one:
// one set for each component of T.
template <typename T>
void makeInterpolateParameter(sInterpolateParameter* parameter, const sKeyRun& keys, unsigned int i)
{
    if constexpr (CompositeValue<T>)
    {
        for (const auto& component : ValueTraits<T>::components)
        {
            using Part = std::remove_cvref_t<decltype(std::declval<T>().*component.target)>;
            *parameter++ = Interpolation::make(
                keys, i, [&](const unsigned char* key) { return readKeyValue<T>(key).*component.target; },
                Interpolation::subtractPart<Part>, Interpolation::subtractPartAtEnd<Part>);
        }
    }
    else if constexpr (!std::is_same_v<T, bool>)
        *parameter = Interpolation::make(keys, i, readKeyValue<T>, Interpolation::subtractValue<T>,
                                         Interpolation::subtractValue<T>);
}

// The value at `t` of the segment, from 0 at its key to 1 at the following one, with coefficients that were made for
// its type.
template <typename T>
T interpolate(const sInterpolateParameter* parameter, eInterpolateType type, float t)
{
    if constexpr (CompositeValue<T>)
    {
        T value;
        for (const auto& component : ValueTraits<T>::components)
        {
            using Part = std::remove_cvref_t<decltype(value.*component.target)>;
            value.*component.target = Interpolation::fromFloat<Part>(Interpolation::evaluate(*parameter++, type, t));
        }
        return value;
    }
    else
        return Interpolation::fromFloat<T>(Interpolation::evaluate(*parameter, type, t));
}
