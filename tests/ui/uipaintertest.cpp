#include "ui/uipainter.h"

#include "render/texture.h"
#include "tests/support/elements.h"
#include "tool/toolsystem.h"
#include "ui/uicolor.h"

#include <gtest/gtest.h>

namespace
{
using eAlignment = UIPainter::eAlignment;

constexpr sColor High = UIColorScheme::mDefaultHighLightColor;
constexpr sColor Dark = UIColorScheme::mDefaultDarkLightColor;
constexpr sPoint Origin(100, 200);
constexpr sRect Region(0, 0, 1024, 768);

struct sLine
{
    int x0, y0, x1, y1;
    sColor color;

    bool operator==(const sLine&) const = default;
};
using Lines = std::vector<sLine>;
}

class UIPainterTest : public testing::Test
{
protected:
    using Paint = std::function<void(UIPainter&)>;

    std::vector<sRecordedDraw> paint(const Paint& draw)
    {
        return mSystems.record(
            [&draw](DrawContext& context)
            {
                UIPainter painter(&context, 7);
                painter.setRegion(Region, Origin);
                draw(painter);
            });
    }

    // A vertex, relative to the origin.
    static sPoint getPoint(const sRecordedDraw& draw, std::size_t vertex)
    {
        return sPoint(static_cast<int>(draw.vertices[vertex].x), static_cast<int>(draw.vertices[vertex].y)) - Origin;
    }

    // The lines of what is painted, relative to the origin and without the half pixel that the recorder adds.
    Lines paintLines(const Paint& draw)
    {
        Lines lines;
        for (const sRecordedDraw& recorded : paint(draw))
            if (recorded.command.state.getPrimitiveType() == ePrimitiveType::Lines)
                for (std::size_t i = 0; i < recorded.vertices.size(); i += 2)
                {
                    const sPoint a = getPoint(recorded, i), b = getPoint(recorded, i + 1);
                    lines.push_back({a.x, a.y, b.x, b.y, recorded.vertices[i].color});
                }
        return lines;
    }

    // The text that a string in a rectangle shows, and where it begins.
    std::string paintString(const sRect& rect, const std::string& text, eAlignment alignment = eAlignment::LeftTop)
    {
        std::string shown;
        for (const sRecordedDraw& draw :
             paint([&](UIPainter& painter) { painter.drawString(rect, text.c_str(), sColor::Red, alignment); }))
        {
            mPosition = getPoint(draw, 0);
            shown += getText(draw);
        }
        return shown;
    }

    HeadlessSystems mSystems;
    sPoint mPosition = sPoint::Zero;
};

TEST_F(UIPainterTest, AlignsTextInARectangle)
{
    // Ten characters fit; for each horizontal alignment, where "word" begins and what is left of 20.
    const std::pair<int, const char*> columns[] = {{10, "abcdefghij"}, {28, "fghijklmno"}, {46, "klmnopqrst"}};
    const int tops[] = {20, 29, 38};
    for (unsigned int i = 0; i < 9; ++i)
    {
        const eAlignment alignment = static_cast<eAlignment>(i);
        EXPECT_EQ(paintString({10, 20, 70, 50}, "word", alignment), "word");
        EXPECT_EQ(mPosition, sPoint(columns[i / 3].first, tops[i % 3])) << i;
        EXPECT_EQ(paintString({10, 20, 70, 50}, "abcdefghijklmnopqrst", alignment), columns[i / 3].second);
        EXPECT_EQ(mPosition, sPoint(10, tops[i % 3])) << i;
    }
}

TEST_F(UIPainterTest, DrawsTextFromSixByTwelvePixelsOnAndUpTo254Characters)
{
    EXPECT_EQ(paintString({0, 0, 60, 11}, "abc"), "");
    EXPECT_EQ(paintString({0, 0, 60, 12}, "abc"), "abc");
    EXPECT_EQ(paintString({0, 0, 5, 12}, "abc"), "");
    EXPECT_EQ(paintString({0, 0, 6, 12}, "abc"), "a");
    EXPECT_EQ(paintString({60, 12, 0, 0}, "abc"), "") << "inside out";
    EXPECT_TRUE(paint([](UIPainter& painter) { painter.drawString(sPoint(0, 0), AutoString(), sColor::Red); }).empty());

    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EQ(paintString({0, 0, 1524, 12}, std::string(255, 'x')).size(), 254u);
    EXPECT_EQ(paintString({0, 0, 1525, 12}, "short"), "short");
    EXPECT_DEATH(paintString({0, 0, 1525, 12}, std::string(255, 'x')), "Too long string.");
}

TEST_F(UIPainterTest, ClipsAPartlyVisibleCharacterToThePixel)
{
    for (const eAlignment alignment : {eAlignment::LeftTop, eAlignment::CenterTop, eAlignment::RightTop})
    {
        const std::vector<sRecordedDraw> draws = paint(
            [alignment](UIPainter& painter)
            {
                painter.drawString(sRect(0, 0, 7, 12), "ab", sColor::Red, alignment);
                painter.drawRect({0, 0, 1, 1}, sColor::Red);
            });
        ASSERT_EQ(draws.size(), 2u);
        EXPECT_EQ(draws[0].vertices[7].x - draws[0].vertices[0].x, 12) << "both characters";
        EXPECT_EQ(draws[0].command.scissor, sRect(100, 200, 107, 212));
        EXPECT_EQ(draws[1].command.scissor, Region) << "what follows is not cut";
    }
}

