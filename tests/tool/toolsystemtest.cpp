#include "tool/toolsystem.h"

#include "tests/support/headlesssystems.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
constexpr unsigned int Size = ToolSystem::FontWidth;
}

class ToolSystemTest : public testing::Test
{
protected:
    std::vector<sRecordedDraw> drawString(const sPoint& position, const std::string& text,
                                          const sRect& clip = {10, 20, 40, 44})
    {
        return mSystems.record(
            [&](DrawContext& context)
            {
                context.setVertexDecl(eVertexDecl::Textured);
                ToolSystem::drawString(&context, position, text.c_str(), Size, sColor::Red, clip);
            });
    }

    HeadlessSystems mSystems;
};

TEST_F(ToolSystemTest, LeavesOutStringsWhoseFirstCharacterCrossesTheClip)
{
    const sPoint drawn[] = {{10, 20}, {34, 20}, {10, 32}};
    const sPoint dropped[] = {{9, 20}, {10, 19}, {35, 20}, {10, 33}, {2147483647, 20}};
    for (const sPoint& position : drawn)
        EXPECT_EQ(drawString(position, "x").size(), 1u) << position.x << ", " << position.y;
    for (const sPoint& position : dropped)
        EXPECT_TRUE(drawString(position, "x").empty()) << position.x << ", " << position.y;
    EXPECT_TRUE(drawString({10, 20}, "").empty());
    EXPECT_TRUE(drawString({-1, 20}, "x", sRect::Max).empty());
}

TEST_F(ToolSystemTest, CutsWholeCharactersAtTheRight)
{
    // 30 pixels hold five characters; the sixth would end beyond them. What was drawn before must not show again.
    const std::vector<sRecordedDraw> draws = mSystems.record(
        [](DrawContext& context)
        {
            context.setVertexDecl(eVertexDecl::Textured);
            ToolSystem::drawString(&context, {0, 0}, "xxxxxxxxxxxx", Size, sColor::Red, sRect::Max);
            context.flushVertices();
            ToolSystem::drawString(&context, {10, 20}, "abcdefgh", Size, sColor::Red, {10, 20, 40, 44});
        });
    const std::vector<sTexturedDeviceVertex>& vertices = draws.at(1).vertices;
    ASSERT_EQ(vertices.size(), 8u * 4) << "cut characters are part of the batch";
    EXPECT_EQ(vertices[4 * 4 + 3].x, 40);
    EXPECT_EQ(vertices[4 * 4 + 3].y, 32);
    for (unsigned int i = 5 * 4; i < vertices.size(); ++i)
        EXPECT_EQ(vertices[i].x, vertices[5 * 4].x) << "without an area";
}
