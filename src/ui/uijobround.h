#pragma once

#include "foundation/jobsystem.h"

#include <cstdint>

class UIBase;

// Works through any number of roots, at first on the calling thread alone, and with all threads of the JobSystem when
// that takes long. A round has one job for each thread, which is as many as JobSystem takes, and each job goes on with
// the next root until there are none: that balances roots of unequal size, and a thread that comes late holds nobody
// up.
class UIJobRound
{
public:
    // What the roots of one round may number.
    static constexpr unsigned int MaximumRootNum = 64;

    struct sRoot
    {
        UIBase* element;
        unsigned int level;
    };

    // The work on one root. `uniqueData` is that of the thread.
    using Work = void (*)(const sRoot& root, void* uniqueData);

    UIJobRound(JobSystem& jobSystem, Work work) : mJobSystem(jobSystem), mWork(work) {}
    ~UIJobRound() { execute(); }

    UIJobRound(const UIJobRound&) = delete;
    UIJobRound& operator=(const UIJobRound&) = delete;

    // All roots so far are done if this one begins a new round.
    void add(const sRoot& root);

    // Returns when all roots so far are done.
    void execute();

    // For tests: how long a round stays on the calling thread, in nanoseconds. With 0 all of it are jobs.
    static void setPatience(std::uint64_t patience) { mPatience = patience; }

    // The roots that wait for their round.
    unsigned int size() const { return mSize; }

private:
    class RoundJob;

    // A thirtieth of a frame. By the time that a woken thread gets going, another one has done several windows of usual
    // size; and what it paints, the main thread has to fetch from its processor for the replay.
    static inline std::uint64_t mPatience = 500000;

    void executeAlone();
    bool executeNext(void* uniqueData);

    JobSystem& mJobSystem;
    Work mWork;
    sRoot mRoots[MaximumRootNum];
    unsigned int mSize = 0;
    Atomic mNext;

    // What the calling thread has spent on its own, in nanoseconds.
    std::uint64_t mTimeAlone = 0;
};
