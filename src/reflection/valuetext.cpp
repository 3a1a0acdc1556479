#include "reflection/valuetext.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>

const char* formatInteger(char* buffer, int value)
{
    constexpr unsigned int MaximumLength = 11;
    *std::to_chars(buffer, buffer + MaximumLength, value).ptr = '\0';
    return buffer;
}

// Blanks, a plus and what is out of range are left to the slower one.
long long parseInteger(const char* text)
{
    long long value;
    const std::from_chars_result result = std::from_chars(text, text + std::strlen(text), value);
    return result.ec == std::errc() ? value : std::strtoll(text, nullptr, 10);
}

const char* formatReal(char* buffer, double value)
{
    if (std::snprintf(buffer, ValueTextSize, "%f", value) >= static_cast<int>(ValueTextSize))
        std::snprintf(buffer, ValueTextSize, "%.17g", value);
    return buffer;
}

const char* formatElementName(char* buffer, unsigned int index)
{
    constexpr std::string_view Prefix = "element";
    Prefix.copy(buffer, Prefix.size());
    formatInteger(buffer + Prefix.size(), static_cast<int>(index));
    return buffer;
}
