#include "ui/uipaintround.h"

#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "ui/uibase.h"
#include "ui/uipainter.h"

namespace
{
class DrawJob : public JobSystem::JobBase
{
public:
    DrawJob(UIBase* root, unsigned int level) : mpRoot(root), mLevel(level) {}

    // The data of a thread is its draw context.
    void execute(void* context) override
    {
        UIPainter painter(static_cast<DrawContext*>(context), mLevel);
        mpRoot->sendMessage(UIPaintMessage(&painter));
    }

private:
    UIBase* mpRoot;
    unsigned int mLevel;
};
}

UIPaintRound::UIPaintRound(JobSystem& jobSystem, RenderSystem& renderSystem)
    : mRenderSystem(renderSystem), mContextNum(jobSystem.getJobThreadNum()), mJobs(jobSystem)
{
    for (unsigned int i = 0; i < mContextNum; ++i)
    {
        mContexts[i] = mRenderSystem.popContext();
        jobSystem.setThreadUniqueData(i, mContexts[i]);
    }
}

UIPaintRound::~UIPaintRound()
{
    mJobs.execute();
    for (unsigned int i = 0; i < mContextNum; ++i)
        mRenderSystem.pushContext(mContexts[i]);
}

bool UIPaintRound::paint(UIBase* root, unsigned int level)
{
    if (!hasRoom())
        return false;
    mJobs.add(new DrawJob(root, level));
    return true;
}

// Each root may take an eighth of the frame's memory. The jobs of a round draw at the same time, so each of them counts
// as if it took all of that; what they have really taken is known when they are done.
bool UIPaintRound::hasRoom()
{
    if (mJobs.size() < mRenderSystem.getFreeEighths())
        return true;
    mJobs.execute();
    return mRenderSystem.getFreeEighths() > 0;
}
