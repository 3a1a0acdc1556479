#include "ui/uijobround.h"

#include "application/application.h"

#include <algorithm>

class UIJobRound::RoundJob : public JobSystem::JobBase
{
public:
    explicit RoundJob(UIJobRound& round) : mRound(round) {}

    void execute(void* uniqueData) override
    {
        while (mRound.executeNext(uniqueData))
        {
        }
    }

private:
    UIJobRound& mRound;
};

void UIJobRound::add(const sRoot& root)
{
    if (mSize == MaximumRootNum)
        execute();
    mRoots[mSize++] = root;
}

// A round takes the memory of its jobs with it, so they are made here and not earlier.
void UIJobRound::execute()
{
    executeAlone();
    const unsigned int begunNum = static_cast<unsigned int>(mNext.get());
    const unsigned int jobNum = std::min(mSize - std::min(begunNum, mSize), mJobSystem.getJobThreadNum());
    for (unsigned int i = 0; i < jobNum; ++i)
        mJobSystem.addJob(new RoundJob(*this));
    mJobSystem.executeJob();
    mSize = 0;
    mNext.setDirect(0);
}

void UIJobRound::executeAlone()
{
    std::uint64_t begin = Application::getAbsoluteCount();
    while (mTimeAlone < mPatience && executeNext(mJobSystem.getThreadUniqueData(0)))
    {
        const std::uint64_t end = Application::getAbsoluteCount();
        mTimeAlone += end - begin;
        begin = end;
    }
}

// False if none is left.
bool UIJobRound::executeNext(void* uniqueData)
{
    const unsigned int next = static_cast<unsigned int>(mNext.increment());
    if (next >= mSize)
        return false;
    mWork(mRoots[next], uniqueData);
    return true;
}
