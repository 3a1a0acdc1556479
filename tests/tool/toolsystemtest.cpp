#include "tool/toolsystem.h"

#include "render/texture.h"
#include "render/viewsystem.h"
#include "tests/support/headlesssystems.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

static bool operator==(const sTexturedDeviceVertex& a, const sTexturedDeviceVertex& b)
{
    return a.x == b.x && a.y == b.y && a.color == b.color && a.s == b.s && a.t == b.t;
}

namespace
{
constexpr unsigned int Size = ToolSystem::FontWidth;
constexpr sRect Clip(10, 20, 40, 44);

bool isSet(unsigned int x, unsigned int y)
{
    const unsigned int row = ToolSystem::FontTextureSize - 1 - y;
    return ToolSystem::mFontData[row * ToolSystem::FontTextureSize / 8 + x / 8] >> (7 - x % 8) & 1;
}

// The twelve rows of a character's cell in the bitmap.
std::string getGlyph(unsigned int code)
{
    std::string glyph;
    for (unsigned int y = 0; y < ToolSystem::FontHeight; ++y)
        for (unsigned int x = 0; x < Size; ++x)
            glyph += isSet((code - 32) % 16 * Size + x, (code - 32) / 16 * ToolSystem::FontHeight + y) ? '#' : '.';
    return glyph;
}
}

class ToolSystemTest : public testing::Test
{
protected:
    std::vector<sRecordedDraw> drawString(const sPoint& position, const char* text, const sRect& clip = Clip)
    {
        return mSystems.record(
            [&](DrawContext& context)
            {
                context.setVertexDecl(eVertexDecl::Textured);
                ToolSystem::drawString(&context, position, text, Size, sColor::Red, clip);
            });
    }

    HeadlessSystems mSystems;
};

TEST_F(ToolSystemTest, DrawsStringsAsCellsOfTheFont)
{
    const std::vector<sRecordedDraw> draws = drawString({10, 20}, "A~");
    ASSERT_EQ(draws.size(), 1u);
    const std::vector<sTexturedDeviceVertex>& vertices = draws[0].vertices;
    ASSERT_EQ(vertices.size(), 8u);
    // "A" is character 33 of the font: column 1, row 2. "~" is character 94: column 14, row 5.
    EXPECT_EQ(vertices[0], (sTexturedDeviceVertex{10, 20, 0, sColor::Red, 6, 24}));
    EXPECT_EQ(vertices[3], (sTexturedDeviceVertex{16, 32, 0, sColor::Red, 12, 36}));
    EXPECT_EQ(vertices[5], (sTexturedDeviceVertex{22, 20, 0, sColor::Red, 90, 60}));
    EXPECT_EQ(vertices[6], (sTexturedDeviceVertex{16, 32, 0, sColor::Red, 84, 72}));
}

