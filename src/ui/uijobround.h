#pragma once

#include "foundation/jobsystem.h"

// Runs any number of jobs in rounds of at most as many as there are threads, which is what JobSystem asks for. A round
// takes the memory of its jobs with it, so each job is made when it is to be added and not earlier.
class UIJobRound
{
public:
    explicit UIJobRound(JobSystem& jobSystem) : mJobSystem(jobSystem) {}
    ~UIJobRound() { execute(); }

    UIJobRound(const UIJobRound&) = delete;
    UIJobRound& operator=(const UIJobRound&) = delete;

    // Takes the job; all jobs so far are done if it completes the round.
    void add(JobSystem::JobBase* job)
    {
        mJobSystem.addJob(job);
        if (++mSize == mJobSystem.getJobThreadNum())
            execute();
    }

    // Runs a round that is not complete.
    void execute()
    {
        mJobSystem.executeJob();
        mSize = 0;
    }

    // The jobs that wait for their round.
    unsigned int size() const { return mSize; }

private:
    JobSystem& mJobSystem;
    unsigned int mSize = 0;
};
