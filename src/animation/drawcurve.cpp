#include "animation/drawcurve.h"

#include "animation/drawanimation.h"
#include "sequencer/interpolation.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "ui/uilinerun.h"

namespace
{
constexpr int CrossSize = 4;

// A segment of a curve depends on its two keys and on the neighbours of both.
constexpr unsigned int NeighbourhoodNum = 4;
constexpr unsigned int PointStride = KeyTraits<sPoint>::stride;

const SequencerKey& toKey(const ObjectBase* object)
{
    return *static_cast<const SequencerKey*>(object);
}

sPoint getPoint(const SequencerKey& key)
{
    sPoint point;
    key.copyParameter(&point);
    return point;
}

sPoint toView(const sPoint& point)
{
    return point + sPoint(AnimationOrigin, AnimationOrigin);
}

// Null for lanes of another name or another type of value.
const SequencerLane* findPositionLane(const SequencerResourceIntermediate& resource, unsigned int trackIndex)
{
    if (trackIndex >= resource.getTrackList().size())
        return nullptr;
    const auto* track = static_cast<const SequencerTrack*>(resource.getTrackList()[trackIndex]);
    const SequencerLane* lane = track->findLane("Position");
    return lane && lane->getKeyType() == ValueTraits<sPoint>::type ? lane : nullptr;
}

void addKey(UILineRun& lines, sColor color, ObjectList::Iterator key, const SequencerKey* next)
{
    const sPoint point = toView(getPoint(toKey(*key)));
    const eInterpolateType type = toKey(*key).getInterpolateType();
    if (next && type == eInterpolateType::Linear)
        lines.add(point, toView(getPoint(*next)), color);
    if (next && type == eInterpolateType::Hermite)
        addHermiteCurve(lines, color, key);
    addCross(lines, point, CrossSize, color);
}
}

void addCurve(UILineRun& lines, const SequencerResourceIntermediate& resource, unsigned int trackIndex,
              unsigned int frame)
{
    const SequencerLane* lane = findPositionLane(resource, trackIndex);
    if (!lane)
        return;
    const ObjectList& keys = lane->getKeyList();
    for (ObjectList::Iterator key = keys.begin(); key != keys.end() && lines.hasRoom(); ++key)
    {
        const ObjectList::Iterator following = key + 1;
        const SequencerKey* next = following != keys.end() ? &toKey(*following) : nullptr;
        const bool isCurrent = toKey(*key).getFrame() <= frame && (!next || frame < next->getFrame());
        addKey(lines, isCurrent ? sColor::Red : sColor::Blue, key, next);
    }
}

void addHermiteCurve(UILineRun& lines, sColor color, ObjectList::Iterator key)
{
    sPoint from = toView(getPoint(toKey(*key)));
    for (const sPoint& point : makeHermiteCurve(key))
    {
        const sPoint to = toView(point);
        lines.add(from, to, color);
        from = to;
    }
}

// The neighbourhood is packed as a sequencer has it, so that both compute with the same coefficients.
std::array<sPoint, CurveStepNum> makeHermiteCurve(ObjectList::Iterator key)
{
    const bool isFirst = !key.getNode()->previous();
    unsigned char records[NeighbourhoodNum * PointStride];
    sKeyRun run{records, 0, PointStride};
    const sLinkNode<ObjectBase>* node = isFirst ? key.getNode() : key.getNode()->previous();
    for (; node && run.num < NeighbourhoodNum; node = node->next(), ++run.num)
    {
        unsigned char* record = records + run.num * PointStride;
        SequencerResourceIntermediate::makeKey(record, toKey(node->get()));
        SequencerResourceIntermediate::copyKeyParameter(record, toKey(node->get()), ValueTraits<sPoint>::type);
    }

    sInterpolateParameter parameter[KeyTraits<sPoint>::componentNum];
    makeInterpolateParameter<sPoint>(parameter, run, isFirst ? 0 : 1);

    std::array<sPoint, CurveStepNum> points;
    float t = 0.0f;
    for (sPoint& point : points)
    {
        // On purpose: the steps add up, so that the last point may lie a pixel beside the key.
        t += 0.1f;
        point = interpolate<sPoint>(parameter, eInterpolateType::Hermite, t);
    }
    return points;
}
