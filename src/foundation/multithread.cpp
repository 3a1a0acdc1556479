#include "foundation/multithread.h"

#include "foundation/dev.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <ctime>
#include <iterator>

#include <emmintrin.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{
constexpr unsigned int AttemptNum = 15;
constexpr unsigned int LongestWait = 0x7ffffffe;
constexpr std::size_t MinimumStackSize = 0x100000;

// By priority, highest first.
constexpr int Nicenesses[] = {0, 2, 5, 10, 15, 19};

timespec addMilliseconds(timespec time, unsigned int milliseconds)
{
    constexpr long Second = 1000000000;
    const long nanoseconds = time.tv_nsec + static_cast<long>(milliseconds % 1000) * 1000000;
    return {time.tv_sec + static_cast<time_t>(milliseconds / 1000) + nanoseconds / Second, nanoseconds % Second};
}

timespec afterMilliseconds(unsigned int milliseconds)
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return addMilliseconds(now, milliseconds);
}

// A thread that waits looks for some 30 microseconds before it sleeps: about as long as to fall asleep and to be woken
// take. Two threads that hand work to each other stay awake that way, while with less patience each would be on its
// way to sleep whenever the other calls. After each run of looks it lets others use the processor, which may be the
// very one that the awaited thread needs.
constexpr unsigned int LookRunNum = 15;
constexpr unsigned int LookNum = 64;
}

void SpinLock::lockPatiently()
{
    for (unsigned int attempt = 1; !tryLock(); ++attempt)
    {
        if (attempt % AttemptNum == 0)
            Thread::yield();
        else
            _mm_pause();
    }
}

CriticalSection::CriticalSection()
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    const int result = pthread_mutex_init(&mMutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    if (result != 0)
        dev_assert("Could not create critical section.", __FILE__, __LINE__);
}

CriticalSection::~CriticalSection()
{
    pthread_mutex_destroy(&mMutex);
}

WaitingRoom::WaitingRoom(const char* creationFailure, const char* waitFailure) : mpWaitFailure(waitFailure)
{
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    const int result = pthread_cond_init(&mCondition, &attributes);
    pthread_condattr_destroy(&attributes);
    if (result != 0 || pthread_mutex_init(&mMutex, nullptr) != 0)
        dev_assert(creationFailure, __FILE__, __LINE__);
}

WaitingRoom::~WaitingRoom()
{
    pthread_cond_destroy(&mCondition);
    pthread_mutex_destroy(&mMutex);
}

template <typename Ready>
bool WaitingRoom::wait(Ready ready, unsigned int milliseconds)
{
    if (ready())
        return true;

    mVisitorNum.fetch_add(1);
    const bool done = look(ready) || sleepUntil(ready, milliseconds);
    mVisitorNum.fetch_sub(1);
    return done;
}

template <typename Ready>
bool WaitingRoom::look(Ready ready)
{
    for (unsigned int run = 0; run < LookRunNum; ++run)
    {
        for (unsigned int i = 0; i < LookNum; ++i)
        {
            _mm_pause();
            if (ready())
                return true;
        }
        Thread::yield();
    }
    return false;
}

// The sleeper makes itself known before it looks, the waker looks for sleepers after its change: one sees the other.
template <typename Ready>
bool WaitingRoom::sleepUntil(Ready ready, unsigned int milliseconds)
{
    const timespec deadline = afterMilliseconds(milliseconds);
    check(pthread_mutex_lock(&mMutex));
    mSleeperNum.fetch_add(1);
    bool done = ready();
    for (int result = 0; !done && result != ETIMEDOUT; done = ready())
    {
        result = milliseconds == Forever ? pthread_cond_wait(&mCondition, &mMutex)
                                         : pthread_cond_timedwait(&mCondition, &mMutex, &deadline);
        if (result != ETIMEDOUT)
            check(result);
    }
    mSleeperNum.fetch_sub(1);
    check(pthread_mutex_unlock(&mMutex));
    return done;
}

void WaitingRoom::wakeOne()
{
    if (mSleeperNum.load() == 0)
        return;

    // A sleeper holds the lock from its look until it is asleep, so that the signal does not come in between.
    check(pthread_mutex_lock(&mMutex));
    check(pthread_mutex_unlock(&mMutex));
    check(pthread_cond_signal(&mCondition));
}

