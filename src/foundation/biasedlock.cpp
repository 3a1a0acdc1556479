#include "foundation/biasedlock.h"

#include <linux/membarrier.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
bool callBarrier(int command)
{
    return syscall(SYS_membarrier, command, 0, 0) == 0;
}

// Not every kernel has the barrier or lets a program use it.
bool isBarrierThere()
{
    static const bool isThere = callBarrier(MEMBARRIER_CMD_REGISTER_PRIVATE_EXPEDITED);
    return isThere;
}
}

LockBias::LockBias() : mShared(!isBarrierThere())
{
}

// The barrier puts a fence into all threads. Before it the home thread has said that it is inside, or it sees
// afterwards that it may not enter.
void LockBias::takeAway()
{
    if (mShared.load(std::memory_order_relaxed)) [[likely]]
        return;
    mShared.store(true, std::memory_order_release);
    static_cast<void>(callBarrier(MEMBARRIER_CMD_PRIVATE_EXPEDITED));
    while (mAlone.load(std::memory_order_acquire))
        Thread::yield();
}
