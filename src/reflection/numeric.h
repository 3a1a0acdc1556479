#pragma once

#include "foundation/sfixed.h"

#include <cstring>

// A limit in the form of the type that it limits; the bytes beyond that type are zero.
union uNumeric
{
    constexpr uNumeric() : u64(0) {}

    template <typename T>
    explicit uNumeric(T value) : u64(0)
    {
        static_assert(sizeof(T) <= sizeof(u64));
        std::memcpy(this, &value, sizeof(T));
    }

    template <typename T>
    T get() const
    {
        T value;
        std::memcpy(static_cast<void*>(&value), this, sizeof(T));
        return value;
    }

    unsigned char u8;
    unsigned short u16;
    unsigned int u32;
    unsigned long long u64;
    signed char s8;
    short s16;
    int s32;
    long long s64;
    float f32;
    double f64;
    sFixed fixed;
};
