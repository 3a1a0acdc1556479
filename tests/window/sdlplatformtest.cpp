#include "platform/platform.h"
#include "tests/window/windowmanager.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <unistd.h>

namespace
{
constexpr unsigned int Width = 320;
constexpr unsigned int Height = 240;
}

// A real window. xdotool presses keys and buttons on it; the window lies at (100, 100).
class SDLPlatformWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Platform::create(ePlatform::SDL));
        ASSERT_TRUE(platform().openWindow(getTitle().c_str(), Width, Height));
        ASSERT_TRUE(
            platform().installMouseHandler([](const sMouseEvent& event, void* userData)
                                           { static_cast<SDLPlatformWindowTest*>(userData)->mEvents.push_back(event); },
                                           this));
        pump();
        mEvents.clear();
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

    // Each command is one of xdotool's. Waits for so many events of all of them together.
    void press(std::initializer_list<const char*> commands, std::size_t eventNum)
    {
        mEvents.clear();
        for (const char* command : commands)
        {
            ASSERT_EQ(std::system(("xdotool " + std::string(command)).c_str()), 0);
            pump();
        }
        pump([&] { return mEvents.size() >= eventNum; });
    }

    std::string describe() const
    {
        std::string text;
        for (const sMouseEvent& event : mEvents)
        {
            text += std::to_string(static_cast<unsigned int>(event.kind)) + "@" + std::to_string(event.x) + "," +
                    std::to_string(event.y);
            if (event.button)
                text += " button " + std::to_string(event.button);
            if (event.kind == eMouseEvent::Wheel)
                text += " axis " + std::to_string(event.axis) + " by " + std::to_string(event.amount);
            text += "; ";
        }
        return text;
    }

    std::vector<sMouseEvent> mEvents;
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

TEST_F(SDLPlatformWindowTest, TranslatesButtonsTheWheelAndDragsThatLeaveTheWindow)
{
    press({"mousemove 110 120", "mousedown 1", "mousemove 90 500", "mouseup 1"}, 4);
    EXPECT_EQ(describe(), "5@10,20; 1@10,20 button 1; 6@-10,400; 2@-10,400 button 1; ");
    press({"mousemove 110 120", "click 4", "click 5"}, 5);
    EXPECT_EQ(describe(), "5@10,20; 10@10,20 axis 0 by 0; 10@10,20 axis 1 by 1; "
                          "10@10,20 axis 0 by 0; 10@10,20 axis 1 by -1; ")
        << "each turn is an event for each axis";
    press({"click 3", "click 2"}, 4);
    EXPECT_EQ(describe(), "1@10,20 button 2; 2@10,20 button 2; 1@10,20 button 3; 2@10,20 button 3; ");
}

TEST_F(SDLPlatformWindowTest, TheCloseBoxAsksTheQuitHandler)
{
    bool asked = false;
    platform().setQuitHandler([](void* userData) { *static_cast<bool*>(userData) = true; }, &asked);
    WindowManager(getTitle()).pressCloseBox();
    pump([&] { return asked; });
    EXPECT_TRUE(asked);
}
