#include "benchmarks/harness.h"
#include "reflection/property.h"
#include "reflection/reflect.h"
#include "sequencer/control.h"
#include "sequencer/sequencer.h"
#include "sequencer/sequencerresourceintermediate.h"

#include <cstdio>
#include <memory>
#include <vector>

namespace
{
constexpr unsigned int TrackNum = 100;
constexpr unsigned int LaneNum = 100;
constexpr unsigned int KeyNum = 16;
constexpr unsigned int KeyDistance = 4;
constexpr unsigned int FrameNum = 60;

// An object with as many curves as a track has lanes.
class BenchCurves : public ObjectBase
{
    REFLECTED(BenchCurves)

public:
    BenchCurves()
    {
        for (unsigned int i = 0; i < LaneNum; ++i)
            std::snprintf(mName[i], sizeof(mName[i]), "curve%u", i);
    }

    void makeControlList(List<ControlBase>& list) override
    {
        for (unsigned int i = 0; i < LaneNum; ++i)
            list.addLast(new PropertyControl(new ReferenceProperty<float>(mName[i], &mValue[i])));
    }

private:
    char mName[LaneNum][16];
    float mValue[LaneNum] = {};
};

REFLECT(BenchCurves, eTypeAttribute::None, "ObjectBase");

// Straight lines and curves in turn.
struct sScene
{
    sScene()
    {
        BenchCurves sample;
        List<ControlBase> controls;
        sample.makeControlList(controls);
        for (unsigned int i = 0; i < TrackNum; ++i)
            addTrack(("Track" + std::to_string(i)).c_str(), controls);
        for (ControlBase* control : controls)
            delete control;
        sequence.clearUpdate();
        sequencer.setResource(&sequence);
    }

    void addTrack(const AutoString& name, const List<ControlBase>& controls)
    {
        sequence.addTrack(BenchCurves::getStaticTypeInfo(), name);
        float value = 0.0f;
        for (ControlBase* control : controls)
        {
            sequence.addLane(name, control);
            for (unsigned int i = 0; i < KeyNum; ++i, value += 0.75f)
            {
                const eInterpolateType type = i % 2 ? eInterpolateType::Linear : eInterpolateType::Hermite;
                sequence.addKey(name, control->getName(), i * KeyDistance, type);
                sequence.setKeyParameter(name, control->getName(), i * KeyDistance, &value);
            }
        }
    }

    SequencerResourceIntermediate sequence;
    Sequencer sequencer;
};

void play(sScene& scene)
{
    scene.sequencer.seek(0);
    scene.sequencer.play();
    for (unsigned int frame = 0; frame < FrameNum; ++frame)
        scene.sequencer.update(sFixed::One);
}

float readValue(const unsigned char* key)
{
    return readKeyValue<float>(key);
}

float getSlope(const unsigned char* decidedBy, float linear, float hermite)
{
    switch (getInterpolateType(decidedBy))
    {
    case eInterpolateType::Linear: return linear;
    case eInterpolateType::Hermite: return 0.5f * hermite;
    default: return 0.0f;
    }
}

// The same curves with nothing kept from frame to frame: the keys are searched and the segment is worked out for each
// value, which is set through its property. This stays as plain as it is.
float findValue(const sLaneRecord& lane, float time)
{
    const auto at = [&lane](unsigned int index)
    {
        return lane.key + index * lane.keyStride;
    };
    unsigned int i = 0;
    while (i + 1 < lane.keyNum && static_cast<float>(readKeyHead(at(i + 1)).frame) <= time)
        ++i;
    const float value = readValue(at(i));
    if (i + 1u == lane.keyNum)
        return value;

    const float begin = readKeyHead(at(i)).frame;
    const float end = readKeyHead(at(i + 1)).frame;
    const float t = (time - begin) / (end - begin);
    const float next = readValue(at(i + 1));
    const float d = next - value;
    if (getInterpolateType(at(i)) == eInterpolateType::Linear)
        return d * t + value;

    float m0 = 0.0f;
    if (i > 0)
        m0 = getSlope(at(i - 1), value - readValue(at(i - 1)), next - readValue(at(i - 1)));
    float m1 = 0.0f;
    if (i + 2u < lane.keyNum)
        m1 = getSlope(at(i + 1), readValue(at(i + 2)) - next, readValue(at(i + 2)) - value);
    return (-2.0f * d + m0 + m1) * t * t * t + (-2.0f * m0 + 3.0f * d - m1) * t * t + m0 * t + value;
}

void playPlainly(sScene& scene)
{
    for (unsigned int frame = 1; frame <= FrameNum; ++frame)
    {
        const float time = static_cast<float>(frame);
        for (unsigned int i = 0; i < TrackNum; ++i)
        {
            const Sequencer::sTrackData& track = scene.sequencer.getTrackArray()[i];
            for (unsigned int j = 0; j < track.laneNum; ++j)
            {
                PropertyBase* property = static_cast<PropertyControl*>(track.lane[j].control)->getProperty();
                property->setByType<float>(findValue(scene.sequence.getTrackArray()[i].lane[j], time));
            }
        }
    }
}

bench::Candidates makePlayback()
{
    auto scene = std::make_shared<sScene>();
    return {
        {"sequencer",
         [scene]
         {
             return bench::measure([&] { play(*scene); });
         }},
        {"uncached search",
         [scene]
         {
             return bench::measure([&] { playPlainly(*scene); });
         }},
    };
}

const bench::Goal Playback(12, "playback, 10k float lanes, 60 frames", 0.55, makePlayback);
}
