#include "render/viewsystem.h"

#include "tests/support/renderfixture.h"

using ViewSystemTest = RenderFixture;

TEST_F(ViewSystemTest, KeepsViewportsInsideTheWindow)
{
    ViewSystem* views = ViewSystem::create();
    const sRect window(WindowWidth, WindowHeight);
    EXPECT_EQ(views->getViewport(7), window);
    EXPECT_EQ(views->getProjection(0), window);

    const sRect large(-100, 700, 2000, 1000);
    views->setViewport(3, large);
    views->setProjection(3, large);
    EXPECT_EQ(views->getViewport(3), sRect(0, 700, 1024, 768));
    EXPECT_EQ(views->getProjection(3), large);
    EXPECT_DEATH(ViewSystem(), "JobSystem already instanced.");
    views->destroy();
}
