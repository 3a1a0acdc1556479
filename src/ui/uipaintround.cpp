#include "ui/uipaintround.h"

#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "ui/uibase.h"
#include "ui/uipainter.h"

namespace
{
// The data of a thread is its draw context.
void paintRoot(const UIJobRound::sRoot& root, void* context)
{
    UIPainter painter(static_cast<DrawContext*>(context), root.level);
    root.element->sendMessage(UIPaintMessage(&painter));
}
}

UIPaintRound::UIPaintRound(JobSystem& jobSystem, RenderSystem& renderSystem)
    : mRenderSystem(renderSystem), mContextNum(jobSystem.getJobThreadNum()), mJobs(jobSystem, &paintRoot)
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
    mJobs.add({root, level});
    return true;
}

// Each root may take an eighth of the frame's memory. What those of a round have really taken is known when they are
// done, so until then each of them counts as if it took all of that.
bool UIPaintRound::hasRoom()
{
    if (mJobs.size() < mRenderSystem.getFreeEighths())
        return true;
    mJobs.execute();
    return mRenderSystem.getFreeEighths() > 0;
}
