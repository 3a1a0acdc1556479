#include "platform/platform.h"
#include "tests/window/windowmanager.h"

#include <gtest/gtest.h>

#include <clocale>
#include <functional>
#include <string>

#include <unistd.h>

namespace
{
constexpr unsigned int Width = 320;
constexpr unsigned int Height = 240;
}

// A real window.
class SDLPlatformWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Platform::create(ePlatform::SDL));
        ASSERT_TRUE(platform().openWindow(getTitle().c_str(), Width, Height));
        pump();
    }

    void TearDown() override { Platform::destroy(); }

    // The server may still show the window of the test before.
    static std::string getTitle()
    {
        return testing::UnitTest::GetInstance()->current_test_info()->name() + std::to_string(getpid());
    }

    static Platform& platform() { return *Platform::getInstance(); }

    // Runs the event loop until `done` holds, at least for the first delay of the timer and for five seconds at most.
    void pump(const std::function<bool()>& done = [] { return true; })
    {
        mDone = done;
        mDeadline = platform().getCount() + 5000000000u;
        ASSERT_TRUE(platform().installTimer(
            [](void* userData)
            {
                SDLPlatformWindowTest& test = *static_cast<SDLPlatformWindowTest*>(userData);
                if (test.mDone() || platform().getCount() > test.mDeadline)
                    platform().quitEventLoop();
            },
            this));
        platform().runEventLoop();
    }

    std::function<bool()> mDone;
    std::uint64_t mDeadline = 0;
};

TEST_F(SDLPlatformWindowTest, HasAContextAndLeavesTheLocaleAlone)
{
    EXPECT_TRUE(platform().hasGraphics());
    EXPECT_TRUE(platform().makeCurrent());
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    platform().closeWindow();
    EXPECT_FALSE(platform().hasGraphics());
    EXPECT_FALSE(platform().installTimer([](void*) {}, nullptr));
}

TEST_F(SDLPlatformWindowTest, TheCloseBoxAsksTheQuitHandler)
{
    bool asked = false;
    platform().setQuitHandler([](void* userData) { *static_cast<bool*>(userData) = true; }, &asked);
    WindowManager(getTitle()).pressCloseBox();
    pump([&] { return asked; });
    EXPECT_TRUE(asked);
}
