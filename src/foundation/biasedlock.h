#pragma once

#include "foundation/multithread.h"

#include <atomic>

// A spin lock for what one thread does nearly alone. The thread that makes it takes and leaves it by plain writes,
// where a SpinLock needs a locked instruction. The first other thread to come ends that for good: from then on it is a
// SpinLock for everybody. Not recursive.
class BiasedLock
{
public:
    BiasedLock();
    BiasedLock(const BiasedLock&) = delete;
    BiasedLock& operator=(const BiasedLock&) = delete;

    // Calls `work` with the lock taken and returns what that returns.
    template <typename Work>
    auto run(Work work)
    {
        if (mpHome != &mHere || !enterAlone()) [[unlikely]]
            return runShared(work);

        const auto result = work();
        mAlone.store(false, std::memory_order_release);
        return result;
    }

private:
    // Says that the home thread is inside, then looks whether that is still its right. The processor may do the two in
    // the other order; whoever takes the right away makes up for that.
    bool enterAlone()
    {
        mAlone.store(true, std::memory_order_relaxed);
        std::atomic_signal_fence(std::memory_order_seq_cst);
        if (!mShared.load(std::memory_order_acquire)) [[likely]]
            return true;
        mAlone.store(false, std::memory_order_release);
        return false;
    }

    template <typename Work>
    [[gnu::noinline]] auto runShared(Work work)
    {
        lockShared();
        const auto result = work();
        mSpinLock.unlock();
        return result;
    }

    void lockShared();
    void share();

    // Its address tells the threads apart.
    static inline thread_local constinit char mHere = 0;

    const char* const mpHome = &mHere;
    std::atomic<bool> mAlone = false;
    std::atomic<bool> mShared;
    SpinLock mSpinLock;
};
