#pragma once

// A width and a height. `Maximum` is the limit of a component where it is edited.
template <typename T, T Maximum>
class sSizeTemplate
{
public:
    static const sSizeTemplate Zero;

    constexpr sSizeTemplate() = default;
    constexpr sSizeTemplate(T newWidth, T newHeight) : width(newWidth), height(newHeight) {}

    constexpr bool operator==(const sSizeTemplate&) const = default;

    T width;
    T height;
};

template <typename T, T Maximum>
inline constexpr sSizeTemplate<T, Maximum> sSizeTemplate<T, Maximum>::Zero{0, 0};

using sSize = sSizeTemplate<unsigned int, 2147483647u>;
