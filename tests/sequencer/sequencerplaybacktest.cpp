#include "sequencer/sequencer.h"

#include "tests/sequencer/sequenceprobe.h"

#include <gtest/gtest.h>

namespace
{
constexpr eMarkerType JumpTarget = eMarkerType::JumpTarget;
constexpr eMarkerType JumpFrame = eMarkerType::JumpFrame;
constexpr eInterpolateType Trigger = eInterpolateType::Trigger;

using Lines = std::vector<std::string>;
using Markers = std::vector<sTestMarker>;
}

class PlaybackTest : public testing::Test
{
protected:
    // A sequence with these markers, and its state after each of `updateNum` steps.
    static Lines run(const Markers& markers, float delta, int updateNum, unsigned int end = 4095, unsigned int head = 0)
    {
        TestSequence sequence(0, end);
        sequence.addMarkers(markers);
        TestPlayer sequencer(sequence);
        sequencer.seek(head);
        Lines lines;
        for (int i = 0; i < updateNum; ++i)
        {
            sequencer.update(sFixed(delta));
            lines.push_back(describe(sequencer));
        }
        return lines;
    }

    // Keys that fire their own frame.
    static void addTriggers(TestSequence& sequence, const std::vector<unsigned int>& frames)
    {
        sequence.addProbeLane("fire_u32");
        for (unsigned int frame : frames)
        {
            sequence.addKey("T", "fire_u32", frame, Trigger);
            sequence.setKeyParameter("T", "fire_u32", frame, &frame);
        }
    }

    // What the triggers of `frames` do in each of the first updates; the first entry is what setting the resource does.
    static Lines fire(const std::vector<unsigned int>& frames, float delta, int updateNum, unsigned int head = 0)
    {
        TestSequence sequence;
        addTriggers(sequence, frames);
        TestPlayer sequencer(sequence);
        Lines fired = {sequencer.getProbe().takeFired()};
        if (head)
            sequencer.seekWithoutApplySequence(head);
        for (int i = 0; i < updateNum; ++i)
        {
            sequencer.update(sFixed(delta));
            fired.push_back(sequencer.getProbe().takeFired());
        }
        return fired;
    }
};

TEST_F(PlaybackTest, JumpsAsOftenAsAMarkerCounts)
{
    EXPECT_EQ(run({{10, JumpFrame, 4, 2}}, 3, 10, 20),
              (Lines{"3 0 -1 10 1 c=0", "6 3 -1 10 1 c=0", "9 6 -1 10 1 c=0", "6 4 -1 10 1 c=1", "9 6 -1 10 1 c=1",
                     "6 4 -1 10 1 c=2", "9 6 -1 10 1 c=2", "12 10 0 8192 1 c=2", "15 12 0 8192 1 c=2",
                     "18 15 0 8192 1 c=2"}));
    EXPECT_EQ(run({{10, JumpFrame, 4, 2, true}}, 3, 8, 20).back(), "12 10 0 8192 1 c=0")
        << "passed once, then it starts over";
    EXPECT_EQ(run({{10, JumpFrame, 9, 0}}, 1, 300, 4095, 9).back(), "9 9 -1 10 1 c=44") << "it wraps without limit";
    EXPECT_EQ(run({{10, JumpFrame, 9, 255}}, 1, 257, 4095, 9).back(), "11 10 0 8192 1 c=255");
}

TEST_F(PlaybackTest, KeepsWhatAJumpLeavesOfTheStep)
{
    EXPECT_EQ(run({{5}, {12, JumpTarget, 0}}, 4.5f, 4),
              (Lines{"4.5 0 -1 5 1 c=0,0", "9 5 0 12 1 c=1,0", "6.5 5 0 12 1 c=1,1", "11 6.5 0 12 1 c=1,1"}));
    EXPECT_EQ(run({{5}, {12, JumpTarget, sMarkerRecord::NoTarget}}, 4.5f, 3).back(), "13.5 12 1 8192 1 c=1,1")
        << "a target that is nowhere is ignored";
    EXPECT_EQ(run({{10, JumpFrame, 7}}, 11, 1, 4095, 8), Lines{"7 7 -1 10 1 c=4"}) << "four jumps in one step";
}

TEST_F(PlaybackTest, TakesMarkersOfOneFrameTogether)
{
    EXPECT_EQ(run({{10, JumpFrame, 10}}, 6, 3), (Lines{"6 0 -1 10 1 c=0", "12 10 0 8192 1 c=1", "18 12 0 8192 1 c=1"}));
    EXPECT_EQ(run({{10}, {10}}, 6, 2), (Lines{"6 0 -1 10 1 c=0,0", "12 10 1 8192 1 c=0,1"})) << "from none: the last";
    EXPECT_EQ(run({{4}, {10}, {10}}, 6, 2), (Lines{"6 4 0 10 1 c=1,0,0", "12 10 2 8192 1 c=1,1,1"}))
        << "from another: each";
    EXPECT_EQ(run({{0, JumpFrame, 30}}, 6, 1), Lines{"6 0 0 8192 1 c=0"}) << "on the start it is passed already";
}

