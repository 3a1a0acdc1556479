#include "foundation/multithread.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

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

void countUp(unsigned int threadNum, unsigned int countNum, const std::function<void()>& count)
{
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < threadNum; ++i)
        threads.emplace_back(
            [&]
            {
                for (unsigned int n = 0; n < countNum; ++n)
                    count();
            });
    for (std::thread& thread : threads)
        thread.join();
}
}

TEST(AtomicTest, ReturnsTheValueFromBeforeTheChange)
{
    Atomic value(5);
    EXPECT_EQ(value.increment(), 5);
    EXPECT_EQ(value.decrement(), 6);
    EXPECT_EQ(value.add(10), 5);
    EXPECT_EQ(value.sub(3), 15);
    EXPECT_EQ(value.set(-1), 12);
    EXPECT_TRUE(value.compareAndSet(-1, 8));
    EXPECT_FALSE(value.compareAndSet(-1, 9));
    EXPECT_EQ(value.get(), 8);
    value.setDirect(3);
    EXPECT_EQ(value.get(), 3);
}

TEST(LockTest, LetsOneThreadInAtATime)
{
    SpinLock spinLock;
    CriticalSection section;
    int spun = 0;
    int entered = 0;
    countUp(4, 5000,
            [&]
            {
                spinLock.lock();
                ++spun;
                spinLock.unlock();
                ScopedLock<CriticalSection> lock(section);
                ++entered;
            });
    EXPECT_EQ(spun, 20000);
    EXPECT_EQ(entered, 20000);
}

TEST(LockTest, CriticalSectionIsRecursiveOnOneThreadOnly)
{
    CriticalSection section;
    section.enter();
    EXPECT_TRUE(section.tryEnter());
    const auto tryElsewhere = [&]
    {
        bool entered = false;
        std::thread([&] { entered = section.tryEnter() && (section.leave(), true); }).join();
        return entered;
    };
    section.leave();
    EXPECT_FALSE(tryElsewhere()) << "left once, entered twice";
    section.leave();
    EXPECT_TRUE(tryElsewhere());
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

TEST(EventTest, WakesASleeperForEachSignal)
{
    Event there;
    Event back;
    std::thread echo(
        [&]
        {
            for (int i = 0; i < 200; ++i)
            {
                there.wait(0xFFFFFFFF);
                if (i % 50 == 0)
                    Thread::sleep(2);
                back.set();
            }
        });
    for (int i = 0; i < 200; ++i)
    {
        there.set();
        EXPECT_EQ(back.wait(0xFFFFFFFF), 0u);
    }
    echo.join();
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

TEST(SemaphoreTest, LetsAsManyThroughAsItWasSignalled)
{
    Semaphore semaphore(1000, 0);
    Atomic through;
    std::thread signaller([&] { countUp(2, 400, [&] { semaphore.signal(); }); });
    countUp(4, 200,
            [&]
            {
                EXPECT_EQ(semaphore.wait(), 1u);
                through.increment();
            });
    signaller.join();
    EXPECT_EQ(through.get(), 800);
    EXPECT_FALSE(semaphore.tryWait());
}

TEST(SemaphoreTest, EndsTheWaitsWhenItIsDeleted)
{
    auto semaphore = std::make_unique<Semaphore>(1, 0);
    Semaphore* waited = semaphore.get();
    std::vector<std::thread> waiters;
    for (int i = 0; i < 3; ++i)
        waiters.emplace_back([waited] { EXPECT_EQ(waited->wait(), 0u); });
    Thread::sleep(50);
    semaphore.reset();
    for (std::thread& waiter : waiters)
        waiter.join();
}

TEST(ThreadTest, RunsBehindItsGateUntilItIsToldToEnd)
{
    Atomic entered;
    TestThread thread(
        [&](TestThread& self)
        {
            entered.set(1);
            while (!self.checkTerminateRequest())
                Thread::yield();
            entered.set(2);
        });
    Thread::sleep(5);
    EXPECT_EQ(entered.get(), 0);
    EXPECT_EQ(thread.getStatus(), Thread::Created);

    thread.run();
    while (entered.get() != 1)
        Thread::yield();
    EXPECT_EQ(thread.getStatus(), Thread::Running);

    thread.terminate();
    thread.waitForTermination();
    EXPECT_EQ(entered.get(), 2);
    EXPECT_EQ(thread.getStatus(), Thread::Terminated);
    thread.terminate();
    thread.waitForTermination();
    EXPECT_EQ(thread.getStatus(), Thread::Terminated);
}

TEST(ThreadTest, NeverExecutesWhatWasTerminatedAtTheGate)
{
    Atomic entered;
    {
        TestThread thread([&](TestThread&) { entered.set(1); });
        thread.terminate();
        EXPECT_EQ(thread.getStatus(), Thread::Terminating);
        thread.run();
    }
    EXPECT_EQ(entered.get(), 0);
}

TEST(ThreadTest, HasAStackOfAMebibyteAndFollowsItsPriorityDownwards)
{
    std::size_t stackSize = 0;
    int before = 0;
    int after = 0;
    {
        Event changed;
        Event ready;
        TestThread thread(
            [&](TestThread&)
            {
                pthread_attr_t attributes;
                pthread_getattr_np(pthread_self(), &attributes);
                pthread_attr_getstacksize(&attributes, &stackSize);
                pthread_attr_destroy(&attributes);
                before = nice(0);
                ready.set();
                changed.wait(0xFFFFFFFF);
                after = nice(0);
            });
        thread.run();
        ready.wait(0xFFFFFFFF);
        thread.setPriority(Thread::ePriority::Lowest);
        thread.setPriority(Thread::ePriority::Highest);
        changed.set();
        thread.waitForTermination();
    }
    EXPECT_GE(stackSize, 0x100000u);
    EXPECT_EQ(after, 19) << "from " << before;
}
