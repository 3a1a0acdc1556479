#include "foundation/multithread.h"
#include "foundation/biasedlock.h"

#include <gtest/gtest.h>

#include <thread>

#include <emmintrin.h>

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

// The other thread comes to one lock after another, at any point of the home thread's way through it.
TEST(LockTest, LosesNothingWhenAThreadComesToALockThatOneHadForItself)
{
    struct sCounter
    {
        BiasedLock<SpinLock> lock;
        int value = 0;

        void count()
        {
            lock.run(
                [this]
                {
                    const int old = value;
                    _mm_pause();
                    return value = old + 1;
                });
        }
    };
    constexpr int RoundNum = 20000;
    std::atomic<sCounter*> visited = nullptr;
    std::thread visitor(
        [&]
        {
            for (int round = 0; round < RoundNum; ++round)
            {
                while (!visited.load())
                    Thread::yield();
                visited.load()->count();
                visited = nullptr;
            }
        });
    for (int round = 0; round < RoundNum; ++round)
    {
        sCounter counter;
        visited = &counter;
        int own = 0;
        for (; visited.load(); ++own)
        {
            counter.count();
            if (own % 256 == 255)
                Thread::yield();
        }
        EXPECT_EQ(counter.value, own + 1);
    }
    visitor.join();
}
