#pragma once

#include "ui/uijobround.h"

class DrawContext;
class RenderSystem;
class UIBase;

// Paints the roots of a frame with a draw context for each job thread. Their order shows nowhere: the level of a root
// tells how high it lies.
class UIPaintRound
{
public:
    // Borrows the contexts; their return ends the painting. Main thread.
    UIPaintRound(JobSystem& jobSystem, RenderSystem& renderSystem);
    ~UIPaintRound();

    UIPaintRound(const UIPaintRound&) = delete;
    UIPaintRound& operator=(const UIPaintRound&) = delete;

    // False if the frame has no room left for what a root may draw; then the root is left out.
    [[nodiscard]] bool paint(UIBase* root, unsigned int level);

private:
    bool hasRoom();

    RenderSystem& mRenderSystem;
    unsigned int mContextNum;
    DrawContext* mContexts[JobSystem::MaximumThreadNum];
    UIJobRound mJobs;
};
