#include "tests/support/display.h"
#include "tests/support/referencepicture.h"
#include "tests/window/windowdriver.h"

#include <cstdlib>

#include <sys/wait.h>

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

constexpr sColor Background(77, 77, 77, 255);
constexpr sRect View(1024, 768);

// The heads-up text is no part of the animation.
constexpr sRect HeadsUp(832, 0, 1024, 128);
}

TEST(PlayerTest, ShowsFramesThatDifferAsTheFileSays)
{
    WindowDriver driver;
    ASSERT_TRUE(driver.play("walk"));
    std::vector<sColor> former;
    unsigned int played = 0;
    for (const unsigned int frame : {1u, 45u})
    {
        driver.runFrames(frame - std::exchange(played, frame));
        std::vector<sColor> picture = driver.read(View);
        for (int y = HeadsUp.top; y < HeadsUp.bottom; ++y)
            std::fill_n(picture.begin() + y * View.right + HeadsUp.left, HeadsUp.right - HeadsUp.left, Background);

        ReferencePicture reference(View.right, View.bottom, Background);
        reference.draw(SAMPLE_DIRECTORY, "walk", frame);
        EXPECT_GE(reference.countUpright(), 2000);
        EXPECT_EQ(reference.countDifferences(picture), 0) << frame;
        EXPECT_NE(picture, former);
        former = picture;
    }
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
