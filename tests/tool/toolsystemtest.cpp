#include "tool/toolsystem.h"

#include "render/texture.h"
#include "render/viewsystem.h"
#include "tests/support/headlesssystems.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace
{
constexpr unsigned int Size = ToolSystem::FontWidth;

// A pixel of the bitmap in the coordinates of the texture; outside of it the nearest edge.
bool isSet(int x, int y)
{
    const int last = ToolSystem::FontTextureSize - 1;
    const unsigned int column = static_cast<unsigned int>(std::clamp(x, 0, last));
    const unsigned int row = static_cast<unsigned int>(last - std::clamp(y, 0, last));
    return ToolSystem::mFontData[row * ToolSystem::FontTextureSize / 8 + column / 8] >> (7 - column % 8) & 1;
}

// The pixels that the quad of a character shows, row by row.
std::string getGlyph(const sTexturedDeviceVertex* quad)
{
    std::string glyph;
    for (int y = quad[0].t; y < quad[3].t; ++y)
        for (int x = quad[0].s; x < quad[3].s; ++x)
            glyph += isSet(x, y) ? '#' : '.';
    return glyph;
}
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

TEST_F(ToolSystemTest, DrawsLongStringsInChunksWithoutAGap)
{
    unsigned int characters = 0;
    for (const sRecordedDraw& draw : drawString({0, 0}, std::string(1000, 'x'), sRect::Max))
        for (unsigned int i = 0; i < draw.vertices.size(); i += 4)
            EXPECT_EQ(draw.vertices[i].x, static_cast<float>(Size * characters++));
    EXPECT_EQ(characters, 1000u);
}

TEST_F(ToolSystemTest, HasDifferentUprightGlyphsAndBlanksForWhatIsNoCharacter)
{
    std::set<std::string> glyphs;
    const std::string blank(Size * ToolSystem::FontHeight, '.');
    for (int code = 1; code < 256; ++code)
    {
        const std::string glyph =
            getGlyph(drawString({10, 20}, std::string(1, static_cast<char>(code)))[0].vertices.data());
        const bool drawn = code > ' ' && code < 0x80;
        EXPECT_TRUE(drawn ? glyph != blank && glyphs.insert(glyph).second : glyph == blank) << code;
    }
    EXPECT_EQ(getGlyph(drawString({10, 20}, "L")[0].vertices.data()).substr(8 * Size),
              "#####." + std::string(3 * Size, '.'));
}

TEST_F(ToolSystemTest, GivesEachCornerItsColourAndTexel)
{
    const std::vector<sTexturedDeviceVertex> vertices =
        mSystems
            .record(
                [](DrawContext& context)
                {
                    context.setVertexDecl(eVertexDecl::Textured);
                    ToolSystem::drawRect(&context, {1, 2, 3, 4}, sColor::Red, sColor::Green, sColor::Blue,
                                         sColor::White, {5, 6}, {7, 8});
                })
            .at(0)
            .vertices;
    const sColor colors[] = {sColor::Red, sColor::Green, sColor::Blue, sColor::White};
    for (unsigned int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(vertices[i].x, i % 2 ? 3 : 1);
        EXPECT_EQ(vertices[i].y, i / 2 ? 4 : 2);
        EXPECT_EQ(vertices[i].s, i % 2 ? 7 : 5);
        EXPECT_EQ(vertices[i].t, i / 2 ? 8 : 6);
        EXPECT_EQ(vertices[i].color, colors[i]);
    }
}

TEST_F(ToolSystemTest, SetsUpItsOwnContextForEachPrimitive)
{
    ToolSystem* tool = ToolSystem::getInstance();
    ViewSystem::getInstance()->setViewport(3, {100, 100, 300, 300});
    ViewSystem::getInstance()->setProjection(3, {0, 0, 50, 50});
    const ToolSystem::Context context = {
        3, 2, 1, {0, 0, 200, 150}, eBlendMode::Scaled, eTextureFiltering::Linear, tool->getFontTexture()};
    const std::vector<sRecordedDraw> draws = mSystems.recordFrame(
        [&]
        {
            tool->drawLine(context, {0, 0}, {1, 1}, sColor::Red);
            tool->drawRect(context, {0, 0, 1, 1}, sColor::Red, {0, 0}, {1, 1});
            tool->drawString(context, {0, 0}, "x", Size, sColor::Red);
            tool->drawString(3, {0, 0}, "x", Size, sColor::Red);
        });
    ASSERT_EQ(draws.size(), 4u);
    for (unsigned int i = 0; i < 4; ++i)
    {
        const sDrawCommand& command = draws[i].command;
        // The string of the view stands on level 0 and comes first; then the line, the rectangle, the other string.
        EXPECT_EQ(command.key, i == 0 ? 0x30000000 : 0x30020001);
        EXPECT_EQ(command.scissor, i == 0 ? sRect(100, 100, 300, 300) : sRect(100, 100, 200, 150));
        EXPECT_EQ(command.viewport, sRect(100, 100, 300, 300));
        EXPECT_EQ(command.projection, sRect(0, 0, 50, 50));
        EXPECT_EQ(command.state.getVertexDecl(), i == 1 ? eVertexDecl::Plain : eVertexDecl::Textured);
        EXPECT_EQ(command.state.getBlendMode(), i == 1 || i == 2 ? eBlendMode::Scaled : eBlendMode::Alpha);
        EXPECT_EQ(command.state.getFiltering(), i == 0 ? eTextureFiltering::Nearest : eTextureFiltering::Linear);
    }
}
