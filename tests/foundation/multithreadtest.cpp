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

TEST(SemaphoreTest, HandsWorkToAndFroWithAnEventWhetherTheOtherSleepsOrNot)
{
    Semaphore there(1, 0);
    Event back;
    std::thread echo(
        [&]
        {
            for (int i = 0; i < 200 && there.wait() == 1; ++i)
            {
                Thread::sleep(i % 50 == 0 ? 2 : 0);
                back.set();
            }
        });
    for (int i = 0; i < 200; ++i)
    {
        EXPECT_EQ(there.signal(), 1u);
        EXPECT_EQ(back.wait(0xFFFFFFFF), 0u);
    }
    echo.join();
}
