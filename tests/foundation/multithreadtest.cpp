#include "foundation/multithread.h"

#include <gtest/gtest.h>

#include <functional>
#include <thread>

namespace
{
class TestThread : public Thread
{
public:
    explicit TestThread(std::function<void(TestThread&)> body) : Thread(4096), mBody(std::move(body)) {}

    ~TestThread() override
    {
        terminate();
        waitForTermination();
    }

private:
    void execute() override { mBody(*this); }

    std::function<void(TestThread&)> mBody;
};
}

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

TEST(ThreadTest, RunsBehindItsGateUntilItIsToldToEnd)
{
    Event entered;
    TestThread thread(
        [&](TestThread& self)
        {
            entered.set();
            while (!self.checkTerminateRequest())
                Thread::yield();
        });
    EXPECT_EQ(entered.wait(5), 1u);
    EXPECT_EQ(thread.getStatus(), Thread::Created);

    thread.run();
    EXPECT_EQ(entered.wait(0xFFFFFFFF), 0u);
    EXPECT_EQ(thread.getStatus(), Thread::Running);

    thread.terminate();
    for (int i = 0; i < 2; ++i)
    {
        thread.waitForTermination();
        EXPECT_EQ(thread.getStatus(), Thread::Terminated);
    }
}
