#pragma once

#include "tools/samples/picture.h"

// The figure of the samples: a child with a cap and a rucksack, walking to the right. One turn of the cycle is
// two steps; the feet on the ground move back evenly, so that a walker moved on by StridePixels a turn does
// not slide.
namespace Walker
{
constexpr unsigned int CellWidthPixels = 64;
constexpr unsigned int CellHeightPixels = 96;
constexpr unsigned int CellNum = 12;
constexpr unsigned int StridePixels = 48;

Picture drawCell(unsigned int cell);
} // namespace Walker
