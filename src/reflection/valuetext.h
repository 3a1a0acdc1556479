#pragma once

#include "foundation/autostring.h"
#include "reflection/valuetraits.h"

#include <cstdlib>

// The text forms of single values, as documents and number boxes hold them. Nothing here allocates.

// Every buffer below holds at least this many characters.
constexpr unsigned int ValueTextSize = 64;

// "%d".
const char* formatInteger(char* buffer, int value);

// As std::strtoll reads a decimal number.
long long parseInteger(const char* text);

// "%f", or "%.17g" where that does not fit the buffer.
const char* formatReal(char* buffer, double value);

// The name of the tag of an array or list element.
const char* formatElementName(char* buffer, unsigned int index);

// The result is `buffer` or another text; only the result is used.
template <typename T>
const char* formatValue(char* buffer, T value)
{
    if constexpr (std::is_same_v<T, bool>)
        return value ? "true" : "false";
    else if constexpr (std::is_same_v<T, sFixed>)
        return formatReal(buffer, static_cast<double>(static_cast<float>(value)));
    else if constexpr (RealValue<T>)
        return formatReal(buffer, static_cast<double>(value));
    // On purpose: one format for all integers. Large u32 values come out negative and read back right; of the 64-bit
    // types only the low half survives.
    else
        return formatInteger(buffer, static_cast<int>(value));
}

// A text that is no number gives 0.
template <typename T>
T parseValue(const char* text)
{
    // On purpose: "true" reads as false and everything else as true, so a bool alternates with each save and load.
    if constexpr (std::is_same_v<T, bool>)
        return !AutoString::isEqual(text, "true");
    else if constexpr (std::is_same_v<T, sFixed>)
        return sFixed(static_cast<float>(std::strtod(text, nullptr)));
    else if constexpr (RealValue<T>)
        return static_cast<T>(std::strtod(text, nullptr));
    else
        return static_cast<T>(parseInteger(text));
}
