#include "platform/headless/headlessplatform.h"

#include <gtest/gtest.h>

#include <csignal>
#include <vector>

class HeadlessPlatformTest : public testing::Test
{
protected:
    HeadlessPlatformTest()
    {
        if (!Platform::create(ePlatform::Headless))
            ADD_FAILURE() << "the headless back end needs nothing";
        platform().stopClock(Start);
    }

    ~HeadlessPlatformTest() override { Platform::destroy(); }

    static HeadlessPlatform& platform() { return *static_cast<HeadlessPlatform*>(Platform::getInstance()); }

    static void countFiring(void* userData)
    {
        HeadlessPlatformTest& test = *static_cast<HeadlessPlatformTest*>(userData);
        test.mFirings.push_back(platform().getCount() - Start);
        platform().advance(test.mFrameNanoseconds);
        if (test.mFirings.size() == 4)
            platform().quitEventLoop();
    }

    static constexpr std::uint64_t Start = 1000;

    std::vector<std::uint64_t> mFirings;
    std::uint64_t mFrameNanoseconds = 0;
};

TEST_F(HeadlessPlatformTest, TimerFiresAfterATenthOfASecondAndThenEveryTenthOfAMillisecond)
{
    ASSERT_TRUE(platform().openWindow("", 64, 48));
    ASSERT_TRUE(platform().installTimer(countFiring, this));
    platform().runEventLoop();
    EXPECT_EQ(mFirings, (std::vector<std::uint64_t>{100000000, 100100000, 100200000, 100300000}));
}

TEST_F(HeadlessPlatformTest, FiringsThatALongFrameHoldsUpAreOne)
{
    mFrameNanoseconds = 16000000;
    ASSERT_TRUE(platform().openWindow("", 64, 48));
    ASSERT_TRUE(platform().installTimer(countFiring, this));
    platform().runEventLoop();
    EXPECT_EQ(mFirings, (std::vector<std::uint64_t>{100000000, 116000000, 132000000, 148000000}));
}

TEST_F(HeadlessPlatformTest, HandlersNeedAWindow)
{
    EXPECT_FALSE(platform().installTimer(countFiring, this));
    EXPECT_FALSE(platform().installMouseHandler([](const sMouseEvent&, void*) {}, this));
    platform().refuseWindow();
    EXPECT_FALSE(platform().openWindow("", 64, 48));
}

TEST_F(HeadlessPlatformTest, TheCloseBoxAsksTheQuitHandlerOrEndsTheLoop)
{
    bool asked = false;
    const auto ask = [](void* userData)
    {
        *static_cast<bool*>(userData) = true;
        platform().removeHandlers();
        platform().postQuit();
    };
    platform().setQuitHandler(ask, &asked);
    platform().postQuit();
    platform().runEventLoop();
    EXPECT_TRUE(asked) << "the loop went on, and without a handler the second press ended it";
}

TEST_F(HeadlessPlatformTest, ASignalEndsTheLoopUnasked)
{
    platform().setQuitHandler([](void*) { FAIL() << "a signal is no question"; }, nullptr);
    std::raise(SIGTERM);
    platform().runEventLoop();
}

TEST_F(HeadlessPlatformTest, ThereIsOneBackEndAtATime)
{
    ASSERT_TRUE(Platform::create(ePlatform::Headless));
    EXPECT_NE(Platform::getInstance(), nullptr);
    Platform::destroy();
    EXPECT_EQ(Platform::getInstance(), nullptr);
}
