#include "tests/support/display.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include <sys/wait.h>

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);
}

// The driver is unloaded with the window, so a sanitizer cannot tell its blocks from ours; the heaps of the program
// report their own leaks, and the run without a window is for the sanitizer.
#ifdef CELLWRIGHT_SANITIZED
constexpr const char* WithWindow = "ASAN_OPTIONS=detect_leaks=0 ";
#else
constexpr const char* WithWindow = "";
#endif

TEST(PlayerTest, LeavesNothingBehind)
{
    const TemporaryDirectory place;
    std::filesystem::copy(SAMPLE_DIRECTORY, place / "intermediate", std::filesystem::copy_options::recursive);
    const std::pair<const char*, const char*> runs[] = {{WithWindow, "--play walk --frames 300"},
                                                        {WithWindow, "--gallery --frames 60"},
                                                        {"", "--gallery --headless --frames 60"}};
    for (const auto& [environment, arguments] : runs)
    {
        const std::string command = std::string(environment) + CELLWRIGHT_PROGRAM " --root " + place.getPath() + " " +
                                    arguments + " 2>" + place / "log";
        const int status = std::system(command.c_str());
        const std::string log = place.read("log");
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << arguments << "\n" << log;
        EXPECT_EQ(log.find("eak"), std::string::npos) << log;
        EXPECT_NE(log.find("Application : end."), std::string::npos) << log;
    }
}
