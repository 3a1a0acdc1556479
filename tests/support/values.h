#pragma once

#include "reflection/valuetraits.h"

#include <gtest/gtest.h>

// A value of each type, different in each component and exact in text.
template <typename T>
T makeValue(int number)
{
    T value{};
    if constexpr (CompositeValue<T>)
    {
        for (const auto& component : ValueTraits<T>::components)
            value.*component.target = makeValue<std::remove_reference_t<decltype(value.*component.target)>>(number++);
    }
    else if constexpr (std::is_same_v<T, sFixed>)
        value = sFixed(number * 2 + 1, 15);
    else if constexpr (std::is_same_v<T, bool>)
        value = number % 2 != 0;
    else
        value = static_cast<T>(number);
    return value;
}
