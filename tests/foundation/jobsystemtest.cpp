#include "foundation/jobsystem.h"

#include <gtest/gtest.h>

#include <map>
#include <mutex>
#include <vector>

namespace
{
using Job = JobSystem::Job<class Recorder>;

// Notes who did what; several threads may write at once.
class Recorder
{
public:
    void note(void* argument)
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mNotes.push_back(static_cast<int>(reinterpret_cast<std::intptr_t>(argument)));
    }

    void noteIndex(unsigned int index, void*)
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mCalls[index]++;
    }

    static void* number(std::intptr_t value) { return reinterpret_cast<void*>(value); }

    std::vector<int> mNotes;
    std::map<unsigned int, int> mCalls;

private:
    std::mutex mMutex;
};
}

class JobSystemTest : public testing::TestWithParam<unsigned int>
{
protected:
    JobSystemTest() : mpJobSystem(JobSystem::create(0x20000, GetParam())) {}
    ~JobSystemTest() override { mpJobSystem->destroy(); }

    JobSystem* mpJobSystem;
    Recorder mRecorder;
};

using JobSystemOneThreadTest = JobSystemTest;
INSTANTIATE_TEST_SUITE_P(One, JobSystemOneThreadTest, testing::Values(1u));
INSTANTIATE_TEST_SUITE_P(Threads, JobSystemTest, testing::Values(1u, 2u, 4u, 16u));

TEST_P(JobSystemOneThreadTest, RunsTheQueueInOrderAndDropsJob1025)
{
    for (int i = 0; i < 1025; ++i)
        mpJobSystem->addJob(new Job(&mRecorder, &Recorder::note, Recorder::number(i)));
    mpJobSystem->executeJob();
    ASSERT_EQ(mRecorder.mNotes.size(), 1024u);
    for (int i = 0; i < 1024; ++i)
        EXPECT_EQ(mRecorder.mNotes[static_cast<unsigned int>(i)], i);
}

TEST_P(JobSystemTest, CallsEachIndexOnceHoweverOftenItIsAsked)
{
    mpJobSystem->executeLoopJob(&mRecorder, &Recorder::noteIndex, 3, 3, nullptr);
    EXPECT_TRUE(mRecorder.mCalls.empty());
    for (int round = 1; round <= 300; ++round)
    {
        if (round % 100 == 0)
            Thread::sleep(1);
        mpJobSystem->executeLoopJob(&mRecorder, &Recorder::noteIndex, 3, 19, nullptr);
        ASSERT_EQ(mRecorder.mCalls.size(), 16u);
        for (auto [index, callNum] : mRecorder.mCalls)
            ASSERT_EQ(callNum, round) << index;
    }
}
