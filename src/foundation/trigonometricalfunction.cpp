#include "foundation/trigonometricalfunction.h"

#include <cmath>

namespace
{
// A double: as a float it would move three entries by one unit.
constexpr double RadiansPerStep = 0.006135923;
} // namespace

sFixed TrigonometricalFunction::mTable[TableSize];

void TrigonometricalFunction::initialize()
{
    for (int i = 0; i < TableSize; ++i)
        mTable[i] = std::sin(static_cast<float>(i * RadiansPerStep));

    mTable[0] = sFixed::Zero;
    mTable[256] = sFixed::One;
    mTable[512] = sFixed::Zero;
    // On purpose: plus one where the sine is minus one, so that three quarters of a turn look like one quarter.
    mTable[768] = sFixed::One;
}
