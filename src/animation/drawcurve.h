#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "reflection/objectlist.h"

#include <array>

class SequencerResourceIntermediate;
class UILineRun;

// The steps in which a curve between two keys is drawn.
constexpr unsigned int CurveStepNum = 10;

// The way along which the keys of a track's "Position" lane move it, from the origin of animations, with a cross
// at each key; no line for a track without such a lane of points. The key that governs `frame` is red, others blue.
void addCurve(UILineRun& lines, const SequencerResourceIntermediate& resource, unsigned int trackIndex,
              unsigned int frame);

// The way from a HERMITE key of points to the key behind it, which must be there.
void addHermiteCurve(UILineRun& lines, sColor color, ObjectList::Iterator key);

// The ends of its straight pieces, as a sequencer computes the point there.
std::array<sPoint, CurveStepNum> makeHermiteCurve(ObjectList::Iterator key);
