#include "tools/samples/samples.h"
#include "tests/support/bytes.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

TEST(SamplesTest, AreWhatTheToolWrites)
{
    const TemporaryDirectory written;
    EXPECT_TRUE(Samples::write((written / "").c_str()));
    for (const char* name : {"walk.tga", "walk.asq.xml", "parade.asq.xml"})
    {
        EXPECT_GT(written.read(name).size(), 10000u);
        EXPECT_EQ(readBytes(written / name), readBytes(SAMPLE_DIRECTORY + std::string(name))) << name;
    }
    EXPECT_FALSE(Samples::write((written / "missing/").c_str()));
}
