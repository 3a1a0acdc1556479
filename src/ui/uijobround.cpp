#include "ui/uijobround.h"

#include <algorithm>

class UIJobRound::RoundJob : public JobSystem::JobBase
{
public:
    explicit RoundJob(UIJobRound& round) : mRound(round) {}

    void execute(void* uniqueData) override
    {
        for (;;)
        {
            const unsigned int next = static_cast<unsigned int>(mRound.mNext.increment());
            if (next >= mRound.mSize)
                return;
            mRound.mWork(mRound.mRoots[next], uniqueData);
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

// A round takes the memory of its jobs with it, so they are made here and not earlier. To wake a thread takes about as
// long as a root of usual size, so each job is to have two of them.
void UIJobRound::execute()
{
    const unsigned int jobNum = std::min((mSize + 1) / 2, mJobSystem.getJobThreadNum());
    for (unsigned int i = 0; i < jobNum; ++i)
        mJobSystem.addJob(new RoundJob(*this));
    mJobSystem.executeJob();
    mSize = 0;
    mNext.setDirect(0);
}
