#include "application/application.h"

#include "application/systemmanager.h"
#include "foundation/allocator.h"
#include "foundation/memorymanager.h"
#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace
{
constexpr Application::sInitializer Initializer = {"", 64, 48, 60, 20, 240};

struct PlainApplication : Application
{
    using Application::Application;
    void setup() override {}
    void update(float) override {}
};

sMouseEvent makeEvent(eMouseEvent kind, int x, int y)
{
    sMouseEvent event;
    event.kind = kind;
    event.x = x;
    event.y = y;
    return event;
}

sMouseEvent makePress(eMouseEvent kind, unsigned int button)
{
    sMouseEvent event = makeEvent(kind, 10, 20);
    event.button = button;
    return event;
}

sMouseEvent makeWheel(unsigned int axis, int amount)
{
    sMouseEvent event = makeEvent(eMouseEvent::Wheel, 10, 20);
    event.axis = axis;
    event.amount = amount;
    return event;
}

// Runs the event loop until all posted events have come and the close box after them.
void deliver(HeadlessApplication& application, std::initializer_list<sMouseEvent> events)
{
    for (const sMouseEvent& event : events)
        application.getPlatform().postMouse(event);
    application.getPlatform().postQuit();
    EXPECT_EQ(application.execute(), 0);
}
}

TEST(ApplicationTest, MakesWindowPathsAndManagersAndTakesThemAway)
{
    {
        HeadlessApplication application;
        EXPECT_EQ(Application::getInstance(), &application);
        EXPECT_EQ(application.getWindowSize(), sSize(1024, 768));
        EXPECT_EQ(application.getRootPath(), application.getRoot() + "/");
        EXPECT_EQ(application.getIntermediatePath(), application.getRoot() + "/intermediate/");
        EXPECT_EQ(application.getNativePath(), application.getRoot() + "/native/");
        EXPECT_TRUE(std::filesystem::is_directory(application.getIntermediatePath()));
        EXPECT_GE(application.getProcessorNum(), 1u);
        EXPECT_NE(SystemManager::getInstance(), nullptr);
        EXPECT_NE(MemoryManager::getInstance(), nullptr);
    }
    EXPECT_EQ(Application::getInstance(), nullptr);
    EXPECT_EQ(SystemManager::getInstance(), nullptr);
    EXPECT_EQ(MemoryManager::getInstance(), nullptr);
}

TEST(ApplicationTest, MouseButtonsAreBitsAndTheWheelAddsUp)
{
    HeadlessApplication application;
    deliver(application, {makePress(eMouseEvent::Down, 1), makePress(eMouseEvent::Down, 3),
                          makePress(eMouseEvent::Down, 4), makePress(eMouseEvent::Down, 0)});
    EXPECT_EQ(application.getMouseButton(), 5u);
    deliver(application, {makePress(eMouseEvent::Down, 2), makePress(eMouseEvent::Up, 1)});
    EXPECT_EQ(application.getMouseButton(), 6u);

    deliver(application, {makeWheel(0, 3), makeWheel(1, -2), makeWheel(7, -2), makeWheel(0, -1)});
    EXPECT_EQ(application.getWheelAmount(), sPoint(2, -4)) << "any axis but 0 is y";
}

TEST(ApplicationTest, OnlyADragLeavesTheWindow)
{
    HeadlessApplication application;
    const struct
    {
        eMouseEvent kind;
        sPoint at;
        sPoint cursor;
    } rows[] = {
        {eMouseEvent::Moved, sPoint(30, 40), sPoint(30, 40)},
        {eMouseEvent::Moved, sPoint(-5, 900), sPoint(0, 767)},
        {eMouseEvent::Dragged, sPoint(-5, 900), sPoint(-5, 900)},
        {eMouseEvent::Up, sPoint(1024, -1), sPoint(1023, 0)},
    };
    for (const auto& row : rows)
    {
        deliver(application, {makeEvent(row.kind, row.at.x, row.at.y)});
        EXPECT_EQ(application.getCursorPosition(), row.cursor);
    }

    sMouseEvent lost = makePress(eMouseEvent::Down, 1);
    lost.hasPosition = false;
    deliver(application, {lost});
    EXPECT_EQ(application.getCursorPosition(), sPoint(1023, 0)) << "the place is not known";
    EXPECT_EQ(application.getMouseButton(), 1u);
}

TEST(ApplicationTest, FramesRunUntilTheApplicationQuits)
{
    HeadlessApplication application;
    unsigned int frames = 0;
    application.mFrame = [&](float delta)
    {
        EXPECT_EQ(delta, application.getDeltaTime());
        EXPECT_GE(delta, 0.25f);
        EXPECT_LE(delta, 3.0f);
        EXPECT_EQ(application.getCurrentFrame(), ++frames);
        if (frames == 5)
            application.quit();
    };
    EXPECT_EQ(application.execute(), 0);
    EXPECT_EQ(frames, 5u);
}

TEST(ApplicationTest, ASignalEndsTheLoopBehindItsFrame)
{
    HeadlessApplication application;
    unsigned int frames = 0;
    application.mFrame = [&](float)
    {
        ++frames;
        std::raise(SIGINT);
    };
    EXPECT_EQ(application.execute(), 0);
    EXPECT_EQ(frames, 1u);
}

TEST(ApplicationTest, TimeIsCountedInMillisecondsOfTheCountInPlace)
{
    HeadlessApplication application;
    Application::setCountFunction([] { return std::uint64_t(5000000000250000); });
    EXPECT_EQ(Application::getAbsoluteCount(), 5000000000250000u);
    EXPECT_EQ(Application::getAbsoluteTime(), 5000000000u) << "beyond 32 bits";
    Application::setCountFunction(nullptr);
    EXPECT_LT(Application::getAbsoluteCount(), 5000000000250000u);
}

TEST(ApplicationTest, WithoutAnInitializerItStaysHalfMade)
{
    HeadlessPlace place;
    PlainApplication application(nullptr);
    EXPECT_EQ(Application::getInstance(), nullptr);
    EXPECT_FALSE(place.getPlatform().isWindowOpen());
}

TEST(ApplicationDeathTest, FailuresStopTheProgram)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";

    EXPECT_DEATH(
        {
            HeadlessPlace place;
            place.getPlatform().refuseWindow();
            PlainApplication application(&Initializer);
            EXPECT_EQ(MemoryManager::getInstance(), nullptr);
            application.execute();
        },
        "Application : InstallEventTimer failed.");

    EXPECT_DEATH(
        {
            HeadlessApplication application;
            application.setTempAllocator(AllocatorBase::getGlobalAllocator());
            application.setTempAllocator(AllocatorBase::getGlobalAllocator());
        },
        "TempAllocator already set.");

    EXPECT_DEATH(HeadlessApplication(Application::sInitializer{"", 64, 48, 0, 0, 0}), "Invalid frame rate.");
}
