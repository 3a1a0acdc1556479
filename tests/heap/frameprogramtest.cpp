#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace
{
// What the program writes to its standard output.
std::string runFrames(const std::string& arguments)
{
    TemporaryDirectory root;
    std::filesystem::copy(SAMPLE_DIRECTORY, root / "intermediate", std::filesystem::copy_options::recursive);
    std::FILE* pipe = popen((FRAME_PROGRAM " " + root.getPath() + " " + arguments + " 2>/dev/null").c_str(), "r");
    char line[256] = "";
    if (!std::fgets(line, sizeof(line), pipe))
        line[0] = '\0';
    EXPECT_EQ(pclose(pipe), 0);
    return line;
}
}

TEST(FrameProgramTest, AFrameInWhichNothingChangesTakesNothingFromTheHeaps)
{
    for (const char* arguments : {"play parade", "gallery"})
    {
        unsigned int first = 0;
        unsigned int later = 1;
        const std::string line = runFrames(arguments);
        EXPECT_EQ(std::sscanf(line.c_str(), "%u to begin with, %u", &first, &later), 2) << line;
        EXPECT_GT(first, 100u) << arguments;
        EXPECT_EQ(later, 0u) << arguments;
    }
}
