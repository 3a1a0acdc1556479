#pragma once

#include "foundation/sfixed.h"

// Sine and cosine by table; an angle counts 1024 to the full turn and may be any integer.
class TrigonometricalFunction
{
public:
    static constexpr int TableSize = 1024;

    // Fills the table; called once at start.
    static void initialize();

    static sFixed getSin(int angle) { return mTable[angle & (TableSize - 1)]; }
    static sFixed getCos(int angle) { return mTable[(angle + 256) & (TableSize - 1)]; }

private:
    static sFixed mTable[TableSize];
};
