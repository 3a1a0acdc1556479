#pragma once

template <typename T>
constexpr T minimum(T a, T b)
{
    return b < a ? b : a;
}

template <typename T>
constexpr T maximum(T a, T b)
{
    return a < b ? b : a;
}