TEST_F(PlaybackTest, LoopsByMarkersUpToOneBehindTheEnd)
{
    EXPECT_EQ(run({{30, JumpFrame, 0}}, 1, 100, 30).back(), "10 9 -1 30 1 c=3");
    EXPECT_EQ(run({{30, JumpFrame, 0}}, 0.5f, 100, 30).back(), "20 19.5 -1 30 1 c=1");
    EXPECT_EQ(run({{31, JumpFrame, 0}}, 1, 100, 30).back(), "7 6 -1 31 1 c=3");
    EXPECT_EQ(run({{31, JumpFrame, 0}}, 0.5f, 61, 30).back(), "30 30 -1 31 0 c=0");
}

TEST_F(PlaybackTest, StopsOnceTheHeadIsBeyondTheEnd)
{
    EXPECT_EQ(run({}, 4, 3, 10), (Lines{"4 0 -1 0 1", "8 4 -1 0 1", "10 8 -1 0 0"}));
    EXPECT_EQ(run({}, 4, 2, 8).back(), "8 4 -1 0 1") << "the end is played";
    EXPECT_EQ(run({}, 1.0f / 65536, 1, 8, 8).back(), "8 8 -1 0 0");
}

TEST_F(PlaybackTest, LimitsTheHeadAndItsSteps)
{
    EXPECT_EQ(run({{10}}, 6, 3, 9000, 8190).back(), "8191 8190 0 8192 0 c=0");
    EXPECT_EQ(run({{10}}, 30000, 1).back(), "4095 10 0 8192 0 c=1");
    EXPECT_EQ(run({{10}}, -5, 1).back(), "0 0 -1 10 1 c=0");

    TestSequence sequence(10, 50);
    TestPlayer sequencer(sequence);
    for (const auto& [frame, head] :
         {std::pair(5u, 10), std::pair(60u, 50), std::pair(0xFFFFFFFFu, 50), std::pair(33u, 33)})
    {
        sequencer.seek(frame);
        EXPECT_EQ(static_cast<int>(sequencer.getCurrentFrame()), head);
        EXPECT_EQ(sequencer.getPreviousFrame(), sequencer.getCurrentFrame());
    }

    TestSequence reversed(100, 50);
    sequencer.setResource(&reversed);
    sequencer.play();
    sequencer.update(sFixed::One);
    EXPECT_EQ(describe(sequencer), "50 100 -1 0 0");
}

// Out of order, at any frame, with any jumps: markers before the head are stepped over.
TEST_F(PlaybackTest, EndsEachStepWhateverTheMarkers)
{
    EXPECT_EQ(run({{10}, {50}, {20, JumpFrame, 40}}, 2, 1, 4095, 49), Lines{"51 50 1 8192 1 c=0,1,0"});
    TestRandom random(7);
    for (int round = 0; round < 2000; ++round)
    {
        TestSequence sequence(0, 60);
        Markers markers(1 + random.below(6));
        for (sTestMarker& marker : markers)
            marker = {random.below(60), static_cast<eMarkerType>(random.below(4)), random.below(60), random.below(3),
                      random.below(2) == 0};
        sequence.addMarkers(markers);
        TestPlayer sequencer(sequence);
        for (int i = 0; i < 6; ++i)
        {
            sequencer.update(sFixed(static_cast<int>(random.below(6 << 16)), 0));
            ASSERT_LE(static_cast<int>(sequencer.getCurrentFrame()), 60);
        }
    }
}

TEST_F(PlaybackTest, FiresTriggersAheadUntilTheHeadIsThere)
{
    EXPECT_EQ(fire({3, 6}, 1, 8), (Lines{"3 ", "3 ", "3 ", "3 ", "6 ", "", "6 ", "", ""}));
    EXPECT_EQ(fire({3}, 1, 5), (Lines{"3 ", "3 ", "3 ", "", "", ""})) << "a sole key not on its own frame";
    EXPECT_EQ(fire({3, 12}, 1, 13),
              (Lines{"3 ", "3 ", "3 ", "3 ", "12 ", "", "12 ", "", "12 ", "", "12 ", "", "12 ", ""}));
    EXPECT_EQ(fire({3, 6}, 2.5f, 4), (Lines{"3 ", "3 ", "6 ", "", ""}));
    EXPECT_EQ(fire({3, 6}, 0.4f, 4, 2), (Lines{"3 ", "3 ", "3 ", "", ""}));

    TestSequence sequence;
    addTriggers(sequence, {3, 6});
    TestPlayer sequencer(sequence);
    sequencer.getProbe().takeFired();
    Lines sought;
    for (unsigned int frame : {2u, 3u, 4u, 6u, 7u})
    {
        sequencer.seek(frame);
        sought.push_back(sequencer.getProbe().takeFired());
    }
    EXPECT_EQ(sought, (Lines{"3 ", "3 ", "", "6 ", ""}));
}

TEST_F(PlaybackTest, GoesOnByOneKeyAtLeast)
{
    TestSequence sequence;
    sequence.addKeys<int>({{5, 50, eInterpolateType::Constant}, {100, 7, eInterpolateType::Constant}});
    TestPlayer sequencer(sequence);
    EXPECT_EQ(sequencer.getProbe().get<int>(), 50) << "before the first key its value holds";
    sequencer.applySequence(10.0f);
    EXPECT_EQ(sequencer.getProbe().get<int>(), 7) << "the step over the first key leads to the second";
    sequencer.seek(10);
    EXPECT_EQ(sequencer.getProbe().get<int>(), 50);
    sequencer.seek(4000);
    EXPECT_EQ(sequencer.getProbe().get<int>(), 7) << "the last key holds";
}
