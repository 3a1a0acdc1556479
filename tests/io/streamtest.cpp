#include "io/stream.h"

#include "tests/support/temporarydirectory.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

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
        EXPECT_EQ(traces.take().rfind("File open error.\n", 0), 0u);
        EXPECT_TRUE(text.eof());
        char buffer[1024];
        EXPECT_EQ(text.read(buffer, 4) + text.read(buffer, 0) + text.peek(buffer, 4) + text.write("x", 1), 0u);
        EXPECT_EQ(text.getChar(), -1);

        BinaryFileStream binary(path.c_str(), FileStream::Read);
        EXPECT_FALSE(binary.eof());
        EXPECT_EQ(binary.getLength() + binary.read(buffer, 4), 0u);
    }
}

TEST_F(StreamTest, SeekAndLengthAgreeAboutThePlace)
{
    BinaryFileStream stream((mDirectory / "file").c_str(), FileStream::ReadWrite);
    EXPECT_EQ(stream.getType(), 6u);
    EXPECT_EQ(stream.write("0123456789", 10), 10u);

    const std::tuple<int, unsigned int, char> rows[] = {
        {3, 0, '3'}, {2, 1, '6'}, {-1, 2, '9'}, {0, 0, '0'}, {5, 3, '1'}};
    for (const auto& [offset, origin, expected] : rows)
    {
        EXPECT_EQ(stream.seek(offset, origin), 0);
        EXPECT_EQ(stream.getLength(), 10u) << "the place stays";
        char c = 0;
        EXPECT_EQ(stream.read(&c, 1), 1u);
        EXPECT_EQ(c, expected) << offset << " from " << origin;
    }
}

TEST_F(StreamTest, TheEndFlagStaysWhateverMovesBehindIt)
{
    // A byte of all ones ends the text.
    TextFileStream stream(mDirectory.write("file", "ab\xFFz").c_str(), FileStream::Read);
    EXPECT_EQ(stream.getType(), 5u);
    EXPECT_EQ(stream.getChar(), 'a');
    stream.backforward();
    EXPECT_EQ(stream.getChar(), 'a');
    EXPECT_EQ(stream.getRest(), 3u);
    char buffer[8];
    EXPECT_EQ(stream.peek(buffer, 8), 3u);
    EXPECT_FALSE(stream.eof()) << "looking ahead sets no flag";
    EXPECT_EQ(stream.getChar(), 'b');
    EXPECT_EQ(stream.getChar(), -1);
    stream.backforward();
    EXPECT_TRUE(stream.eof());
    EXPECT_EQ(stream.getChar(), -1);
    EXPECT_EQ(stream.getRest() + stream.read(buffer, 8), 0u);
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
    TextFileStream stream((mDirectory / "file").c_str(), FileStream::Write);
    EXPECT_EQ(stream.write("text", 0) + stream.write("block", 2), 6u);
    stream.putCR();
    stream.putTab(3);
    stream.putChar('!');
    EXPECT_TRUE(stream.flush());
    EXPECT_EQ(mDirectory.read("file"), "textbl\n\t\t\t!");
    EXPECT_STREQ(stream.getFileName(), "file");
    EXPECT_EQ(stream.getPath(), nullptr) << "not below the data directories";

    TextFileStream full("/dev/full", FileStream::Write);
    EXPECT_LT(full.write(std::string(100000, 'x').c_str(), 0), 100000u);
    EXPECT_TRUE(full.eof());
    EXPECT_FALSE(full.flush());
}
}
