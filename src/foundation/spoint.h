#pragma once

#include "foundation/sfixed.h"

#include <type_traits>

// A pair of coordinates. `Minimum` and `Maximum` are the limits of a component where it is edited.
template <typename T, int Minimum, int Maximum>
class sPointTemplate
{
public:
    using Component = T;

    static const sPointTemplate Zero;

    constexpr sPointTemplate() = default;
    constexpr sPointTemplate(int newX, int newY) : x(fromInt(newX)), y(fromInt(newY)) {}
    constexpr sPointTemplate(sFixed newX, sFixed newY) requires std::is_same_v<T, sFixed> : x(newX), y(newY) {}

    constexpr sPointTemplate operator+(const sPointTemplate& other) const
    {
        sPointTemplate moved = *this;
        return moved += other;
    }

    constexpr sPointTemplate operator-(const sPointTemplate& other) const
    {
        sPointTemplate moved = *this;
        moved.x = difference(x, other.x);
        moved.y = difference(y, other.y);
        return moved;
    }

    constexpr sPointTemplate& operator+=(const sPointTemplate& other)
    {
        x = sum(x, other.x);
        y = sum(y, other.y);
        return *this;
    }

    constexpr T& operator[](int index) { return index ? y : x; }
    constexpr const T& operator[](int index) const { return index ? y : x; }

    constexpr bool operator==(const sPointTemplate&) const = default;

    T x;
    T y;

private:
    // Both wrap, for integers too.
    static constexpr T sum(T left, T right)
    {
        if constexpr (std::is_integral_v<T>)
            return static_cast<T>(static_cast<unsigned int>(left) + static_cast<unsigned int>(right));
        else
            return left + right;
    }

    static constexpr T difference(T left, T right)
    {
        if constexpr (std::is_integral_v<T>)
            return static_cast<T>(static_cast<unsigned int>(left) - static_cast<unsigned int>(right));
        else
            return left - right;
    }

    static constexpr T fromInt(int value)
    {
        if constexpr (std::is_same_v<T, sFixed>)
            return sFixed(value, 16);
        else
            return static_cast<T>(value);
    }
};

template <typename T, int Minimum, int Maximum>
inline constexpr sPointTemplate<T, Minimum, Maximum> sPointTemplate<T, Minimum, Maximum>::Zero{0, 0};

using sPoint = sPointTemplate<int, -2147483647 - 1, 2147483647>;
using sTexcoord = sPointTemplate<unsigned short, 0, 65535>;
using sVector = sPointTemplate<sFixed, 32768, 32767>;
