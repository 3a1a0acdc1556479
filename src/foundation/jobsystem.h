#pragma once

#include "application/system.h"
#include "foundation/instantallocator.h"
#include "foundation/multithread.h"
#include "foundation/singleton.h"

#include <cstddef>
#include <type_traits>

// Fork and join: the main thread queues jobs, calls executeJob(), works along and returns when all are done. Nothing
// runs in between. Only the main thread may add and execute jobs; a job may do neither.
class JobSystem : public System, public Singleton<JobSystem>
{
    REFLECTED(JobSystem)

public:
    static constexpr unsigned int QueueSize = 1024;
    static constexpr unsigned int MaximumThreadNum = 16;

    class JobBase;
    class LoopJobBase;

    template <typename T>
    class Job;

    template <typename T, typename I>
    class LoopJob;

    void destroy() override;

    // Takes the job, which must come from `new` and lives until the end of executeJob().
    void addJob(JobBase* job);

    // Runs the queued jobs, in the order of the queue, each on the first thread that is free for it. With more than one
    // thread there must not be more jobs than threads.
    void executeJob();

    // Calls the method once for each index from `begin` up to `end`, dealt out to the threads in turn.
    template <typename T, typename I>
    void executeLoopJob(T* object, void (T::*method)(I, void*), std::type_identity_t<I> begin,
                        std::type_identity_t<I> end, void* argument);

    // Calls a LoopJobBase until it is through.
    void loopJob(void* loopJob);

    // Counts the main thread; limited to 1 through MaximumThreadNum. A change ends all workers and makes new ones,
    // without unique data.
    unsigned int getJobThreadNum() const { return mJobThreadNum; }
    void setJobThreadNum(unsigned int threadNum);
    bool isMultiThreading() const { return mJobThreadNum > 1; }

    // What a thread hands to each job that it runs; not owned. Thread 0 is the main thread. An unknown thread is
    // ignored and reads as null.
    void setThreadUniqueData(unsigned int thread, void* data);
    void* getThreadUniqueData(unsigned int thread) const;

    // The memory of jobs, reclaimed as a whole at the end of executeJob().
    static void* allocateJob(unsigned int size);
    static void deallocateJob(void* block);

    void makeUIList(List<UIBase>& list) override;

private:
    friend Singleton<JobSystem>;

    class JobThread;

    JobSystem(unsigned int jobMemorySize, unsigned int threadNum);
    ~JobSystem() override;

    void createJobThread();
    void deleteJobThread();

    unsigned int getQueueLength() const { return static_cast<unsigned int>(mpQueueEnd - mQueue); }
    void executeWithThreads();
    void startNextThread();
    void takeBackStarts();
    JobBase* getJob();
    void endJob();
    void clearJobQueue();

    JobBase* mQueue[QueueSize];
    JobBase** mpQueueEnd = mQueue;
    JobThread* mpThread[MaximumThreadNum] = {};
    InstantAllocator mJobAllocator;
    void* mpUniqueData = nullptr;
    unsigned int mJobThreadNum;
    Atomic mNextJob;
    Atomic mFinishedNum;
    Event mAllDone;

    // Of the workers that the round may use, how many have been started.
    unsigned int mWorkerNum = 0;
    Atomic mStartedNum;
    bool mExecuting = false;
};

// A piece of work in the memory of the JobSystem.
class JobSystem::JobBase
{
public:
    virtual ~JobBase() = default;

    // `uniqueData` is that of the thread that runs the job.
    virtual void execute(void* uniqueData) = 0;

    static void* operator new(std::size_t size) noexcept { return allocateJob(static_cast<unsigned int>(size)); }
    static void operator delete(void* block) { deallocateJob(block); }
};

// A job that is called again until it returns false. The memory of the JobSystem is all that ends it.
class JobSystem::LoopJobBase
{
public:
    virtual ~LoopJobBase() = default;
    virtual bool execute() = 0;

    static void* operator new(std::size_t size) noexcept { return allocateJob(static_cast<unsigned int>(size)); }
    static void operator delete(void* block) { deallocateJob(block); }
};

// A call of a member function with an argument.
template <typename T>
class JobSystem::Job : public JobBase
{
public:
    Job(T* object, void (T::*method)(void*), void* argument) : mpObject(object), mpMethod(method), mpArgument(argument)
    {
    }

    void execute(void*) override { (mpObject->*mpMethod)(mpArgument); }

private:
    T* mpObject;
    void (T::*mpMethod)(void*);
    void* mpArgument;
};

// Calls of a member function with every `step`-th index.
template <typename T, typename I>
class JobSystem::LoopJob : public LoopJobBase
{
public:
    LoopJob(T* object, void (T::*method)(I, void*), void* argument, I begin, I end, I step)
        : mpObject(object), mpMethod(method), mpArgument(argument), mIndex(begin), mEnd(end), mStep(step)
    {
    }

    bool execute() override
    {
        if (mIndex >= mEnd)
            return false;
        (mpObject->*mpMethod)(mIndex, mpArgument);
        mIndex += mStep;
        return true;
    }

private:
    T* mpObject;
    void (T::*mpMethod)(I, void*);
    void* mpArgument;
    I mIndex;
    I mEnd;
    I mStep;
};

template <typename T, typename I>
void JobSystem::executeLoopJob(T* object, void (T::*method)(I, void*), std::type_identity_t<I> begin,
                               std::type_identity_t<I> end, void* argument)
{
    const I step = static_cast<I>(mJobThreadNum);
    const auto addLoop = [&](I first)
    {
        addJob(new Job<JobSystem>(this, &JobSystem::loopJob,
                                  new LoopJob<T, I>(object, method, argument, first, end, step)));
    };

    if (!isMultiThreading())
        addLoop(begin);
    else
        for (I i = 0; i < step && begin + i < end; ++i)
            addLoop(begin + i);
    executeJob();
}
