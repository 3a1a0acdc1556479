#pragma once

#include "foundation/spoint.h"
#include "foundation/ssize.h"

// The directions of the plane, as indices of points. What runs along one of them is written once for both.
enum class eUIAxis : unsigned int
{
    X = 0,
    Y = 1,
};

inline int getAlong(const sPoint& point, eUIAxis axis)
{
    return point[static_cast<int>(axis)];
}

inline int getAlong(const sSize& size, eUIAxis axis)
{
    return static_cast<int>(axis == eUIAxis::X ? size.width : size.height);
}

inline int getAcross(const sSize& size, eUIAxis axis)
{
    return static_cast<int>(axis == eUIAxis::X ? size.height : size.width);
}

inline sPoint makePoint(eUIAxis axis, int along, int across)
{
    return axis == eUIAxis::X ? sPoint(along, across) : sPoint(across, along);
}

// Extents are worked out with a sign; what is less than nothing becomes nothing.
inline sSize makeSize(int width, int height)
{
    return {static_cast<unsigned int>(width > 0 ? width : 0), static_cast<unsigned int>(height > 0 ? height : 0)};
}

inline sSize makeSize(eUIAxis axis, int along, int across)
{
    return axis == eUIAxis::X ? makeSize(along, across) : makeSize(across, along);
}