TEST_F(ToolSystemTest, LeavesOutStringsWhoseFirstCharacterCrossesTheClip)
{
    const struct
    {
        sPoint position;
        bool drawn;
    } rows[] = {
        {{10, 20}, true},  {{9, 20}, false}, {{10, 19}, false}, {{34, 20}, true},
        {{35, 20}, false}, {{10, 32}, true}, {{10, 33}, false}, {{2147483647, 20}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(drawString(row.position, "x").size(), row.drawn ? 1u : 0u)
            << row.position.x << ", " << row.position.y;
    EXPECT_TRUE(drawString({10, 20}, "").empty());
    EXPECT_TRUE(drawString({-1, 20}, "x", sRect::Max).empty());
}

TEST_F(ToolSystemTest, CutsWholeCharactersAtTheRight)
{
    // 30 pixels hold five characters; the sixth ends one pixel too far.
    const std::vector<sTexturedDeviceVertex> vertices = drawString({10, 20}, "abcdefgh")[0].vertices;
    ASSERT_EQ(vertices.size(), 8u * 4) << "cut characters are part of the batch";
    EXPECT_EQ(vertices[4 * 4 + 1].x, 40);
    for (unsigned int i = 5 * 4; i < vertices.size(); ++i)
        EXPECT_TRUE(vertices[i] == vertices[5 * 4]) << "without an area";
}

TEST_F(ToolSystemTest, DrawsLongStringsInChunksWithoutAGap)
{
    unsigned int characters = 0;
    for (const sRecordedDraw& draw : drawString({0, 0}, std::string(1000, 'x').c_str(), sRect::Max))
        for (unsigned int i = 0; i < draw.vertices.size(); i += 4)
            EXPECT_EQ(draw.vertices[i].x, static_cast<float>(Size * characters++));
    EXPECT_EQ(characters, 1000u);
}

TEST_F(ToolSystemTest, ShowsWhatIsNotInTheFontAsABlank)
{
    for (int code = 1; code < 256; ++code)
    {
        const char text[] = {static_cast<char>(code), 0};
        const std::vector<sTexturedDeviceVertex> vertices = drawString({10, 20}, text)[0].vertices;
        bool blank = true;
        // Coordinates outside of the texture read its nearest edge.
        for (int t = vertices[0].t; t < vertices[3].t; ++t)
            for (int s = vertices[0].s; s < vertices[3].s; ++s)
                blank &= !isSet(static_cast<unsigned int>(std::clamp(s, 0, 127)),
                                static_cast<unsigned int>(std::clamp(t, 0, 127)));
        EXPECT_EQ(blank, code <= ' ' || code >= 0x80) << code;
    }
}

TEST_F(ToolSystemTest, HasAFontOfDifferentGlyphsWithTheTopRowLast)
{
    std::set<std::string> glyphs;
    for (unsigned int code = 32; code < 128; ++code)
        EXPECT_TRUE(glyphs.insert(getGlyph(code)).second) << code;
    EXPECT_EQ(getGlyph('L'), "......"
                             "#....."
                             "#....."
                             "#....."
                             "#....."
                             "#....."
                             "#....."
                             "#....."
                             "#####."
                             "......"
                             "......"
                             "......");
    for (unsigned int y = 72; y < ToolSystem::FontTextureSize; ++y)
        for (unsigned int x = 0; x < ToolSystem::FontTextureSize; ++x)
            EXPECT_FALSE(isSet(x, y));
    EXPECT_EQ(ToolSystem::getInstance()->getFontTexture()->getWidth(), ToolSystem::FontTextureSize);
}

TEST_F(ToolSystemTest, GivesEachCornerItsColourAndTexel)
{
    const std::vector<sRecordedDraw> draws = mSystems.record(
        [](DrawContext& context)
        {
            ToolSystem::drawRect(&context, {1, 2, 3, 4}, sColor::Red, sColor::Green, sColor::Blue, sColor::White);
            context.setVertexDecl(eVertexDecl::Textured);
            ToolSystem::drawRect(&context, {1, 2, 3, 4}, sColor::Red, sColor::Green, sColor::Blue, sColor::White,
                                 {5, 6}, {7, 8});
            ToolSystem::drawTriangle(&context, {1, 2}, {3, 4}, {5, 6}, sColor::Red, sColor::Green, sColor::Blue, {7, 8},
                                     {9, 10}, {11, 65535});
        });
    ASSERT_EQ(draws.size(), 3u);
    const sTexturedDeviceVertex corners[] = {{1, 2, 0, sColor::Red, 5, 6},
                                             {3, 2, 0, sColor::Green, 7, 6},
                                             {1, 4, 0, sColor::Blue, 5, 8},
                                             {3, 4, 0, sColor::White, 7, 8}};
    for (unsigned int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(draws[1].vertices[i], corners[i]);
        EXPECT_EQ(draws[0].vertices[i].x, corners[i].x);
        EXPECT_EQ(draws[0].vertices[i].color, corners[i].color);
    }
    EXPECT_EQ(draws[2].command.state.getPrimitiveType(), ePrimitiveType::Triangles);
    EXPECT_EQ(draws[2].vertices[2], (sTexturedDeviceVertex{5, 6, 0, sColor::Blue, 11, -1}));
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
    const struct
    {
        unsigned int key;
        eBlendMode blendMode;
        eTextureFiltering filtering;
        sRect scissor;
    } rows[] = {
        // The string of a view stands on level 0 and comes first.
        {0x30000000, eBlendMode::Alpha, eTextureFiltering::Nearest, {100, 100, 300, 300}},
        {0x30020001, eBlendMode::Scaled, draws[1].command.state.getFiltering(), {100, 100, 200, 150}},
        {0x30020001, eBlendMode::Scaled, eTextureFiltering::Linear, {100, 100, 200, 150}},
        {0x30020001, eBlendMode::Alpha, eTextureFiltering::Linear, {100, 100, 200, 150}},
    };
    for (unsigned int i = 0; i < 4; ++i)
    {
        const sDrawCommand& command = draws[i].command;
        EXPECT_EQ(command.key, rows[i].key) << i;
        EXPECT_EQ(command.state.getBlendMode(), rows[i].blendMode) << i;
        EXPECT_EQ(command.state.getFiltering(), rows[i].filtering) << i;
        EXPECT_EQ(command.scissor, rows[i].scissor) << i;
        EXPECT_EQ(command.viewport, sRect(100, 100, 300, 300)) << i;
        EXPECT_EQ(command.projection, sRect(0, 0, 50, 50)) << i;
        EXPECT_EQ(command.state.getVertexDecl(), i == 1 ? eVertexDecl::Plain : eVertexDecl::Textured) << i;
    }
}

TEST(ToolSystemDeathTest, DrawsOnlyWithinItsPeriodAndOnce)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    HeadlessSystems systems;
    EXPECT_DEATH(ToolSystem::getInstance()->drawString(0, {0, 0}, "x", Size, sColor::Red), "Can't draw this period.");
    EXPECT_DEATH(new ToolSystem, "ToolSystem already instanced.");
}
