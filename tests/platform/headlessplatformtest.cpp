#include "platform/headless/headlessplatform.h"

#include <gtest/gtest.h>

#include <vector>

class HeadlessPlatformTest : public testing::Test
{
protected:
    HeadlessPlatformTest() { EXPECT_TRUE(Platform::create(ePlatform::Headless)); }
    ~HeadlessPlatformTest() override { Platform::destroy(); }

    static HeadlessPlatform& platform() { return *static_cast<HeadlessPlatform*>(Platform::getInstance()); }

    // When the timer fires four times, with frames of that length.
    std::vector<std::uint64_t> run(std::uint64_t frameNanoseconds)
    {
        mFirings.clear();
        mFrameNanoseconds = frameNanoseconds;
        platform().stopClock(Start);
        EXPECT_TRUE(platform().installTimer(countFiring, this));
        platform().runEventLoop();
        return mFirings;
    }

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
    EXPECT_EQ(run(0), (std::vector<std::uint64_t>{100000000, 100100000, 100200000, 100300000}));
    EXPECT_EQ(run(16000000), (std::vector<std::uint64_t>{100000000, 116000000, 132000000, 148000000}))
        << "firings that a long frame holds up are one";
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
