#include "platform/headless/headlessplatform.h"

#include <gtest/gtest.h>

TEST(HeadlessPlatformTest, TheCloseBoxAsksTheQuitHandlerOrEndsTheLoop)
{
    ASSERT_TRUE(Platform::create(ePlatform::Headless));
    static const auto platform = []() -> HeadlessPlatform&
    {
        return *static_cast<HeadlessPlatform*>(Platform::getInstance());
    };
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
    Platform::destroy();
}
