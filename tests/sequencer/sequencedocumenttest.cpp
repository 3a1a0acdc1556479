#include "io/documentwriter.h"
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

class SequenceDocumentTest : public testing::Test
{
protected:
    bool read(SequencerResource& resource)
    {
        TextFileStream stream(mFile.c_str(), FileStream::Read);
        return resource.load(stream);
    }

    bool load(SequencerResource& resource, const std::string& text)
    {
        writeBytes(mFile, Bytes(text.begin(), text.end()));
        return read(resource);
    }

    std::string save(SequencerResource& resource)
    {
        {
            TextFileStream stream(mFile.c_str(), FileStream::Write);
            EXPECT_TRUE(resource.save(stream));
        }
        const Bytes bytes = readBytes(mFile);
        return std::string(bytes.begin(), bytes.end());
    }

    // The document of two tracks: "T" with a lane of two keys and one of one, and "U" with nothing.
    std::string makeDocument()
    {
        TestSequence sequence;
        sequence.addKeys<int>({{4, 7}, {5, 8}});
        sequence.addKeys<unsigned char>({{6, 9}});
        sequence.addTrack(SequenceProbe::getStaticTypeInfo(), "U");
        return save(sequence);
    }

    HeadlessApplication mPlace;
    const std::string mFile = mPlace.getRoot() + "/intermediate/walk.seq.xml";
    SequencerResourceIntermediate mRead;
};

// Types whose text loses nothing; bool and vectors change with each save.
TEST_F(SequenceDocumentTest, ComesBackAsItWasSaved)
{
    TestSequence sequence(3, 99);
    sequence.setFPS(24);
    const auto addLane = [&]<typename T>()
    {
        sequence.addKeys<T>({{4095, makeValue<T>(1)}, {2, makeValue<T>(2), eInterpolateType::Hermite}});
    };
    for (unsigned int type = 2; type <= 18; ++type)
        visitValueType(ValueTypes{}, type, addLane);
    sequence.addProbeLane("fire_u32");
    sequence.addProbeLane("resource");
    sequence.addKey("T", "resource", 5, eInterpolateType::Trigger);
    sequence.addTrack(TypeInfo::find("AnimCell"), "empty");
    sequence.addMarker("M", 9);

    const std::string first = save(sequence);
    ASSERT_TRUE(read(mRead));
    EXPECT_TRUE(SequenceBuild::isEqual(mRead, sequence));
    EXPECT_TRUE(mRead.isConsistent()) << "and markers are in no file";
    EXPECT_TRUE(mRead.getStartFrame() == 3 && mRead.getEndFrame() == 99 && mRead.getFPS() == 24);
    EXPECT_EQ(mRead.getPath(), "intermediate/walk.seq.xml");
    EXPECT_FALSE(mRead.isModified() || mRead.isUpdated());
    EXPECT_EQ(mRead.findKey("T", "color", 2)->getLabel(), "color");
    EXPECT_TRUE(mRead.findKey("T", "resource", 5)->isTriggerOnly());
    EXPECT_EQ(save(mRead), first);
    ASSERT_TRUE(read(mRead)) << "a second time, over the first";
    EXPECT_TRUE(SequenceBuild::isEqual(mRead, sequence));
}

TEST_F(SequenceDocumentTest, RefusesWhatIsNotItsDocument)
{
    const std::string good = makeDocument();
    std::string foreign = good;
    while (foreign.find("SequencerResourceIntermediate") != std::string::npos)
        foreign.replace(foreign.find("SequencerResourceIntermediate"), 29, "AnimResource");
    for (const std::string& text : {std::string(), foreign, good.substr(0, good.size() / 2), good + "<a b=\"c d\" />"})
    {
        TestSequence sequence;
        TraceCapture trace;
        EXPECT_FALSE(load(sequence, text)) << text;
        EXPECT_TRUE(sequence.getTrackNum() == 0 && sequence.getPath().empty());
    }
}

