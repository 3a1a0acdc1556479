#pragma once

#include "foundation/jobsystem.h"
#include "platform/platform.h"
#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "render/vertex.h"
#include "tests/support/held.h"

#include <gtest/gtest.h>

#include <vector>

// A render system with a window to draw into, on whichever back end, and frames that a test records step by step.
class RenderFixture : public testing::Test
{
protected:
    static constexpr unsigned int WindowWidth = 1024;
    static constexpr unsigned int WindowHeight = 768;

    explicit RenderFixture(ePlatform kind = ePlatform::Headless)
    {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        EXPECT_TRUE(Platform::create(kind));
        EXPECT_TRUE(Platform::getInstance()->openWindow("render", WindowWidth, WindowHeight));
        JobSystem::create(0x10000, 1);
        mSystem = RenderSystem::create();
        mSystem->preprocess();
    }

    ~RenderFixture() override
    {
        mSystem->destroy();
        JobSystem::getInstance()->destroy();
        Platform::destroy();
    }

    // Sorts what has been recorded since preprocess(), without the end command.
    std::vector<const sCommand*> sorted()
    {
        mSystem->postprocess();
        std::vector<const sCommand*> commands;
        for (const sCommand* const* place = mSystem->getSortedCommand(); (*place)->kind != eCommand::End; ++place)
            commands.push_back(*place);
        return commands;
    }

    // Ends the frame as the program does and begins the next one.
    void show()
    {
        mSystem->postprocess();
        mSystem->executeCommand();
        mSystem->preprocess();
    }

    static void addQuad(DrawContext* context, const sRect& rect, sColor color)
    {
        const sPoint corners[] = {
            {rect.left, rect.top}, {rect.right, rect.top}, {rect.left, rect.bottom}, {rect.right, rect.bottom}};
        auto* vertex = static_cast<sPlainVertex*>(context->allocateVertices(ePrimitiveType::Quads, 4));
        for (const sPoint& corner : corners)
            *vertex++ = {{corner.x, corner.y}, color};
    }

    RenderSystem* mSystem = nullptr;
};
