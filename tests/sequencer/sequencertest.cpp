#include "sequencer/sequencer.h"

#include "foundation/gpallocator.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
// Stands below a class of which the program holds one instance itself.
class TrackOfSystem : public ObjectBase
{
    REFLECTED(TrackOfSystem)
};

REFLECT(TrackOfSystem, eTypeAttribute::None, "System");

Sequencer& getNested(const Sequencer& sequencer)
{
    return *sequencer.getTrackArray()[1].object->cast<Sequencer>();
}
}

TEST(Sequencer, MovesAtTheRateOfTheSequence)
{
    const std::tuple<unsigned int, float, int> rows[] = {{60, 1, 65536},           {30, 1, 32768},   {24, 1, 26214},
                                                         {15, 0.25f, 4096},        {120, 3, 393216}, {60, 0.98f, 64225},
                                                         {25, 0.333333343f, 9102}, {0, 1, 0},        {59, 1, 64443}};
    for (const auto& [fps, rate, raw] : rows)
    {
        TestSequence sequence;
        sequence.setFPS(fps);
        TestPlayer sequencer(sequence);
        sequencer.update(rate);
        sequencer.update(std::numeric_limits<float>::infinity());
        EXPECT_EQ(sequencer.getCurrentFrame().getRaw(), raw) << fps << " " << rate;
    }
}

TEST(Sequencer, MakesObjectsForTracksAndBindsTheirLanes)
{
    GPAllocator allocator(0x10000, "Tracks", nullptr, 32, false);
    const unsigned int used = allocator.getUsedSize();
    {
        TestSequence sequence;
        sequence.addKeys<float>({{0, 1.0f}, {10, 2.0f}});
        sequence.addProbeLane("point");
        TestPlayer sequencer(sequence, &allocator);
        EXPECT_EQ(sequencer.getTrackArray()[0].lane[0].target, &sequencer.getProbe().get<float>());
        sequencer.getProbe().get<sPoint>() = {3, 4};
        sequencer.seek(5);
        EXPECT_EQ(sequencer.getProbe().get<float>(), 1.5f);
        EXPECT_EQ(sequencer.getProbe().get<sPoint>(), sPoint(3, 4)) << "a lane without keys leaves the value";
        sequencer.setResource(sequencer.getResource());
        EXPECT_EQ(sequence.getReferenceCount(), 2);
        EXPECT_EQ(SequenceProbe::sLive, 1);
        sequencer.setResource(nullptr);
        EXPECT_EQ(sequence.getReferenceCount(), 1);
        sequencer.play();
        EXPECT_FALSE(sequencer.isPlaying()) << "nothing to play";
        sequencer.setResource(&sequence);
        EXPECT_GT(allocator.getUsedSize(), used);
    }
    EXPECT_EQ(SequenceProbe::sLive, 0);
    EXPECT_EQ(allocator.getUsedSize(), used);
}

TEST(Sequencer, FollowsTheChangesOfItsResource)
{
    TestSequence sequence;
    sequence.addKeys<int>({{0, 0}, {128, 128}});
    sequence.addMarkers({{5, eMarkerType::Target}});
    TestPlayer sequencer(sequence);
    sequencer.update(sFixed(10.0f));
    EXPECT_EQ(describe(sequencer), "10 5 0 8192 1 c=1");

    const int value = 256;
    sequence.setKeyParameter("T", "s32", 128, &value);
    sequence.clearUpdate(); // as a frame that the sequencer slept through does
    EXPECT_TRUE(sequencer.isRebuildDue());
    sequencer.update(sFixed::Zero);
    EXPECT_EQ(sequencer.getProbe().get<int>(), 20);
    EXPECT_EQ(describe(sequencer), "10 10 0 8192 1 c=0") << "it plays on, the counters start over";

    sequence.setEndFrame(8);
    sequencer.update(sFixed::Zero);
    EXPECT_EQ(static_cast<int>(sequencer.getCurrentFrame()), 0) << "a head behind the end goes to the start";
    sequence.removeTrack("T");
    sequencer.seek(5);
    EXPECT_EQ(sequencer.getTrackNum(), 0u);
    EXPECT_EQ(SequenceProbe::sLive, 0);
    sequence.removeAll();
    sequencer.applySequence(sFixed::One);
    EXPECT_EQ(sequencer.getTrackArray(), nullptr);
}

TEST(Sequencer, TakesSequencersOnItsTracksAlongButNotItself)
{
    TestSequence inner;
    inner.addKeys<int>({{0, 0}, {128, 128}});
    TestSequence outer;
    for (TestSequence* sequence : {&inner, &outer})
        sequence->addTrack(Sequencer::getStaticTypeInfo(), "S");
    inner.clearUpdate();
    TestPlayer sequencer(outer);
    Sequencer& nested = getNested(sequencer);
    nested.setResource(&inner);
    nested.play();
    sequencer.update(sFixed(2.5f));
    sequencer.update(sFixed(2.5f));
    EXPECT_EQ(nested.getTrackArray()[0].object->cast<SequenceProbe>()->get<int>(), 5);
    for (ResourceBase* above : {&inner, &outer})
    {
        TraceCapture trace;
        getNested(nested).setResource(above);
        EXPECT_EQ(getNested(nested).getResource(), nullptr);
        EXPECT_EQ(trace.take(), "Sequence plays itself.\n");
    }
}

TEST(Sequencer, BindsOnlyLanesOfTheShapeOfTheirControl)
{
    TestSequence sequence;
    sequence.addKeys<int>({{0, 5}});
    auto* lane = const_cast<sLaneRecord*>(sequence.findNativeLane("T", "s32"));
    TestPlayer sequencer(sequence);
    constexpr unsigned char Rows[][3] = {{8, 1, 0}, {4, 1, 0}, {8, 0, 0}, {8, 4, 0}, {8, 1, 1}, {8, 1, 2}};
    for (const auto& [stride, components, controlType] : Rows)
    {
        lane->keyStride = stride;
        lane->keyInterpolateNum = components & 0xF;
        lane->controlType = controlType & 0xF;
        sequencer.setResource(&sequence);
        const bool fits = &stride == &Rows[0][0];
        EXPECT_EQ(sequencer.getTrackArray()[0].lane[0].control != nullptr, fits);
        EXPECT_EQ(sequencer.getProbe().get<int>(), fits ? 5 : 0);
    }
}

TEST(Sequencer, LeavesTracksEmptyWhoseClassItCannotMake)
{
    TestSequence sequence;
    sequence.addKeys<int>({{0, 5}});
    for (const char* name : {"ObjectBase", "SequencerKey", "TrackOfSystem"})
        sequence.addTrack(TypeInfo::find(name), name);
    // A document may name what has a record by now and none later.
    const_cast<sTrackRecord*>(sequence.getTrackArray())[0].objectTypeID = 12345;
    TraceCapture trace;
    TestPlayer sequencer(sequence);
    EXPECT_EQ(trace.take(), "No track may hold a TrackOfSystem.\n");
    sequencer.update(sFixed::One);
    for (unsigned int i = 0; i < sequencer.getTrackNum(); ++i)
        EXPECT_EQ(sequencer.getTrackArray()[i].object, nullptr) << i;
}
