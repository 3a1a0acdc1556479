#pragma once

#include "foundation/multithread.h"

#include <atomic>

// The right of the thread that made it to work alone, without a lock, until another thread takes the right away for
// good.
class LockBias
{
public:
    LockBias();
    LockBias(const LockBias&) = delete;
    LockBias& operator=(const LockBias&) = delete;

    // True if the calling thread is now alone inside, until it leaves. Says that the home thread is inside, then looks
    // whether that is still its right. The processor may do the two in the other order; takeAway() makes up for that.
    bool enter()
    {
        if (mpHome != &mHere) [[unlikely]]
            return false;
        mAlone.store(true, std::memory_order_relaxed);
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (!mShared.load(std::memory_order_acquire)) [[likely]]
            return true;
        leave();
        return false;
    }

    void leave() { mAlone.store(false, std::memory_order_release); }

    // From then on nobody enters, and nobody is inside. One thread at a time may call it.
    void takeAway();

private:
    // Its address tells the threads apart.
    static inline thread_local constinit char mHere = 0;

    const char* const mpHome = &mHere;
    std::atomic<bool> mAlone = false;
    std::atomic<bool> mShared;
};

// A lock for what one thread does nearly alone. The thread that makes it takes and leaves it by plain writes, where
// `Lock` needs locked instructions. The first other thread to come ends that: from then on it is a `Lock` for
// everybody. Not recursive.
template <typename Lock>
class BiasedLock
{
public:
    // Calls `work` with the lock taken and returns what that returns.
    template <typename Work>
    auto run(Work work)
    {
        if (!mBias.enter()) [[unlikely]]
            return runShared(work);
        const sAlone alone{mBias};
        return work();
    }

private:
    struct sAlone
    {
        ~sAlone() { bias.leave(); }

        LockBias& bias;
    };

    class Shared
    {
    public:
        explicit Shared(Lock& lock) : mrLock(lock) { take(mrLock); }
        ~Shared() { giveBack(mrLock); }

        Shared(const Shared&) = delete;
        Shared& operator=(const Shared&) = delete;

    private:
        static void take(SpinLock& lock) { lock.lock(); }
        static void take(CriticalSection& lock) { lock.enter(); }
        static void giveBack(SpinLock& lock) { lock.unlock(); }
        static void giveBack(CriticalSection& lock) { lock.leave(); }

        Lock& mrLock;
    };

    template <typename Work>
    [[gnu::noinline]] auto runShared(Work work)
    {
        const Shared shared(mLock);
        mBias.takeAway();
        return work();
    }

    LockBias mBias;
    Lock mLock;
};
