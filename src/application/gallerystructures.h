#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "foundation/ssize.h"
#include "ui/uigroup.h"

// The controls of values that have several numbers, and of an array, and the values that they edit. What a second group
// shows of the same values follows each edit.
class GalleryStructures : public UIGroup
{
public:
    // Edits values of its own.
    explicit GalleryStructures(const char* caption);

    // Shows the values of another group, which outlives this one's controls.
    GalleryStructures(const char* caption, GalleryStructures& other);

private:
    struct sValues
    {
        sSize size{320, 200};
        sPoint point{-16, 16};
        sRect rect{8, 16, 24, 32};
        sTexcoord texcoord{0, 65535};
        sVector vector{1, -1};
        sColor color{64, 128, 255, 192};
        sColorF colorF = sColorF::White;
        short numbers[5] = {1, 2, 3, 4, 5};
    };

    void addControls(sValues& values, bool disable);

    template <typename Control, typename T>
    void addControl(const char* name, T& value, bool disable);

    sValues mValues;
};
