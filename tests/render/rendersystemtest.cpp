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