TEST_F(SequenceDocumentTest, ThrowsOutWhatDoesNotBelongWhereItStands)
{
    // One text in the place of another, and the keys that are left in the lanes of each track.
    const struct
    {
        const char* from;
        const char* to;
        const char* trace;
        const char* left;
    } rows[] = {
        {"", "", "", "T 2 1 U "},
        {R"(list_count="2")", R"(list_count="3")", "Null SequencerTrack detected.\n", "T 2 1 U "},
        {R"("SequencerTrack" id="12")", R"("nobody" id="12")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="12")", R"("AnimResource" id="12")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="12")", R"("SequencerTrack" id="3")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="12")", R"("SequencerTrack" id="9")", "Null SequencerTrack detected.\n", "T 2 1 "},
        {R"("SequencerTrack" id="3")", R"("SequencerLane" id="3")", "Null SequencerTrack detected.\n", "U "},
        {R"("SequencerTrack" id="3")", R"("SequencerResourceIntermediate" id="3")", "Null SequencerTrack", "U "},
        {R"(value="583912042")", R"(value="5")", "Invalid typeinfo detected.\n", "U "},
        {R"("SequencerLane" id="5")", R"("SequencerTrack" id="5")", "Null SequencerLane detected.\n", "T 1 U "},
        {R"(value="s32")", R"(walue="s32")", "Nameless SequencerLane detected.\n", "T 1 U "},
        {R"("SequencerLane" id="9")", R"("SequencerLane" id="5")", "Null SequencerLane detected.\n", "T 2 U "},
        {R"("SequencerLane" id="9")", R"("SequencerLane" id="7")", "Null SequencerLane detected.\n", "T 2 U "},
        {R"(<key_type type="u32" count="0" index="0" value="4")",
         R"(<key_type type="u32" count="0" index="0" value="21")", "Null SequencerKey detected.\n", "T 0 1 U "},
        {R"("SequencerUniqueKey<s32>" id="8")", R"("SequencerUniqueKey<u8>" id="8")", "Null SequencerKey", "T 1 1 U "},
        {R"("SequencerUniqueKey<u8>" id="11")", R"("SequencerUniqueKey<u8>" id="7")", "Null SequencerKey", "T 2 0 U "},
        {R"("SequencerUniqueKey<u8>" id="11")", R"("SequencerUniqueKey<u8>" id="3")", "Null SequencerKey", "T 2 0 U "},
        {R"(value="U")", R"(value="T")", "SequencerTrack renamed to Track0.\n", "T 2 1 Track0 "},
        {R"(value="T")", R"(walue="T")", "SequencerTrack renamed to Track0.\n", "Track0 2 1 U "},
        {R"(<key_stride type="u32" count="0" index="0" value="8")",
         R"(<key_stride type="u32" count="0" index="0" value="3")", "", "T 2 1 U "},
    };
    const std::string good = makeDocument();
    for (const auto& row : rows)
    {
        std::string text = good;
        ASSERT_NE(text.find(row.from), std::string::npos) << row.from;
        text.replace(text.find(row.from), std::strlen(row.from), row.to);
        SequencerResourceIntermediate sequence;
        TraceCapture trace;
        EXPECT_TRUE(load(sequence, text)) << row.to;
        const std::string traced = trace.take();
        EXPECT_NE(traced.find(row.trace), std::string::npos) << row.to << ": " << traced;
        EXPECT_TRUE(sequence.isConsistent()) << row.to;
        std::string left;
        for (ObjectBase* track : sequence.getTrackList())
        {
            left += static_cast<SequencerTrack*>(track)->getTrackName().c_str() + std::string(" ");
            for (ObjectBase* lane : static_cast<SequencerTrack*>(track)->getLaneList())
                left += std::to_string(static_cast<SequencerLane*>(lane)->getKeyList().size()) + " ";
        }
        EXPECT_EQ(left, row.left) << row.to;
        const sLaneRecord* lane = sequence.findNativeLane("T", "s32");
        EXPECT_TRUE(!lane || lane->keyStride == (lane->keyNum ? 8 : 0)) << "the table's and not the file's";
    }
}

// What the grammar lets pass is taken or refused, and what is taken is whole and can be played.
TEST_F(SequenceDocumentTest, SurvivesDamagedDocuments)
{
    const std::string good = makeDocument();
    TestRandom random(11);
    unsigned int taken = 0;
    TraceCapture trace;
    for (int round = 0; round < 500; ++round)
    {
        // A digit for another character keeps the grammar more often than not.
        std::string text = good.substr(0, random() % 8 ? good.size() : random() % good.size());
        for (unsigned int i = 0; i < 1 + random() % 3; ++i)
            text[random() % text.size()] = static_cast<char>('0' + random() % (random() % 4 ? 10 : 16));
        SequencerResourceIntermediate damaged;
        if (!load(damaged, text))
            continue;
        ++taken;
        ASSERT_TRUE(damaged.isConsistent());
        TestPlayer sequencer(damaged);
        sequencer.update(sFixed(7.5f));
    }
    EXPECT_GT(taken, 50u);
}

TEST_F(SequenceDocumentTest, HoldsASequenceOfTwelveThousandKeys)
{
    TestSequence sequence;
    for (unsigned int i = 0; i < 60; ++i)
    {
        const AutoString name = ("Track" + std::to_string(i)).c_str();
        sequence.addTrack(SequenceProbe::getStaticTypeInfo(), name);
        for (const char* control : {"s32", "point", "color", "f32", "rect"})
        {
            sequence.addProbeLane(control, name.c_str());
            for (unsigned int frame = 0; frame < 40; ++frame)
                sequence.addKey(name, control, frame, eInterpolateType::Linear);
        }
    }
    ASSERT_TRUE(DocumentWriter::write(&sequence, mFile.c_str(), DocumentWriter::ePrevious::Keep));
    ASSERT_TRUE(read(mRead));
    EXPECT_TRUE(SequenceBuild::isEqual(mRead, sequence));
}
