#include "foundation/multithread.h"

#include <gtest/gtest.h>

#include <thread>

TEST(LockTest, LetsOneThreadInAtATimeAndThatOneTwice)
{
    SpinLock spinLock;
    CriticalSection section;
    int spun = 0;
    int entered = 0;
    const auto count = [&]
    {
        for (int i = 0; i < 5000; ++i)
        {
            spinLock.lock();
            ++spun;
            spinLock.unlock();
            ScopedLock<CriticalSection> lock(section);
            entered += section.tryEnter() ? 1 : 0;
            section.leave();
        }
    };
    std::thread other(count);
    count();
    other.join();
    EXPECT_EQ(spun, 10000);
    EXPECT_EQ(entered, 10000);
}
