#include "animation/animresource.h"
#include "io/stream.h"
#include "sequencer/sequencebuild.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencertrack.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/bytes.h"
#include "tests/support/headlessapplication.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <cstring>

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

class SequenceFileTest : public testing::Test
{
protected:
    template <typename AnyStream>
    static bool load(SequencerResource& resource, const std::string& file, const Bytes& bytes)
    {
        writeBytes(file, bytes);
        AnyStream stream(file.c_str(), FileStream::Read);
        return resource.load(stream);
    }

    bool loadNative(SequencerResource& resource, const Bytes& bytes)
    {
        return load<BinaryFileStream>(resource, mNative, bytes);
    }

    bool loadText(SequencerResource& resource, const std::string& text)
    {
        return load<TextFileStream>(resource, mText, Bytes(text.begin(), text.end()));
    }

    // The native form, of the editable one as well.
    Bytes saveNative(SequencerResource& resource)
    {
        BinaryFileStream stream(mNative.c_str(), FileStream::Write);
        EXPECT_TRUE(resource.SequencerResource::save(stream) && stream.flush());
        return readBytes(mNative);
    }

    std::string saveText(SequencerResource& resource)
    {
        TextFileStream stream(mText.c_str(), FileStream::Write);
        EXPECT_TRUE(resource.save(stream) && stream.flush());
        const Bytes bytes = readBytes(mText);
        return std::string(bytes.begin(), bytes.end());
    }

    // The document of two tracks: "T" with a lane of two keys and one of one, and "U" with nothing.
    std::string makeDocument()
    {
        TestSequence sequence;
        sequence.addKeys<int>({{4, 7}, {5, 8}});
        sequence.addKeys<unsigned char>({{6, 9}});
        sequence.addTrack(SequenceProbe::getStaticTypeInfo(), "U");
        return saveText(sequence);
    }

    HeadlessApplication mPlace;
    const std::string mNative = mPlace.getRoot() + "/native/walk.seq";
    const std::string mText = mPlace.getRoot() + "/intermediate/walk.seq.xml";
};

TEST_F(SequenceFileTest, LiesInTheFileByteByByte)
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
    EXPECT_EQ(saveNative(walk), Walk);

    SequencerResource read;
    ASSERT_TRUE(loadNative(read, Walk));
    EXPECT_TRUE(SequenceBuild::isEqual(read, walk));
    EXPECT_EQ(read.getPath(), "native/walk.seq");
    EXPECT_EQ(read.getSequenceType(), SequencerResource::eSequenceType::Animation);
    EXPECT_EQ(saveNative(read), Walk) << "what was read is written the same";
}

// Types whose text loses nothing; bool and vectors change with each save.
TEST_F(SequenceFileTest, CarriesEveryTypeOfKey)
{
    TestSequence sequence(3, 99);
    sequence.setFPS(24);
    const auto addLane = [&]<typename T>()
    {
        sequence.addKeys<T>({{4095, makeValue<T>(1)}, {2, makeValue<T>(2), eInterpolateType::Hermite}});
    };
    for (unsigned int type = 2; type <= 18; ++type)
        visitValueType(ValueTypes{}, type, addLane);
    sequence.addProbeLane("fire_void");
    sequence.addProbeLane("resource");
    sequence.addKey("T", "resource", 5, eInterpolateType::Trigger);
    Bytes native = saveNative(sequence);
    native[32] = 5;
    native.insert(native.begin() + 36, {'p', 'a', 't', 'h', 0});
    SequencerResource resource;
    ASSERT_TRUE(loadNative(resource, native));
    EXPECT_TRUE(SequenceBuild::isEqual(resource, sequence));
    EXPECT_STREQ(reinterpret_cast<const char*>(resource.getExtraData()), "path");
    EXPECT_EQ(saveNative(resource), native);

    sequence.addMarker("M", 9);
    const std::string text = saveText(sequence);
    SequencerResourceIntermediate read;
    for (int time = 0; time < 2; ++time)
    {
        ASSERT_TRUE(loadText(read, text));
        EXPECT_TRUE(SequenceBuild::isEqual(read, sequence));
        EXPECT_TRUE(read.isConsistent()) << "and markers are in no file";
        EXPECT_TRUE(read.getStartFrame() == 3 && read.getEndFrame() == 99 && read.getFPS() == 24);
        EXPECT_EQ(read.getPath(), "intermediate/walk.seq.xml");
        EXPECT_FALSE(read.isModified() || read.isUpdated());
        EXPECT_EQ(read.findKey("T", "color", 2)->getLabel(), "color");
        EXPECT_TRUE(read.findKey("T", "resource", 5)->isTriggerOnly());
        EXPECT_EQ(saveText(read), text);
    }
}

