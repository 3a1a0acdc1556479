#include "render/rendersystem.h"

#include "platform/headless/headlessplatform.h"
#include "tests/support/renderfixture.h"

namespace
{
using RenderSystemTest = RenderFixture;

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
        EXPECT_EQ(reinterpret_cast<const unsigned char*>(sorted().at(0)), memory + 8) << "the first block is the next";
        mSystem->preprocess();
    }
}
