#pragma once

#include "foundation/spoint.h"
#include "foundation/ssize.h"

// Left, top, right, bottom; right and bottom are outside. `S` is the type of its width and height.
template <typename T, typename S, T Minimum, T Maximum>
class sRectTemplate
{
public:
    static const sRectTemplate Zero;

    // From the origin to the largest coordinate.
    static const sRectTemplate Max;

    constexpr sRectTemplate() = default;
    constexpr sRectTemplate(T newLeft, T newTop, T newRight, T newBottom)
        : left(newLeft), top(newTop), right(newRight), bottom(newBottom)
    {
    }
    constexpr sRectTemplate(S width, S height) : sRectTemplate(0, 0, static_cast<T>(width), static_cast<T>(height)) {}
    constexpr explicit sRectTemplate(const sSize& size) : sRectTemplate(size.width, size.height) {}

    constexpr S getWidth() const { return static_cast<S>(right) - static_cast<S>(left); }
    constexpr S getHeight() const { return static_cast<S>(bottom) - static_cast<S>(top); }

    // The intersection; rectangles that merely touch, or do not meet, give Zero.
    constexpr sRectTemplate operator&(const sRectTemplate& other) const
    {
        const sRectTemplate common(left > other.left ? left : other.left, top > other.top ? top : other.top,
                                   right < other.right ? right : other.right,
                                   bottom < other.bottom ? bottom : other.bottom);
        return common.left < common.right && common.top < common.bottom ? common : sRectTemplate(0, 0, 0, 0);
    }

    constexpr sRectTemplate& operator&=(const sRectTemplate& other) { return *this = *this & other; }

    // The smallest rectangle around both.
    constexpr sRectTemplate operator|(const sRectTemplate& other) const
    {
        return {left < other.left ? left : other.left, top < other.top ? top : other.top,
                right > other.right ? right : other.right, bottom > other.bottom ? bottom : other.bottom};
    }

    constexpr sRectTemplate& operator|=(const sRectTemplate& other) { return *this = *this | other; }

    // On purpose: a point on the right or bottom edge counts as inside.
    constexpr bool intersect(const sPointTemplate<T, Minimum, Maximum>& point) const
    {
        return left <= point.x && point.x <= right && top <= point.y && point.y <= bottom;
    }

    constexpr sRectTemplate operator+(const sPointTemplate<T, Minimum, Maximum>& offset) const
    {
        const auto first = sPointTemplate<T, Minimum, Maximum>(left, top) + offset;
        const auto last = sPointTemplate<T, Minimum, Maximum>(right, bottom) + offset;
        return {first.x, first.y, last.x, last.y};
    }

    constexpr bool operator==(const sRectTemplate&) const = default;

    T left;
    T top;
    T right;
    T bottom;
};

template <typename T, typename S, T Minimum, T Maximum>
inline constexpr sRectTemplate<T, S, Minimum, Maximum> sRectTemplate<T, S, Minimum, Maximum>::Zero{0, 0, 0, 0};

template <typename T, typename S, T Minimum, T Maximum>
inline constexpr sRectTemplate<T, S, Minimum, Maximum> sRectTemplate<T, S, Minimum, Maximum>::Max{0, 0, Maximum,
                                                                                                  Maximum};

using sRect = sRectTemplate<int, unsigned int, -2147483647 - 1, 2147483647>;
