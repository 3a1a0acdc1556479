#include "render/rendersystem.h"

#include "platform/headless/headlessplatform.h"
#include "tests/support/renderfixture.h"

namespace
{
class RenderSystemTest : public RenderFixture
{
protected:
    // Enters commands that need no memory of the frame.
    void enter(unsigned int count)
    {
        for (unsigned int i = 0; i < count; ++i)
            mSystem->entryCommand(&mCommand);
    }

    sCommand mCommand = {static_cast<eCommand>(3), 1};
};

unsigned int getSwapNum()
{
    return static_cast<HeadlessPlatform*>(Platform::getInstance())->getSwapNum();
}
}

TEST_F(RenderSystemTest, AnEmptyFrameShowsTheFormerOne)
{
    mSystem->executeCommand();
    EXPECT_EQ(getSwapNum(), 1u) << "even ahead of the first sort";
    EXPECT_TRUE(sorted().empty());
    EXPECT_EQ(mSystem->getSortedCommand()[0]->key, 0xFFFFFFFFu);
    mSystem->executeCommand();
    EXPECT_EQ(getSwapNum(), 2u);
    EXPECT_EQ(mSystem->getDrawCommandNum(), 0u);
}

TEST_F(RenderSystemTest, AFrameStartsWithEmptyCommandMemory)
{
    const auto* memory = static_cast<const unsigned char*>(mSystem->getCommandMemory());
    for (unsigned int frame = 0; frame < 2; ++frame)
    {
        EXPECT_EQ(mSystem->allocateCommandBuffer(8), memory);
        DrawContext* context = mSystem->popContext();
        addQuad(context, sRect(0, 0, 1, 1), sColor::White);
        mSystem->pushContext(context);
        EXPECT_EQ(reinterpret_cast<const unsigned char*>(&onlyDraw()), memory + 8) << "the first block is the next";
        mSystem->preprocess();
    }
}

TEST_F(RenderSystemTest, LendsThirtyTwoContextsSetUpAnew)
{
    DrawContext* first = mSystem->popContext();
    first->setView(3);
    mSystem->pushContext(first);
    EXPECT_EQ(mSystem->popContext(), first);
    EXPECT_EQ(first->getState().view, 0u);
    for (unsigned int i = 1; i < RenderSystem::ContextNum; ++i)
        EXPECT_NE(mSystem->popContext(), first);
    EXPECT_DEATH(mSystem->popContext(), "Stack underflow.");
}

TEST_F(RenderSystemTest, CountsDrawsAndPassesOverUnknownKinds)
{
    DrawContext* context = mSystem->popContext();
    for (unsigned int level : {2u, 0u, 1u})
    {
        context->setDrawLevel(level, 0);
        addQuad(context, sRect(0, 0, 8, 8), sColor::White);
    }
    context->clear(sRect(0, 0, 8, 8), sColor::Black);
    mSystem->pushContext(context);
    enter(4);
    show();
    EXPECT_EQ(mSystem->getDrawCommandNum(), 3u);
    EXPECT_EQ(mSystem->getBuildFrame(), 1u);
}

TEST_F(RenderSystemTest, StopsOnMoreEntriesThanFit)
{
    enter(RenderSystem::EntryNum - 4);
    sCommand* four[] = {&mCommand, &mCommand, &mCommand, &mCommand};
    EXPECT_DEATH(
        {
            enter(1);
            mSystem->entryCommand(four, 4);
        },
        "Command entry buffer overflow.");
    mSystem->entryCommand(four, 4);
    EXPECT_DEATH(enter(1), "Command entry buffer overflow.");
}

TEST(RenderSystemWithoutWindow, DoesNothing)
{
    ASSERT_TRUE(Platform::create(ePlatform::Headless));
    RenderSystem* system = RenderSystem::create();
    system->preprocess();
    system->postprocess();
    system->executeCommand();
    EXPECT_EQ(getSwapNum(), 0u);
    EXPECT_DEATH(system->popContext(), "Stack underflow.");
    system->destroy();
    EXPECT_EQ(RenderSystem::getInstance(), nullptr);
    Platform::destroy();
}
