#include "io/stream.h"

#include "tests/support/temporarydirectory.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
class StreamTest : public testing::Test
{
protected:
    TemporaryDirectory mDirectory;
};

TEST_F(StreamTest, OnlyATextStreamShowsThatItDidNotOpen)
{
    // A directory opens on some systems, and then claims to be endless.
    for (const std::string& path : {mDirectory / "missing", mDirectory.getPath()})
    {
        TraceCapture traces;
        TextFileStream text(path.c_str(), FileStream::Read);
        EXPECT_TRUE(text.eof());
        EXPECT_EQ(traces.take().rfind("File open error.\n", 0), 0u);
        char buffer[1024] = "x";
        EXPECT_EQ(text.read(buffer, 4) + text.read(buffer, 0) + text.peek(buffer, 4), 0u);
        EXPECT_EQ(text.getChar(), -1);
        EXPECT_EQ(text.write("x", 1), 0u);
        EXPECT_FALSE(text.flush());

        TraceCapture silence;
        BinaryFileStream binary(path.c_str(), FileStream::Read);
        EXPECT_EQ(silence.take(), "");
        EXPECT_FALSE(binary.eof());
        EXPECT_EQ(binary.getLength(), 0u);
        EXPECT_EQ(binary.read(buffer, 4), 0u);
        EXPECT_EQ(binary.seek(1, 0), 0);
    }
}

TEST_F(StreamTest, SeekAndLengthAgreeAboutThePlace)
{
    BinaryFileStream stream((mDirectory / "file").c_str(), FileStream::ReadWrite);
    EXPECT_EQ(stream.getType(), 6u);
    EXPECT_EQ(stream.write("0123456789", 10), 10u);

    struct sRow
    {
        int offset;
        unsigned int origin;
        char expected;
    };
    for (const sRow& row : {sRow{3, 0, '3'}, sRow{2, 1, '6'}, sRow{-1, 2, '9'}, sRow{0, 0, '0'}, sRow{5, 3, '1'}})
    {
        EXPECT_EQ(stream.seek(row.offset, row.origin), 0);
        EXPECT_EQ(stream.getLength(), 10u) << "the place stays";
        char c = 0;
        EXPECT_EQ(stream.read(&c, 1), 1u);
        EXPECT_EQ(c, row.expected) << row.offset << " from " << row.origin;
    }
}

TEST_F(StreamTest, TheEndFlagStaysWhateverMovesBehindIt)
{
    TextFileStream stream(mDirectory.write("file", "ab").c_str(), FileStream::Read);
    EXPECT_EQ(stream.getType(), 5u);
    EXPECT_EQ(stream.getChar(), 'a');
    stream.backforward();
    EXPECT_EQ(stream.getChar(), 'a');
    EXPECT_EQ(stream.getRest(), 1u);
    char buffer[4];
    EXPECT_EQ(stream.peek(buffer, 4), 1u);
    EXPECT_FALSE(stream.eof()) << "looking ahead sets no flag";
    EXPECT_EQ(stream.getChar(), 'b');
    EXPECT_EQ(stream.getChar(), -1);
    stream.backforward();
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.getChar(), -1);
    EXPECT_EQ(stream.getRest(), 0u);
}

TEST_F(StreamTest, AByteOfAllOnesEndsTheText)
{
    TextFileStream stream(mDirectory.write("file", "a\xFFz").c_str(), FileStream::Read);
    EXPECT_EQ(stream.getChar(), 'a');
    EXPECT_EQ(stream.getChar(), -1);
    EXPECT_EQ(stream.getChar(), -1);
}

TEST_F(StreamTest, ALongLineIsReadInPieces)
{
    TextFileStream stream(mDirectory.write("file", std::string(2000, 'x') + "\nend").c_str(), FileStream::Read);
    char line[1024];
    for (unsigned int expected : {1022u, 979u, 3u, 0u})
        EXPECT_EQ(stream.read(line, 0), expected);
    EXPECT_TRUE(stream.eof());
}

TEST_F(StreamTest, WritesCharactersTabsAndWholeTexts)
{
    const std::string path = mDirectory / "file";
    {
        TextFileStream stream(path.c_str(), FileStream::Write);
        EXPECT_EQ(stream.write("text", 0), 4u);
        EXPECT_EQ(stream.write("block", 2), 2u);
        stream.putCR();
        stream.putTab(3);
        stream.putChar('!');
        EXPECT_TRUE(stream.flush());
        EXPECT_EQ(stream.getFullPath(), path.c_str());
        EXPECT_STREQ(stream.getFileName(), "file");
        EXPECT_EQ(stream.getPath(), nullptr) << "not below the data directories";
    }
    EXPECT_EQ(mDirectory.read("file"), "textbl\n\t\t\t!");
}

TEST_F(StreamTest, AFullDiskSetsTheEndFlag)
{
    TextFileStream stream("/dev/full", FileStream::Write);
    const std::string text(100000, 'x');
    EXPECT_LT(stream.write(text.c_str(), 100000), 100000u);
    EXPECT_TRUE(stream.eof());
    EXPECT_FALSE(stream.flush());
}
}