TEST_F(UIPainterTest, FramesWithFourLinesAndBevelsByTheirColours)
{
    const auto frame = [](sColor topLeft, sColor bottomRight)
    {
        return Lines{
            {1, 2, 11, 2, topLeft}, {1, 2, 1, 22, topLeft}, {1, 21, 11, 21, bottomRight}, {10, 2, 10, 22, bottomRight}};
    };
    const sRect rect(1, 2, 11, 22);
    EXPECT_EQ(paintLines([&](UIPainter& painter) { painter.drawFrame(rect, sColor::Red); }),
              frame(sColor::Red, sColor::Red));
    EXPECT_EQ(paintLines([&](UIPainter& painter) { painter.drawConvexRect(rect); }), frame(High, Dark));
    EXPECT_EQ(paintLines([&](UIPainter& painter) { painter.drawConcaveRect(rect); }), frame(Dark, High));
}

TEST_F(UIPainterTest, EngravesLinesAcrossTheirDirection)
{
    const auto engrave = [this](const sPoint& b)
    {
        return paintLines([&](UIPainter& painter) { painter.drawConcaveLine({0, 0}, b); });
    };
    EXPECT_EQ(engrave({9, 8}), (Lines{{0, 0, 9, 8, Dark}, {0, 1, 9, 9, High}})) << "flat";
    EXPECT_EQ(engrave({-9, 9}), (Lines{{0, 0, -9, 9, Dark}, {1, 0, -8, 9, High}})) << "steep";
    EXPECT_EQ(engrave({0, 0}), (Lines{{0, 0, 0, 0, Dark}, {1, 0, 1, 0, High}})) << "a point counts as steep";
}

TEST_F(UIPainterTest, LeavesAGapForTheCaptionOfAGroup)
{
    const auto darkLines = [this](const char* caption)
    {
        Lines lines = paintLines([&](UIPainter& painter) { painter.drawGroup({0, 0, 101, 51}, caption, sColor::Red); });
        std::erase_if(lines, [](const sLine& line) { return line.color != Dark; });
        return lines;
    };
    const sLine right = {99, 6, 99, 51, Dark}, bottom = {0, 49, 100, 49, Dark}, left = {0, 7, 0, 51, Dark};
    const auto gap = [&](int end)
    {
        return Lines{right, bottom, {0, 6, 4, 6, Dark}, {end, 6, 101, 6, Dark}, left};
    };
    EXPECT_EQ(darkLines(nullptr), (Lines{right, bottom, {0, 6, 101, 6, Dark}, left}));
    EXPECT_EQ(darkLines(""), gap(8));
    EXPECT_EQ(darkLines("abc"), gap(26));
    EXPECT_EQ(darkLines("wider than the whole box"), gap(97));
}

TEST_F(UIPainterTest, DrawsOnTheViewAndLevelOfTheInterface)
{
    Texture* texture = new Texture(4, 4, false, nullptr);
    const std::vector<sRecordedDraw> draws = paint(
        [texture](UIPainter& painter)
        {
            painter.setBlendMode(eBlendMode::Subtract);
            painter.setTexture(texture);
            painter.drawString(sPoint(0, 0), "text", sColor::Red);
            painter.drawRect({0, 0, 4, 4}, sColor::Red, {0, 0}, {4, 4});
            painter.increasePriority();
            painter.drawTriangle({0, 0}, {1, 0}, {0, 1}, sColor::Red);
        });
    texture->release();
    ASSERT_EQ(draws.size(), 3u);
    EXPECT_EQ(draws[0].command.key, 0x50000007u);
    EXPECT_EQ(draws[0].command.texture, ToolSystem::getInstance()->getFontTexture());
    EXPECT_EQ(draws[0].command.state.getBlendMode(), eBlendMode::Alpha);
    EXPECT_EQ(draws[0].command.state.getFiltering(), eTextureFiltering::Nearest);
    EXPECT_EQ(draws[1].command.texture, texture);
    EXPECT_EQ(draws[1].command.state.getBlendMode(), eBlendMode::Subtract) << "put back behind the text";
    EXPECT_EQ(draws[1].command.state.getFiltering(), eTextureFiltering::Linear);
    EXPECT_EQ(draws[2].command.key, 0x50000008u);
    EXPECT_EQ(draws[2].command.state.getVertexDecl(), eVertexDecl::Plain);

    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(paint([](UIPainter& painter) { painter.setBlendMode(eBlendMode(4)); }), "Invalid blend mode.");
    EXPECT_DEATH(paint([](UIPainter& painter) { painter.setTextureFiltering(eTextureFiltering(2)); }),
                 "Invalid texture filtering.");
}
