#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>

#include <sys/wait.h>

namespace
{
struct sEnd
{
    std::string output;
    std::string errors;
    int status;
};

sEnd run(const std::string& command)
{
    const TemporaryDirectory place;
    const std::string redirected = command + " >" + place / "output" + " 2>" + place / "errors" + "; exit $?";
    const int status = std::system(redirected.c_str());
    return {place.read("output"), place.read("errors"), status};
}
}

TEST(HeapProgramTest, KeepsAllItsObjectsInTheGlobalHeapAndEndsWithoutALeak)
{
    const sEnd end = run(HEAP_PROGRAM);
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 0) << end.errors;
    EXPECT_EQ(end.errors.find("leak"), std::string::npos) << end.errors;
}

TEST(HeapProgramTest, ReportsALeakAtTheVeryEndAndAborts)
{
    const sEnd end = run(HEAP_PROGRAM " leak");
    EXPECT_EQ(WEXITSTATUS(end.status), 128 + SIGABRT);
    const std::size_t leak = end.errors.find("Global : leak detected(call no = ");
    ASSERT_NE(leak, std::string::npos) << end.errors;
    EXPECT_NE(end.errors.find(",size = 200).\n", leak), std::string::npos) << end.errors;
    EXPECT_NE(end.errors.find("Memory leak detected.\n", leak), std::string::npos) << end.errors;
    EXPECT_EQ(end.errors.find("Global : leak", leak + 1), std::string::npos) << "only one block leaks";
}

TEST(FrameProgramTest, EditsAndSavesAnimationsThatNearlyFillTheHeaps)
{
    for (const unsigned int trackNum : {25000u, 65000u})
    {
        TemporaryDirectory root;
        std::filesystem::create_directories(root / "intermediate");
        std::string text =
            "<?xml version=\"1.0\"?>\n<AnimResource typeinfo=\"AnimResource\" id=\"1\" stable=\"false\" >"
            "<track_list type=\"Object\" count=\"0\" index=\"0\" typeinfo=\"ObjectList\" id=\"2\" stable=\"true\" "
            "list_count=\"" +
            std::to_string(trackNum) + "\" >";
        for (unsigned int i = 0; i < trackNum; ++i)
        {
            const std::string number = std::to_string(i);
            text += "<element" + number + " typeinfo=\"SequencerTrack\" id=\"" + std::to_string(i + 3) +
                    "\" stable=\"false\" ><track_name type=\"string\" count=\"0\" index=\"0\" value=\"T" + number +
                    "\" /><object_type_id type=\"u32\" count=\"0\" index=\"0\" value=\"-1640879128\" /></element" +
                    number + ">";
        }
        root.write("intermediate/full.asq.xml", text + "</track_list></AnimResource>\n");
        const sEnd end = run(FRAME_PROGRAM " " + root.getPath() + " edit full");
        EXPECT_EQ(end.status, 0) << trackNum << end.errors;
        EXPECT_EQ(end.output, "saved") << trackNum << end.errors;
        EXPECT_GT(root.read("intermediate/full.asq.xml").size(), text.size()) << trackNum << " are not all there";
    }
}

TEST(FrameProgramTest, AFrameInWhichNothingChangesTakesNothingFromTheHeaps)
{
    TemporaryDirectory root;
    std::filesystem::copy(SAMPLE_DIRECTORY, root / "intermediate", std::filesystem::copy_options::recursive);
    for (const char* arguments : {" play parade", " gallery"})
    {
        unsigned int first = 0;
        unsigned int later = 1;
        const sEnd end = run(FRAME_PROGRAM " " + root.getPath() + arguments);
        EXPECT_EQ(end.status, 0) << end.errors;
        EXPECT_EQ(std::sscanf(end.output.c_str(), "%u to begin with, %u", &first, &later), 2) << end.output;
        EXPECT_GT(first, 100u) << arguments;
        EXPECT_EQ(later, 0u) << arguments;
    }
}
