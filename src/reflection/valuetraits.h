#pragma once

#include "foundation/autostring.h"
#include "foundation/scolor.h"
#include "foundation/sfixed.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "foundation/ssize.h"

#include <array>
#include <type_traits>

class ObjectBase;
class ResourceBase;

// What differs between the types that a property can hold: one traits struct a type, one list, one visitor. The
// numbers and names are part of the file format.

template <typename... Ts>
struct TypeList
{
};

// One number of a structure type. `target` is where it is set, `source` where it is written to a document from.
template <typename T, typename Part>
struct sComponent
{
    const char* name;
    Part T::*target;
    Part T::*source = target;
};

template <unsigned int Type>
struct ValueCode
{
    static constexpr unsigned int type = Type;
};

template <typename T>
struct ValueTraits;

template <>
struct ValueTraits<bool> : ValueCode<1>
{
    static constexpr const char* name = "bool";
};

template <>
struct ValueTraits<signed char> : ValueCode<2>
{
    static constexpr const char* name = "s8";
};

template <>
struct ValueTraits<short> : ValueCode<3>
{
    static constexpr const char* name = "s16";
};

template <>
struct ValueTraits<int> : ValueCode<4>
{
    static constexpr const char* name = "s32";
};

template <>
struct ValueTraits<long long> : ValueCode<5>
{
    static constexpr const char* name = "s64";
};

template <>
struct ValueTraits<unsigned char> : ValueCode<6>
{
    static constexpr const char* name = "u8";
};

template <>
struct ValueTraits<unsigned short> : ValueCode<7>
{
    static constexpr const char* name = "u16";
};

template <>
struct ValueTraits<unsigned int> : ValueCode<8>
{
    static constexpr const char* name = "u32";
};

template <>
struct ValueTraits<unsigned long long> : ValueCode<9>
{
    static constexpr const char* name = "u64";
};

template <>
struct ValueTraits<float> : ValueCode<10>
{
    static constexpr const char* name = "f32";
};

template <>
struct ValueTraits<double> : ValueCode<11>
{
    static constexpr const char* name = "f64";
};

template <>
struct ValueTraits<sSize> : ValueCode<12>
{
    static constexpr const char* name = "size";
    static constexpr std::array<sComponent<sSize, unsigned int>, 2> components{{
        {"width", &sSize::width},
        {"height", &sSize::height},
    }};
};

template <>
struct ValueTraits<sPoint> : ValueCode<13>
{
    static constexpr const char* name = "point";
    static constexpr std::array<sComponent<sPoint, int>, 2> components{{
        {"x", &sPoint::x},
        {"y", &sPoint::y},
    }};
};

template <>
struct ValueTraits<sRect> : ValueCode<14>
{
    static constexpr const char* name = "rect";
    static constexpr std::array<sComponent<sRect, int>, 4> components{{
        {"left", &sRect::left},
        {"top", &sRect::top},
        {"right", &sRect::right},
        {"bottom", &sRect::bottom},
    }};
};

template <>
struct ValueTraits<sColor> : ValueCode<15>
{
    static constexpr const char* name = "color";
    static constexpr std::array<sComponent<sColor, unsigned char>, 4> components{{
        {"red", &sColor::r},
        {"green", &sColor::g},
        {"blue", &sColor::b},
        {"alpha", &sColor::a},
    }};
};

template <>
struct ValueTraits<sColorF> : ValueCode<16>
{
    static constexpr const char* name = "colorf";
    static constexpr std::array<sComponent<sColorF, float>, 4> components{{
        {"red", &sColorF::r},
        {"green", &sColorF::g},
        {"blue", &sColorF::b},
        {"alpha", &sColorF::a},
    }};
};

template <>
struct ValueTraits<sTexcoord> : ValueCode<17>
{
    static constexpr const char* name = "texcoord";
    static constexpr std::array<sComponent<sTexcoord, unsigned short>, 2> components{{
        {"u", &sTexcoord::x},
        {"v", &sTexcoord::y},
    }};
};

template <>
struct ValueTraits<sFixed> : ValueCode<18>
{
    static constexpr const char* name = "fixed";
};

template <>
struct ValueTraits<sVector> : ValueCode<19>
{
    static constexpr const char* name = "vector";
    static constexpr std::array<sComponent<sVector, sFixed>, 2> components{{
        {"x", &sVector::x},
        // On purpose: both attributes of a document carry x, so that y becomes x with each save.
        {"y", &sVector::y, &sVector::x},
    }};
};

template <>
struct ValueTraits<AutoString> : ValueCode<20>
{
    static constexpr const char* name = "string";
};

template <>
struct ValueTraits<ObjectBase*> : ValueCode<21>
{
    static constexpr const char* name = "Object";
};

template <>
struct ValueTraits<ResourceBase*> : ValueCode<22>
{
    static constexpr const char* name = "Resource";
};

// The plain values, in the order of their numbers. Strings, objects and resources have no number and no components,
// so each user of the list would have to leave them out again.
using ValueTypes =
    TypeList<bool, signed char, short, int, long long, unsigned char, unsigned short, unsigned int, unsigned long long,
             float, double, sSize, sPoint, sRect, sColor, sColorF, sTexcoord, sFixed, sVector>;

template <typename T>
concept IntegerValue = std::is_integral_v<T> && !std::is_same_v<T, bool>;

template <typename T>
concept RealValue = std::is_floating_point_v<T> || std::is_same_v<T, sFixed>;

template <typename T>
concept CompositeValue = requires
{
    ValueTraits<T>::components;
};

// Calls visitor.operator()<T>() for the type of the list whose traits carry that number; false when none does.
template <template <typename> class Traits, typename... Ts, typename Visitor>
bool visitType(TypeList<Ts...>, unsigned int type, Visitor&& visitor)
{
    return ((Traits<Ts>::type == type && (visitor.template operator()<Ts>(), true)) || ...);
}

template <typename... Ts, typename Visitor>
bool visitValueType(TypeList<Ts...> types, unsigned int type, Visitor&& visitor)
{
    return visitType<ValueTraits>(types, type, visitor);
}
