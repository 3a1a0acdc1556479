#pragma once

#include "foundation/srect.h"

class AnimCell;
class AnimSequencer;
class UILineRun;
class UIPainter;
class sColor;
class sMatrix;

// The origin of an animation stands this many pixels right of and below the painter's.
constexpr int AnimationOrigin = 512;

// Draws the visible cells of an animation, and of the animations on its tracks, where they are at present. `matrix`
// and `color` are those of whatever the animation stands in. Nothing is drawn without a resource, and no cell
// without a texture.
void drawAnimation(UIPainter& painter, const AnimSequencer& animation, const sMatrix& matrix, sColor color);

// Where a cell lies, from the origin of its animation and without its flips. Edges wrap for sizes that no picture has.
sRect getCellRect(const AnimCell& cell);

// Two lines of `size` pixels to each side of a point.
void addCross(UILineRun& lines, const sPoint& centre, int size, sColor color);
