#pragma once

#include "foundation/autostring.h"
#include "foundation/sfixed.h"
#include "ui/uigroup.h"

// The controls of values that are one number, text or set of flags, and the values that they edit. What a second group
// shows of the same values follows each edit.
class GalleryValues : public UIGroup
{
public:
    // Edits values of its own.
    explicit GalleryValues(const char* caption);

    // Shows the values of another group, which outlives this one's controls.
    GalleryValues(const char* caption, GalleryValues& other);

private:
    struct sValues
    {
        signed char s8 = -8;
        short s16 = -16;
        int s32 = -32;
        long long s64 = -64;
        unsigned char u8 = 8;
        unsigned short u16 = 16;
        unsigned int u32 = 32;
        unsigned long long u64 = 64;
        float f32 = 0.5f;
        double f64 = 0.25;
        sFixed fixed{1, 15};
        AutoString text = "A text that is longer than its box";
        short array[3] = {1, 2, 3};
        bool flag = true;
        unsigned int mask = 5;
        unsigned int choice = 1;
        unsigned int noChoice = 7;
    };

    void addControls(sValues& values, bool disable);

    template <typename T>
    void addParameter(const char* name, T& value, bool disable);

    sValues mValues;
};
