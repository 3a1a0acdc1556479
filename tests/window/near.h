#pragma once

#include "foundation/scolor.h"

#include <cstdlib>

// What a driver may round differently; an alpha is not looked at.
inline bool isNear(sColor found, sColor wanted, int rounding = 1)
{
    for (int i = 0; i < 3; ++i)
        if (std::abs(found[i] - wanted[i]) > rounding)
            return false;
    return true;
}
