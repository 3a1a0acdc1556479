#include "animation/animresource.h"
#include "io/stream.h"
#include "sequencer/sequencebuild.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/bytes.h"
#include "tests/support/headlessapplication.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

namespace
{
// A walk of one cell: from (-3, 4) on frame 0 in a line to (100, 50) on frame 60, with one marker.
const Bytes Walk = {
    0x53, 0x45, 0x51, 0x20, 0,    0,    0, 0, 1, 0, 0,    0, 0,    0,    0,    0,    0x3c, 0, 0,    0,    0x1e, 0,
    0,    0,    1,    0,    0,    0,    1, 0, 0, 0, 0,    0, 0,    0,    0xe8, 0x03, 0x28, 0, 0xff, 0xff, 0x82, 0x03,
    0xe8, 0x2b, 0x32, 0x9e, 1,    0,    0, 0, 0, 0, 0,    0, 0xdc, 0x27, 0x08, 0x2d, 2,    0, 0x0c, 2,    0,    0x10,
    0,    0,    0xfd, 0xff, 0xff, 0xff, 4, 0, 0, 0, 0x3c, 0, 0,    0,    0x64, 0,    0,    0, 0x32, 0,    0,    0,
};
}

class NativeSequenceTest : public testing::Test
{
protected:
    std::string getFile() const { return mPlace.getRoot() + "/native/walk.seq"; }

    bool load(SequencerResource& resource, const Bytes& bytes)
    {
        writeBytes(getFile(), bytes);
        BinaryFileStream stream(getFile().c_str(), FileStream::Read);
        return resource.load(stream);
    }

    // The native form, of the editable one as well.
    Bytes save(SequencerResource& resource)
    {
        {
            BinaryFileStream stream(getFile().c_str(), FileStream::Write);
            EXPECT_TRUE(resource.SequencerResource::save(stream));
        }
        return readBytes(getFile());
    }

    HeadlessApplication mPlace;
};

TEST_F(NativeSequenceTest, LiesInTheFileByteByByte)
{
    AnimResource walk;
    walk.setEndFrame(60);
    walk.setFPS(30);
    walk.addMarker("M", 1000);
    walk.setMarkerType("M", eMarkerType::JumpFrame);
    walk.setMarkerCount("M", 3);
    walk.setMarkerReset("M", true);
    walk.setMarkerTargetFrame("M", 40);
    walk.setMarkerTargetName("M", "nobody");
    walk.addTrack(TypeInfo::find("AnimCell"), "T");
    sPoint position(-3, 4);
    const PropertyControl control(new ReferenceProperty<sPoint>("Position", &position));
    walk.addLane("T", &control);
    walk.addKey("T", "Position", 0, eInterpolateType::Linear);
    walk.addKey("T", "Position", 60, eInterpolateType::Constant);
    walk.setKeyParameter("T", "Position", 0, &position);
    position = {100, 50};
    walk.setKeyParameter("T", "Position", 60, &position);
    EXPECT_EQ(save(walk), Walk);

    SequencerResource read;
    ASSERT_TRUE(load(read, Walk));
    EXPECT_TRUE(SequenceBuild::isEqual(read, walk));
    EXPECT_EQ(read.getPath(), "native/walk.seq");
    EXPECT_EQ(read.getSequenceType(), SequencerResource::eSequenceType::Animation);
    EXPECT_EQ(save(read), Walk) << "what was read is written the same";
    ASSERT_TRUE(load(read, Walk)) << "a second time, over the first";
    EXPECT_EQ(read.getTrackNum(), 1u);
}

TEST_F(NativeSequenceTest, CarriesEveryTypeOfKeyAndTheExtraBlock)
{
    TestSequence sequence;
    const auto addLane = [&]<typename T>()
    {
        sequence.addKeys<T>({{1, makeValue<T>(1)}, {2, makeValue<T>(2), eInterpolateType::Hermite}});
    };
    for (unsigned int type = 1; type <= 19; ++type)
        visitValueType(ValueTypes{}, type, addLane);
    sequence.addProbeLane("fire_void");
    sequence.addProbeLane("resource");
    sequence.addKey("T", "resource", 5, eInterpolateType::Trigger);
    const Bytes bytes = save(sequence);
    SequencerResource read;
    ASSERT_TRUE(load(read, bytes));
    EXPECT_TRUE(SequenceBuild::isEqual(read, sequence));

    Bytes extra = bytes;
    extra[32] = 5;
    extra.insert(extra.begin() + 36, {'p', 'a', 't', 'h', 0});
    ASSERT_TRUE(load(read, extra));
    EXPECT_EQ(read.getExtraSize(), 5u);
    EXPECT_STREQ(reinterpret_cast<const char*>(read.getExtraData()), "path");
    EXPECT_EQ(save(read), extra);
}

TEST_F(NativeSequenceTest, RefusesWhatIsCutOrNoSequence)
{
    for (unsigned int length = 0; length < Walk.size(); ++length)
    {
        SequencerResource resource;
        EXPECT_FALSE(load(resource, Bytes(Walk.begin(), Walk.begin() + length))) << length;
        EXPECT_TRUE(resource.getPath().empty() && !resource.getTrackArray() && !resource.getMarkerArray());
    }

    const struct
    {
        const char* what;
        unsigned int place;
        unsigned char byte;
        const char* trace;
    } rows[] = {
        {"magic", 0, 'X', ""},           {"version", 4, 1, ""},        {"track number", 27, 0x7F, ""},
        {"marker number", 31, 0xFF, ""}, {"extra size", 35, 0xFF, ""}, {"class", 44, 0, "Object not found.\n"},
        {"lane number", 51, 0x40, ""},   {"key number", 61, 0xFF, ""}, {"stride", 62, 16, ""},
        {"no stride", 62, 0, ""},
    };
    for (const auto& row : rows)
    {
        Bytes bytes = Walk;
        bytes[row.place] = row.byte;
        SequencerResource resource;
        TraceCapture trace;
        EXPECT_FALSE(load(resource, bytes)) << row.what;
        EXPECT_EQ(trace.take(), row.trace) << row.what;
        EXPECT_EQ(resource.getTrackNum(), 0u);
    }
}

// Whatever is taken is played: nothing in a file leads outside.
TEST_F(NativeSequenceTest, SurvivesFlippedBits)
{
    TestRandom random(3);
    unsigned int taken = 0;
    TraceCapture trace;
    for (int round = 0; round < 600; ++round)
    {
        Bytes bytes = Walk;
        for (unsigned int i = 0; i < 1 + random() % 4; ++i)
            bytes[8 + random() % (bytes.size() - 8)] ^= static_cast<unsigned char>(1u << random() % 8);
        SequencerResource resource;
        if (!load(resource, bytes))
            continue;
        ++taken;
        Sequencer sequencer;
        sequencer.setResource(&resource);
        sequencer.play();
        for (int i = 0; i < 4; ++i)
            sequencer.update(sFixed(17.5f));
    }
    EXPECT_GT(taken, 100u);
}
