#include "reflection/valuetext.h"

#include <cstdio>

const char* formatInteger(char* buffer, int value)
{
    std::snprintf(buffer, ValueTextSize, "%d", value);
    return buffer;
}

const char* formatReal(char* buffer, double value)
{
    if (std::snprintf(buffer, ValueTextSize, "%f", value) >= static_cast<int>(ValueTextSize))
        std::snprintf(buffer, ValueTextSize, "%.17g", value);
    return buffer;
}

const char* formatElementName(char* buffer, unsigned int index)
{
    std::snprintf(buffer, ValueTextSize, "element%d", static_cast<int>(index));
    return buffer;
}
