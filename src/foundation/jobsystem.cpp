#include "foundation/jobsystem.h"

#include "foundation/dev.h"

#include <algorithm>

#include <unistd.h>

REFLECT(JobSystem, eTypeAttribute::Singleton, "System");

namespace
{
constexpr unsigned int WorkerStackSize = 4096;
constexpr unsigned int JobAlignment = alignof(void*);

unsigned int limitThreadNum(unsigned int threadNum)
{
    return std::clamp(threadNum, 1u, JobSystem::MaximumThreadNum);
}

// More workers than there are other processors are started one by one, as long as there is work left for them.
unsigned int getImmediateNum()
{
    static const long processorNum = sysconf(_SC_NPROCESSORS_ONLN);
    return processorNum > 2 ? static_cast<unsigned int>(processorNum - 1) : 1;
}
}

// Sleeps until a round starts it, then runs jobs until there are none.
class JobSystem::JobThread : public Thread
{
public:
    explicit JobThread(JobSystem* jobSystem) : Thread(WorkerStackSize), mpJobSystem(jobSystem) {}

    ~JobThread() override
    {
        terminate();
        start();
        waitForTermination();
    }

    static void* operator new(std::size_t size) noexcept { return System::allocate(static_cast<unsigned int>(size)); }
    static void operator delete(void* block) { System::deallocate(block); }

    void start() { mStart.signal(); }

    // True if the worker has not noticed its start and never will.
    bool takeBackStart() { return mStart.tryWait(); }

    void setUniqueData(void* data) { mpUniqueData = data; }
    void* getUniqueData() const { return mpUniqueData; }

private:
    void execute() override;

    Semaphore mStart{1, 0};
    void* mpUniqueData = nullptr;
    JobSystem* mpJobSystem;
};

void JobSystem::JobThread::execute()
{
    letOthersFirst();
    for (;;)
    {
        if (mStart.wait() == 0)
            dev_assert("Event error.", __FILE__, __LINE__);
        if (checkTerminateRequest())
            return;

        JobBase* job = mpJobSystem->getJob();
        if (job)
            mpJobSystem->startNextThread();
        for (; job; job = mpJobSystem->getJob())
            job->execute(mpUniqueData);
        mpJobSystem->endJob();
    }
}

JobSystem::JobSystem(unsigned int jobMemorySize, unsigned int threadNum)
    : Singleton("JobSystem already instanced."),
      mJobAllocator(jobMemorySize, "JobSystem", System::getAllocator(), true),
      mJobThreadNum(limitThreadNum(threadNum))
{
    setProcessEnable(false, false, false);
    createJobThread();
    DEV_TRACE("JobSystem : start.\n");
}

JobSystem::~JobSystem()
{
    deleteJobThread();
    DEV_TRACE("JobSystem : end.\n");
}

void JobSystem::destroy()
{
    delete this;
}

void JobSystem::addJob(JobBase* job)
{
    // On purpose: a full queue drops the job without a word.
    if (getQueueLength() < QueueSize)
        *mpQueueEnd++ = job;
}

void JobSystem::executeJob()
{
    if (getQueueLength() == 0)
        return;

    mExecuting = true;
    if (isMultiThreading())
        executeWithThreads();
    else
        std::for_each(mQueue, mpQueueEnd, [this](JobBase* job) { job->execute(mpUniqueData); });
    mExecuting = false;

    clearJobQueue();
    mFinishedNum.setDirect(0);
}

void JobSystem::loopJob(void* loopJob)
{
    LoopJobBase* loop = static_cast<LoopJobBase*>(loopJob);
    while (loop->execute())
    {
    }
}

void JobSystem::setJobThreadNum(unsigned int threadNum)
{
    if (mExecuting)
        dev_assert("Jobs are being executed.", __FILE__, __LINE__);

    const unsigned int limited = limitThreadNum(threadNum);
    if (limited == mJobThreadNum)
        return;
    deleteJobThread();
    mJobThreadNum = limited;
    createJobThread();
}

void JobSystem::setThreadUniqueData(unsigned int thread, void* data)
{
    if (thread == 0)
        mpUniqueData = data;
    else if (thread < mJobThreadNum)
        mpThread[thread - 1]->setUniqueData(data);
}

void* JobSystem::getThreadUniqueData(unsigned int thread) const
{
    if (thread == 0)
        return mpUniqueData;
    return thread < mJobThreadNum ? mpThread[thread - 1]->getUniqueData() : nullptr;
}

void* JobSystem::allocateJob(unsigned int size)
{
    return getInstance()->mJobAllocator.allocate(static_cast<int>(size), JobAlignment);
}

void JobSystem::deallocateJob(void*)
{
}

void JobSystem::createJobThread()
{
    for (unsigned int i = 0; i + 1 < mJobThreadNum; ++i)
    {
        mpThread[i] = new JobThread(this);
        if (!mpThread[i])
            dev_assert("Not enough memory.", __FILE__, __LINE__);
        mpThread[i]->run();
    }
}

void JobSystem::deleteJobThread()
{
    for (unsigned int i = 0; i + 1 < mJobThreadNum; ++i)
    {
        delete mpThread[i];
        mpThread[i] = nullptr;
    }
}

void JobSystem::executeWithThreads()
{
    mWorkerNum = std::min(mJobThreadNum, getQueueLength()) - 1;
    const unsigned int immediateNum = std::min(mWorkerNum, getImmediateNum());
    mStartedNum.setDirect(static_cast<int>(immediateNum));
    for (unsigned int i = 0; i < immediateNum; ++i)
        mpThread[i]->start();

    while (JobBase* job = getJob())
        job->execute(mpUniqueData);
    endJob();
    takeBackStarts();
    mAllDone.wait(0xFFFFFFFF);
}

// A worker that has found a job looks whether another one is needed before it runs the job, so that every job gets a
// thread even if all others are stuck in theirs.
void JobSystem::startNextThread()
{
    if (static_cast<unsigned int>(mNextJob.get()) >= getQueueLength())
        return;
    const unsigned int next = static_cast<unsigned int>(mStartedNum.increment());
    if (next < mWorkerNum)
        mpThread[next]->start();
}

// Ends the round for the workers that have not begun it, since the queue is empty. Every worker's end is counted once:
// by the main thread if it was not started or its start could be taken back, otherwise by the worker, which has its
// start or is about to get it from the one that has raised the number of started ones.
void JobSystem::takeBackStarts()
{
    const unsigned int startedNum = static_cast<unsigned int>(mStartedNum.set(static_cast<int>(mWorkerNum)));
    for (unsigned int i = 0; i < mWorkerNum; ++i)
        if (i >= startedNum || mpThread[i]->takeBackStart())
            endJob();
}

JobSystem::JobBase* JobSystem::getJob()
{
    const unsigned int length = getQueueLength();
    if (length == 0)
        return nullptr;
    const unsigned int next = static_cast<unsigned int>(mNextJob.increment());
    return next < length ? mQueue[next] : nullptr;
}

void JobSystem::endJob()
{
    // The queue is read first: once the last thread has counted its end, the main thread clears it.
    // On purpose: the ends of threads are compared with the number of jobs, so that a queue longer than the number of
    // threads is never reported as done.
    const int last = static_cast<int>(getQueueLength()) - 1;
    if (mFinishedNum.increment() == last)
        mAllDone.set();
}

void JobSystem::clearJobQueue()
{
    std::for_each(mQueue, mpQueueEnd, [](JobBase* job) { job->~JobBase(); });
    mpQueueEnd = mQueue;
    mJobAllocator.clear();
    mNextJob.setDirect(0);
}