void WaitingRoom::empty()
{
    while (mVisitorNum.load() != 0)
    {
        check(pthread_mutex_lock(&mMutex));
        check(pthread_cond_broadcast(&mCondition));
        check(pthread_mutex_unlock(&mMutex));
        Thread::yield();
    }
}

void WaitingRoom::check(int result) const
{
    if (result != 0)
        dev_assert(mpWaitFailure, __FILE__, __LINE__);
}

Event::Event() : mRoom("Could not create event.", "MPWaitForEvent occur error.")
{
}

void Event::set()
{
    mSignalled.store(true);
    mRoom.wakeOne();
}

unsigned int Event::wait(unsigned int milliseconds)
{
    // On purpose: 0xFFFFFFFF is limited like any other value, so that a wait for ever ends after some 24.8 days.
    const unsigned int limited = std::min(milliseconds, LongestWait);
    return mRoom.wait([this] { return mSignalled.load() && mSignalled.exchange(false); }, limited) ? 0 : 1;
}

Semaphore::Semaphore(unsigned int maximum, unsigned int initial)
    : mMaximum(maximum), mCount(initial), mRoom("Could not create semaphore.", "MPWaitOnSemaphore returns error.")
{
}

Semaphore::~Semaphore()
{
    mDeleted.store(true);
    mRoom.empty();
}

unsigned int Semaphore::signal()
{
    unsigned int count = mCount.load();
    do
    {
        if (count >= mMaximum)
            return 0;
    } while (!mCount.compare_exchange_weak(count, count + 1));
    mRoom.wakeOne();
    return 1;
}

unsigned int Semaphore::wait()
{
    bool acquired = false;
    mRoom.wait([&] { return (acquired = tryWait()) || mDeleted.load(); }, WaitingRoom::Forever);
    return acquired ? 1 : 0;
}

bool Semaphore::tryWait()
{
    unsigned int count = mCount.load();
    while (count != 0)
        if (mCount.compare_exchange_weak(count, count - 1))
            return true;
    return false;
}

Thread::Thread(unsigned int stackSize)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, std::max<std::size_t>(stackSize, MinimumStackSize));
    const int result = pthread_create(&mThread, &attributes, &Thread::innerFunction, this);
    pthread_attr_destroy(&attributes);
    if (result != 0)
        dev_assert("Could not create thread.", __FILE__, __LINE__);
}

Thread::~Thread()
{
    terminate();
    waitForTermination();
}

void Thread::run()
{
    mGate.set();
}

void Thread::terminate()
{
    if (mStatus.compareAndSet(Created, Terminating))
        mGate.set();
    else
        mStatus.compareAndSet(Running, Terminating);
}

void Thread::waitForTermination()
{
    if (mStatus.get() == Terminated)
        return;
    pthread_join(mThread, nullptr);
    mStatus.setDirect(Terminated);
}

void Thread::setPriority(ePriority priority)
{
    mNiceness.set(Nicenesses[static_cast<unsigned int>(priority)]);
    applyPriority();
}

void Thread::sleep(unsigned int milliseconds)
{
    const timespec wakeUp = afterMilliseconds(milliseconds);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &wakeUp, nullptr) == EINTR)
    {
    }
}

void Thread::yield()
{
    sched_yield();
}

void Thread::letOthersFirst()
{
    const sched_param unused = {};
    sched_setscheduler(0, SCHED_BATCH, &unused);
}

void* Thread::innerFunction(void* thread)
{
    static_cast<Thread*>(thread)->prepare();
    return nullptr;
}

void Thread::prepare()
{
    mSystemID.set(static_cast<int>(syscall(SYS_gettid)));
    applyPriority();
    mGate.wait(0xFFFFFFFF);
    if (mStatus.compareAndSet(Created, Running))
        execute();
}

// Called by whoever sets the priority and by the thread once its id is known, so that one of both knows both.
void Thread::applyPriority()
{
    const int id = mSystemID.get();
    const int niceness = mNiceness.get();
    if (id != 0 && niceness > getpriority(PRIO_PROCESS, static_cast<id_t>(id)))
        setpriority(PRIO_PROCESS, static_cast<id_t>(id), niceness);
}
