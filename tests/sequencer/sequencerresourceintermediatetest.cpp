#include "sequencer/sequencerresourceintermediate.h"

#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "tests/sequencer/sequenceprobe.h"

#include <gtest/gtest.h>

namespace
{
using Sequence = SequencerResourceIntermediate;

constexpr eInterpolateType Linear = eInterpolateType::Linear;

// The keys of the lane with their value, and the markers with their frame.
std::string describe(const Sequence& sequence)
{
    std::string text;
    if (const SequencerLane* lane = sequence.findLane("T", "u8"))
        for (ObjectBase* key : lane->getKeyList())
            text += std::to_string(static_cast<SequencerKey*>(key)->getFrame()) +
                    *static_cast<char*>(static_cast<SequencerKey*>(key)->getParameter()) + " ";
    for (ObjectBase* marker : sequence.getMarkerList())
        text += static_cast<SequencerMarker*>(marker)->getMarkerName().c_str() +
                ("@" + std::to_string(static_cast<SequencerMarker*>(marker)->getFrame())) + " ";
    return text;
}

void setKey(Sequence& sequence, unsigned int frame, char value)
{
    sequence.addKey("T", "u8", frame, Linear);
    sequence.setKeyParameter("T", "u8", frame, &value);
}

// The records of the lane, and those of markers that count with the letter of their name.
std::string describeRecords(const Sequence& sequence)
{
    std::string text;
    if (const sLaneRecord* lane = sequence.findNativeLane("T", "u8"))
        for (const unsigned char* key = lane->key; key != lane->key + lane->keyNum * 4; key += 4)
            text += std::to_string(readKeyHead(key).frame) + static_cast<char>(key[2]) + " ";
    for (unsigned int i = 0; i < sequence.getMarkerNum(); ++i)
        text += std::to_string(sequence.getMarkerArray()[i].frame) +
                static_cast<char>(sequence.getMarkerArray()[i].count) + " ";
    return text;
}
}

// A move to an earlier place keeps tree and records in step; one to a later place overwrites the record there, and
// the record of a marker keeps its frame.
TEST(SequenceEdit, MovesWithTheAsymmetryOfTheRecords)
{
    using Row = std::tuple<unsigned int, unsigned int, const char*, const char*, const char*, const char*>;
    const Row rows[] = {
        {30, 15, "10A 15C 20B ", "10A 15C 20B ", "A@10 C@15 B@20 ", "10A 30C 20B "},
        {10, 25, "20B 25A 30C ", "10A 25A 30C ", "B@20 A@25 C@30 ", "10A 10A 30C "},
        {10, 20, "20B 20A 30C ", "10A 20A 30C ", "B@20 A@20 C@30 ", "10A 10A 30C "},
        {20, 22, "10A 22B 30C ", "10A 22B 30C ", "A@10 B@22 C@30 ", "10A 20B 30C "},
        {20, 10, "10A 10B 30C ", "10A 10B 30C ", "A@10 B@10 C@30 ", "10A 20B 30C "},
    };
    for (const auto& [from, to, keyList, keyRecords, markerList, markerRecords] : rows)
    {
        TestSequence keys;
        keys.addKeys<unsigned char>({{10, 'A'}, {20, 'B'}, {30, 'C'}});
        keys.moveKey("T", "u8", from, to);
        EXPECT_EQ(describe(keys), keyList);
        EXPECT_EQ(describeRecords(keys), keyRecords);
        EXPECT_EQ(keys.isConsistent(), std::string(keyList) == keyRecords);

        Sequence markers;
        for (const char* name : {"A", "B", "C"})
        {
            markers.addMarker(name, (static_cast<unsigned int>(*name) - 'A' + 1) * 10);
            markers.setMarkerCount(name, static_cast<unsigned int>(*name));
        }
        markers.moveMarker(markers.findMarker(from)->getMarkerName(), to);
        EXPECT_EQ(describe(markers), markerList);
        EXPECT_EQ(describeRecords(markers), markerRecords);
    }
}

