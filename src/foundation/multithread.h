#pragma once

#include <atomic>

#include <pthread.h>

// One 32-bit value. Every modifying operation returns the value from before the change.
class Atomic
{
public:
    constexpr Atomic(int value = 0) : mValue(value) {}

    Atomic(const Atomic&) = delete;
    Atomic& operator=(const Atomic&) = delete;

    int get() const { return mValue.load(std::memory_order_acquire); }
    void setDirect(int value) { mValue.store(value, std::memory_order_release); }

    int set(int value)
    {
        for (;;)
        {
            const int old = add(0);
            if (compareAndSet(old, value))
                return old;
        }
    }

    // True if the value was `expected` and is now `desired`.
    bool compareAndSet(int expected, int desired) { return mValue.compare_exchange_strong(expected, desired); }

    int increment() { return mValue.fetch_add(1); }
    int decrement() { return mValue.fetch_sub(1); }
    int add(int amount) { return mValue.fetch_add(amount); }
    int sub(int amount) { return mValue.fetch_sub(amount); }

private:
    std::atomic<int> mValue;
};

// For critical work of a few instructions. Not recursive.
class SpinLock
{
public:
    SpinLock() = default;
    SpinLock(const SpinLock&) = delete;
    SpinLock& operator=(const SpinLock&) = delete;

    void lock()
    {
        if (!tryLock())
            lockPatiently();
    }

    void unlock() { mWord.store(Free, std::memory_order_release); }

private:
    static constexpr int Free = 0;
    static constexpr int Taken = 4;

    bool tryLock()
    {
        int expected = Free;
        return mWord.load(std::memory_order_relaxed) == Free &&
               mWord.compare_exchange_strong(expected, Taken, std::memory_order_acquire);
    }

    void lockPatiently();

    std::atomic<int> mWord = Free;
};

// A recursive lock, held inline so that entering it never allocates.
class CriticalSection
{
public:
    CriticalSection();
    ~CriticalSection();

    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void enter() { pthread_mutex_lock(&mMutex); }
    bool tryEnter() { return pthread_mutex_trylock(&mMutex) == 0; }
    void leave() { pthread_mutex_unlock(&mMutex); }

private:
    pthread_mutex_t mMutex;
};

// Holds anything with enter() and leave() for the length of a scope; null holds nothing.
template <typename Lock>
class ScopedLock
{
public:
    explicit ScopedLock(Lock* lock) : mpLock(lock)
    {
        if (mpLock)
            mpLock->enter();
    }

    explicit ScopedLock(Lock& lock) : ScopedLock(&lock) {}

    ~ScopedLock()
    {
        if (mpLock)
            mpLock->leave();
    }

    ScopedLock(const ScopedLock&) = delete;
    ScopedLock& operator=(const ScopedLock&) = delete;

private:
    Lock* mpLock;
};

// Where threads wait for something that others change: for a moment awake, then asleep. Whoever has made it true calls
// wakeOne() afterwards, which costs one look while nobody sleeps.
class WaitingRoom
{
public:
    // The texts of the assertions for a room that cannot be made and for a wait that fails.
    WaitingRoom(const char* creationFailure, const char* waitFailure);
    ~WaitingRoom();

    WaitingRoom(const WaitingRoom&) = delete;
    WaitingRoom& operator=(const WaitingRoom&) = delete;

    static constexpr unsigned int Forever = 0xffffffff;

    // Returns once `ready` says true, or false when the time to sleep is over.
    template <typename Ready>
    bool wait(Ready ready, unsigned int milliseconds);

    void wakeOne();

    // Wakes everybody, whose condition must be true by now, and returns when they are gone.
    void empty();

private:
    template <typename Ready>
    static bool look(Ready ready);
    template <typename Ready>
    bool sleepUntil(Ready ready, unsigned int milliseconds);

    void check(int result) const;

    const char* mpWaitFailure;
    pthread_mutex_t mMutex;
    pthread_cond_t mCondition;
    std::atomic<unsigned int> mVisitorNum = 0;
    std::atomic<unsigned int> mSleeperNum = 0;
};

// A gate for one waiter: wait() consumes the signal, a set() without a waiter is kept. It must outlive each call of
// set().
class Event
{
public:
    Event();

    void set();

    // 0 when signalled, 1 after `milliseconds`, of which there are at most 0x7ffffffe.
    unsigned int wait(unsigned int milliseconds);

private:
    std::atomic<bool> mSignalled = false;
    WaitingRoom mRoom;
};

class Semaphore
{
public:
    Semaphore(unsigned int maximum, unsigned int initial);
    ~Semaphore();

    // 1 when done, 0 when the count was at its maximum.
    unsigned int signal();

    // Waits without limit; 1 when acquired, 0 when the semaphore is being deleted.
    unsigned int wait();

    // Takes a signal that is there; false when there is none.
    bool tryWait();

private:
    unsigned int mMaximum;
    std::atomic<unsigned int> mCount;
    std::atomic<bool> mDeleted = false;
    WaitingRoom mRoom;
};

// A thread that waits at a gate until run(). A concrete class terminates, wakes and waits for its thread in its own
// destructor, since the thread must not outlive the members that it uses.
class Thread
{
public:
    // Highest first.
    enum class ePriority
    {
        Highest,
        Higher,
        High,
        Normal,
        Low,
        Lowest,
    };

    enum eStatus
    {
        Created = 0,
        Running = 1,
        Terminating = 2,
        Terminated = 3,
    };

    // `stackSize` in bytes is a minimum; at least 1 MiB is used.
    explicit Thread(unsigned int stackSize);
    virtual ~Thread();

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    void run();
    void terminate();
    void waitForTermination();

    int getStatus() const { return mStatus.get(); }
    bool checkTerminateRequest() const { return mStatus.get() == Terminating; }

    // Only a hint to the scheduler, which follows downwards; failure is ignored.
    void setPriority(ePriority priority);

    static void sleep(unsigned int milliseconds);
    static void yield();

    // From now on the calling thread waits for its turn when it wakes up. Otherwise it may push the very thread that
    // has woken it off its processor, even while another one is idle. Only a hint like the priority.
    static void letOthersFirst();

private:
    // Runs on the new thread; polls checkTerminateRequest().
    virtual void execute() = 0;

    void prepare();
    static void* innerFunction(void* thread);

    void applyPriority();

    pthread_t mThread;
    Event mGate;
    Atomic mStatus;
    Atomic mSystemID;
    Atomic mNiceness;
};
