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

}
