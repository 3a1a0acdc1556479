#pragma once

#include "tools/samples/picture.h"

// The one sheet that all cells of the samples are cut from.
namespace SampleSheet
{
struct sCell
{
    unsigned int left;
    unsigned int top;
    unsigned int width;
    unsigned int height;
};

constexpr sCell Shadow{0, 288, 64, 20};
constexpr sCell Balloon{64, 288, 32, 64};
constexpr sCell Cloud{96, 288, 112, 48};

// The moment `cell` of the walk, which has Walker::CellNum of them.
sCell getWalkerCell(unsigned int cell);

Picture draw();
} // namespace SampleSheet