TEST(SequenceEdit, ReachesACertainKeyAmongThoseOfAFrame)
{
    TestSequence sequence;
    sequence.addKeys<unsigned char>({{10, 'A'}, {20, 'B'}, {30, 'C'}});
    SequencerKey& second = *sequence.findKey("T", "u8", 20);
    sequence.moveKey("T", "u8", second, 10);
    setKey(sequence, 10, 'X');
    EXPECT_EQ(describeRecords(sequence), "10X 10B 30C ") << "by frame: the first";
    *static_cast<char*>(second.getParameter()) = 'Y';
    second.setInterpolateType(eInterpolateType::Constant);
    sequence.updateKeyParameter("T", "u8", second);
    sequence.updateKeyInterpolateType("T", "u8", second);
    EXPECT_TRUE(sequence.isConsistent());
    sequence.removeKey("T", "u8", second);
    EXPECT_EQ(describeRecords(sequence), "10X 30C ");
    EXPECT_EQ(sequence.findLane("T", "u8")->findKeyBlock(29)->getFrame(), 10u);
    EXPECT_EQ(sequence.findLane("T", "u8")->findKeyBlock(9), nullptr);
}

TEST(SequenceEdit, TellsTargetsOfJumpsByNameAndByIndex)
{
    Sequence sequence;
    for (const auto& [name, frame] : {std::pair("A", 10u), std::pair("B", 20u), std::pair("J", 30u)})
        sequence.addMarker(name, frame);
    const auto target = [&]
    {
        return sequence.findNativeMarker("J")->targetIndex;
    };
    sequence.setMarkerTargetName("J", "B");
    sequence.setMarkerType("J", eMarkerType::JumpTarget);
    EXPECT_EQ(target(), 1u);
    sequence.addMarker("first", 1);
    EXPECT_EQ(target(), 1u) << "stale until it is set again";
    sequence.setMarkerName("B", "Z");
    EXPECT_EQ(sequence.findMarker("J")->getTargetMarkerName(), "Z");
    EXPECT_EQ(target(), 2u) << "a rename sets it as well";
    sequence.addMarker("second", 2);
    EXPECT_EQ(target(), 2u) << "stale once more";
    sequence.moveMarker("Z", 29);
    EXPECT_EQ(target(), 3u);
    sequence.setMarkerTargetName("J", "nobody");
    EXPECT_EQ(target(), sMarkerRecord::NoTarget);
    EXPECT_EQ(sequence.findMarkerBlock(28)->getMarkerName(), "A");
    EXPECT_EQ(sequence.findMarkerBlock(0), nullptr);
}

// All edits but those that leave list and records apart, in any order; the other way to the records agrees each time.
TEST(SequenceEdit, AgreesWithABuildAfterEachOfManyEdits)
{
    constexpr const char* Tracks[] = {"T", "U", "V"};
    constexpr const char* Controls[] = {"bool", "u8", "f64", "rect", "vector", "fire_u32", "resource"};
    TestSequence sequence;
    TestRandom random(20);
    for (int step = 0; step < 3000; ++step)
    {
        const AutoString track = Tracks[random.below(3)];
        const AutoString control = Controls[random.below(7)];
        const unsigned int frame = random.below(40);
        const unsigned char value[16] = {static_cast<unsigned char>(random.below(2))};
        switch (random.below(16))
        {
        case 0:
            sequence.isExistTrack(track) ? void() : sequence.addTrack(SequenceProbe::getStaticTypeInfo(), track);
            break;
        case 1: random.below(4) ? void() : sequence.removeTrack(track); break;
        case 2: sequence.moveTrackForward(track); break;
        case 3: sequence.moveTrackToLast(track); break;
        case 4: sequence.addProbeLane(control.c_str(), track.c_str()); break;
        case 5: random.below(4) ? void() : sequence.removeLane(track, control); break;
        case 6: sequence.moveLaneBackward(track, control); break;
        case 7: sequence.moveLaneToFirst(track, control); break;
        case 8: sequence.removeKey(track, control, frame); break;
        case 9: sequence.setKeyParameter(track, control, frame, value); break;
        case 10:
            sequence.setKeyInterpolateType(track, control, frame, static_cast<eInterpolateType>(random.below(4)));
            break;
        case 11: sequence.moveKey(track, control, frame, random.below(frame + 1)); break;
        case 12: sequence.addMarker("M", frame); break;
        case 13: sequence.removeMarker("M"); break;
        case 14:
            sequence.setMarkerCount("M", random.below(256));
            sequence.setMarkerTargetFrame("M", frame);
            sequence.setMarkerReset("M", random.below(2) == 0);
            break;
        default: sequence.addKey(track, control, frame, static_cast<eInterpolateType>(random.below(4))); break;
        }
        ASSERT_TRUE(sequence.isConsistent()) << "after step " << step;
    }
    EXPECT_GT(sequence.getTrackNum(), 0u);
}
