#include "foundation/multithread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include <pthread.h>
#include <unistd.h>

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

TEST(EventTest, KeepsOneSignalUntilAWaitConsumesIt)
{
    Event event;
    EXPECT_EQ(event.wait(0), 1u);
    event.set();
    event.set();
    EXPECT_EQ(event.wait(0xFFFFFFFF), 0u);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(event.wait(1005), 1u);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1005));
}

TEST(SemaphoreTest, CountsUpToItsMaximum)
{
    Semaphore semaphore(2, 1);
    EXPECT_EQ(semaphore.signal(), 1u);
    EXPECT_EQ(semaphore.signal(), 0u);
    EXPECT_EQ(semaphore.wait(), 1u);
    EXPECT_TRUE(semaphore.tryWait());
    EXPECT_FALSE(semaphore.tryWait());
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

TEST(SemaphoreTest, EndsTheWaitsWhenItIsDeleted)
{
    auto semaphore = std::make_unique<Semaphore>(1, 0);
    Semaphore* waited = semaphore.get();
    std::thread waiter([waited] { EXPECT_EQ(waited->wait(), 0u); });
    Thread::sleep(50);
    semaphore.reset();
    waiter.join();
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

TEST(ThreadTest, NeverExecutesWhatWasTerminatedAtTheGate)
{
    TestThread thread([](TestThread&) { FAIL(); });
    thread.terminate();
    EXPECT_EQ(thread.getStatus(), Thread::Terminating);
    thread.run();
}

TEST(ThreadTest, HasAStackOfAMebibyteAndFollowsItsPriorityDownwards)
{
    std::size_t stackSize = 0;
    int niceness = 0;
    TestThread thread(
        [&](TestThread&)
        {
            pthread_attr_t attributes;
            pthread_getattr_np(pthread_self(), &attributes);
            pthread_attr_getstacksize(&attributes, &stackSize);
            pthread_attr_destroy(&attributes);
            niceness = nice(0);
        });
    thread.setPriority(Thread::ePriority::Lowest);
    thread.run();
    thread.waitForTermination();
    EXPECT_GE(stackSize, 0x100000u);
    EXPECT_EQ(niceness, 19);
}