TEST_F(SequenceFileTest, RefusesWhatIsNotItsFile)
{
    const auto expectRefused = [this](const Bytes& bytes, const char* expected)
    {
        SequencerResource resource;
        TraceCapture trace;
        EXPECT_FALSE(loadNative(resource, bytes)) << bytes.size();
        EXPECT_EQ(trace.take(), expected);
        EXPECT_TRUE(resource.getPath().empty() && !resource.getTrackArray() && !resource.getMarkerArray());
    };
    for (unsigned int length = 0; length < Walk.size(); ++length)
        expectRefused(Bytes(Walk.begin(), Walk.begin() + length), "");
    // Magic, version; numbers of tracks, markers, extra bytes; class; numbers of lanes and keys; strides.
    for (const auto& [place, byte] :
         {std::pair(0, 'X'), {4, 1}, {27, 127}, {31, 127}, {35, 127}, {44, 0}, {51, 64}, {61, 127}, {62, 16}, {62, 0}})
    {
        Bytes bytes = Walk;
        bytes[static_cast<unsigned int>(place)] = static_cast<unsigned char>(byte);
        expectRefused(bytes, place == 44 ? "Object not found.\n" : "");
    }

    const std::string good = makeDocument();
    std::string foreign = good;
    for (std::size_t place; (place = foreign.find("SequencerResourceIntermediate")) != std::string::npos;)
        foreign.replace(place, 29, "AnimResource");
    for (const std::string& text : {std::string(), foreign, good.substr(0, good.size() / 2), good + "<a b=\"c d\" />"})
    {
        TestSequence sequence;
        TraceCapture trace;
        EXPECT_FALSE(loadText(sequence, text)) << text;
        EXPECT_TRUE(sequence.getTrackNum() == 0 && sequence.getPath().empty());
    }
}

TEST_F(SequenceFileTest, ThrowsOutWhatDoesNotBelongWhereItStands)
{
    // One text in the place of another, and the keys that are left in the lanes of each track.
    const char* const rows[][4] = {
        {"", "", "", "T 2 1 U "},
        {R"(list_count="2")", R"(list_count="3")", "Null SequencerTrack detected.\n", "T 2 1 U "},
        {R"("SequencerTrack" id="12")", R"("nobody" id="12")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="12")", R"("SequencerTrack" id="3")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="12")", R"("SequencerTrack" id="9")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="3")", R"("SequencerResourceIntermediate" id="3")", "Null SequencerTrack", "U "},
        {R"(value="583912042")", R"(value="5")", "Invalid typeinfo detected.\n", "U "},
        {R"("SequencerLane" id="5")", R"("SequencerTrack" id="5")", "Null SequencerLane detected.\n", "T 1 U "},
        {R"(value="s32")", R"(walue="s32")", "Nameless SequencerLane detected.\n", "T 1 U "},
        {R"(value="u8")", R"(value="s32")", "Second SequencerLane s32 detected.\n", "T 2 U "},
        {R"("SequencerLane" id="9")", R"("SequencerLane" id="5")", "Null SequencerLane detected.\n", "T 2 U "},
        {R"("SequencerLane" id="9")", R"("SequencerLane" id="7")", "Null SequencerLane detected.\n", "T 2 U "},
        {R"(<key_type type="u32" count="0" index="0" value="4")",
         R"(<key_type type="u32" count="0" index="0" value="21")", "Null SequencerKey detected.\n", "T 0 1 U "},
        {R"("SequencerUniqueKey<s32>" id="8")", R"("SequencerUniqueKey<u8>" id="8")", "Null SequencerKey", "T 1 1 U "},
        {R"("SequencerUniqueKey<u8>" id="11")", R"("SequencerUniqueKey<u8>" id="7")", "Null SequencerKey", "T 2 0 U "},
        {R"(value="U")", R"(value="T")", "SequencerTrack renamed to Track0.\n", "T 2 1 Track0 "},
        {R"(value="T")", R"(walue="T")", "SequencerTrack renamed to Track0.\n", "Track0 2 1 U "},
        {R"(<key_stride type="u32" count="0" index="0" value="8")",
         R"(<key_stride type="u32" count="0" index="0" value="3")", "", "T 2 1 U "},
    };
    const std::string good = makeDocument();
    for (const auto& [from, to, trace, left] : rows)
    {
        std::string text = good;
        ASSERT_NE(text.find(from), std::string::npos) << from;
        text.replace(text.find(from), std::strlen(from), to);
        SequencerResourceIntermediate sequence;
        TraceCapture traces;
        EXPECT_TRUE(loadText(sequence, text)) << to;
        EXPECT_NE(traces.take().find(trace), std::string::npos) << to;
        EXPECT_TRUE(sequence.isConsistent()) << to;
        std::string found;
        for (ObjectBase* track : sequence.getTrackList())
        {
            found += static_cast<SequencerTrack*>(track)->getTrackName().c_str() + std::string(" ");
            for (ObjectBase* lane : static_cast<SequencerTrack*>(track)->getLaneList())
                found += std::to_string(static_cast<SequencerLane*>(lane)->getKeyList().size()) + " ";
        }
        EXPECT_EQ(found, left) << to;
        const sLaneRecord* lane = sequence.findNativeLane("T", "s32");
        EXPECT_TRUE(!lane || lane->keyStride == (lane->keyNum ? 8 : 0)) << "the table's and not the file's";
    }
}

