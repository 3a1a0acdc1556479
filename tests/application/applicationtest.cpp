#include "application/application.h"

#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

#include <csignal>

namespace
{
constexpr Application::sInitializer Initializer = {"", 64, 48, 60, 20, 240};
}

TEST(ApplicationTest, KeepsTheStateOfTheMouse)
{
    using enum eMouseEvent;
    const std::tuple<sMouseEvent, unsigned int, sPoint, sPoint> rows[] = {
        {{.kind = Down, .x = 10, .y = 20, .button = 1}, 1, sPoint(0, 0), sPoint(10, 20)},
        {{.kind = Down, .x = 10, .y = 20, .button = 3}, 5, sPoint(0, 0), sPoint(10, 20)},
        {{.kind = Down, .x = 10, .y = 20, .button = 4}, 5, sPoint(0, 0), sPoint(10, 20)},
        {{.kind = Dragged, .x = -5, .y = 900}, 5, sPoint(0, 0), sPoint(-5, 900)},
        {{.kind = Up, .x = 1024, .y = -1, .button = 1}, 4, sPoint(0, 0), sPoint(1023, 0)},
        {{.kind = Moved, .x = -5, .y = 900}, 4, sPoint(0, 0), sPoint(0, 767)},
        {{.kind = Down, .hasPosition = false, .button = 2}, 6, sPoint(0, 0), sPoint(0, 767)},
        {{.kind = Wheel, .axis = 0, .amount = 3}, 6, sPoint(3, 0), sPoint(0, 0)},
        {{.kind = Wheel, .axis = 7, .amount = -2}, 6, sPoint(3, -2), sPoint(0, 0)},
    };
    HeadlessApplication application;
    for (const auto& [event, button, wheel, cursor] : rows)
    {
        application.getPlatform().postMouse(event);
        application.getPlatform().postQuit();
        EXPECT_EQ(application.execute(), 0);
        EXPECT_EQ(application.getMouseButton(), button) << event.x << ", " << event.y;
        EXPECT_EQ(application.getWheelAmount(), wheel);
        EXPECT_EQ(application.getCursorPosition(), cursor);
    }
}

TEST(ApplicationTest, FramesRunUntilTheApplicationQuitsOrASignalComes)
{
    HeadlessApplication application;
    unsigned int frames = 0;
    application.mFrame = [&](float delta)
    {
        EXPECT_EQ(delta, application.getDeltaTime());
        EXPECT_TRUE(delta >= 0.25f && delta < 3.01f) << delta;
        EXPECT_EQ(application.getCurrentFrame(), ++frames);
        if (frames == 5)
            application.quit();
        else if (frames == 6)
            std::raise(SIGINT);
    };
    EXPECT_EQ(application.execute(), 0);
    EXPECT_EQ(frames, 5u);
    EXPECT_EQ(application.execute(), 0);
    EXPECT_EQ(frames, 6u);
}

TEST(ApplicationDeathTest, StopsWithoutAWindow)
{
    struct PlainApplication : Application
    {
        PlainApplication() : Application(&Initializer) {}
        void setup() override {}
        void update(float) override {}
    };
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const HeadlessPlace place;
    place.getPlatform().refuseWindow();
    EXPECT_DEATH(PlainApplication().execute(), "Application : InstallEventTimer failed.");
}