TEST_F(SequenceFileTest, TwoLanesOfOneNameBecomeOneThatHasAllKeys)
{
    TestSequence sequence;
    sequence.addKeys<int>({{4, 7}, {6, 8}});
    sequence.addKeys<short>({{5, 9}, {6, 1}, {9, 2}});
    std::string text = saveText(sequence);
    for (const auto& [from, to] :
         {std::pair(R"("s16")", R"("s32")"), {"<s16>", "<s32>"}, {R"(value="3")", R"(value="4")"}})
        for (std::size_t place; (place = text.find(from)) != std::string::npos;)
            text.replace(place, std::strlen(from), to);
    SequencerResourceIntermediate read;
    const TraceCapture silence;
    ASSERT_TRUE(loadText(read, text) && read.isConsistent());
    const ObjectList& lanes = read.findTrack("T")->getLaneList();
    ASSERT_EQ(lanes.size(), 1u);
    std::string frames;
    for (ObjectBase* key : static_cast<SequencerLane*>(*lanes.begin())->getKeyList())
        frames += std::to_string(static_cast<SequencerKey*>(key)->getFrame());
    EXPECT_EQ(frames, "45669");
}

// Nothing in a file leads outside: it is refused, or taken whole and can be played.
TEST_F(SequenceFileTest, SurvivesDamagedFiles)
{
    const std::string good = makeDocument();
    TestRandom random(11);
    unsigned int taken = 0;
    TraceCapture trace;
    for (int round = 0; round < 500; ++round)
    {
        // A digit for another character keeps the grammar more often than not.
        Bytes bytes = Walk;
        std::string text = good.substr(0, random() % 8 ? good.size() : random() % good.size());
        for (unsigned int i = 0; i < 1 + random() % 3; ++i)
        {
            bytes[8 + random() % (bytes.size() - 8)] ^= static_cast<unsigned char>(1u << random() % 8);
            text[random() % text.size()] = static_cast<char>('0' + random() % (random() % 4 ? 10 : 16));
        }
        SequencerResource native;
        SequencerResourceIntermediate document;
        for (const auto& [resource, loaded] : {std::pair<SequencerResource*, bool>(&native, loadNative(native, bytes)),
                                               {&document, loadText(document, text)}})
        {
            if (!loaded)
                continue;
            ++taken;
            TestPlayer sequencer(*resource);
            for (int i = 0; i < 4; ++i)
                sequencer.update(sFixed(17.5f));
        }
        ASSERT_TRUE(document.isConsistent());
    }
    EXPECT_GT(taken, 200u);
}
