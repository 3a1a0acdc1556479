#include "ui/uipainter.h"

#include "render/drawcontext.h"
#include "render/texture.h"
#include "tests/support/headlesssystems.h"
#include "tool/toolsystem.h"
#include "ui/uicolor.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
using eAlignment = UIPainter::eAlignment;

constexpr sColor High = getDefaultUIColor(eUIColor::HighLight);
constexpr sColor Dark = getDefaultUIColor(eUIColor::DarkLight);
constexpr sPoint Origin(100, 200);
constexpr sRect Region(0, 0, 1024, 768);

// A line as it was asked for: the half pixel that the recorder adds to thin primitives is taken off again.
struct sLine
{
    int x0, y0, x1, y1;
    sColor color;

    bool operator==(const sLine&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const sLine& line)
{
    return stream << "(" << line.x0 << ", " << line.y0 << ")-(" << line.x1 << ", " << line.y1 << ")"
                  << (line.color == Dark   ? " dark"
                      : line.color == High ? " high"
                                           : "");
}
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

    // The lines of what is painted, relative to the origin.
    std::vector<sLine> paintLines(const Paint& draw)
    {
        std::vector<sLine> lines;
        for (const sRecordedDraw& recorded : paint(draw))
            if (recorded.command.state.getPrimitiveType() == ePrimitiveType::Lines)
                for (std::size_t i = 0; i < recorded.vertices.size(); i += 2)
                {
                    const auto& a = recorded.vertices[i];
                    const auto& b = recorded.vertices[i + 1];
                    lines.push_back({static_cast<int>(a.x) - Origin.x, static_cast<int>(a.y) - Origin.y,
                                     static_cast<int>(b.x) - Origin.x, static_cast<int>(b.y) - Origin.y, a.color});
                }
        return lines;
    }

    // The text that a string in a rectangle shows, and where.
    std::string paintString(const sRect& rect, const std::string& text, eAlignment alignment, sPoint& position)
    {
        std::string shown;
        for (const sRecordedDraw& draw :
             paint([&](UIPainter& painter) { painter.drawString(rect, text.c_str(), sColor::Red, alignment); }))
        {
            position = {static_cast<int>(draw.vertices[0].x) - Origin.x,
                        static_cast<int>(draw.vertices[0].y) - Origin.y};
            for (std::size_t i = 0; i < draw.vertices.size(); i += 4)
                shown += static_cast<char>(' ' + draw.vertices[i].s / 6 + draw.vertices[i].t / 12 * 16);
        }
        return shown;
    }

    HeadlessSystems mSystems;
};

TEST_F(UIPainterTest, AlignsTextInARectangle)
{
    const struct
    {
        eAlignment alignment;
        sPoint position;
        const char* cut; // What 60 pixels show of 20 characters.
    } rows[] = {
        {eAlignment::LeftTop, {10, 20}, "abcdefghij"},      {eAlignment::LeftMiddle, {10, 29}, "abcdefghij"},
        {eAlignment::LeftBottom, {10, 38}, "abcdefghij"},   {eAlignment::CenterTop, {28, 20}, "fghijklmno"},
        {eAlignment::CenterMiddle, {28, 29}, "fghijklmno"}, {eAlignment::CenterBottom, {28, 38}, "fghijklmno"},
        {eAlignment::RightTop, {46, 20}, "klmnopqrst"},     {eAlignment::RightMiddle, {46, 29}, "klmnopqrst"},
        {eAlignment::RightBottom, {46, 38}, "klmnopqrst"},
    };
    const sRect rect(10, 20, 70, 50);
    for (const auto& row : rows)
    {
        sPoint position = sPoint::Zero;
        EXPECT_EQ(paintString(rect, "word", row.alignment, position), "word");
        EXPECT_EQ(position, row.position) << static_cast<int>(row.alignment);
        EXPECT_EQ(paintString(rect, "abcdefghijklmnopqrst", row.alignment, position), row.cut);
        EXPECT_EQ(position, sPoint(10, row.position.y));
    }
}

TEST_F(UIPainterTest, DrawsTextFromSixByTwelvePixelsOn)
{
    sPoint position = sPoint::Zero;
    EXPECT_EQ(paintString({0, 0, 60, 11}, "abc", eAlignment::LeftTop, position), "");
    EXPECT_EQ(paintString({0, 0, 60, 12}, "abc", eAlignment::LeftTop, position), "abc");
    EXPECT_EQ(paintString({0, 0, 5, 12}, "abc", eAlignment::LeftTop, position), "");
    EXPECT_EQ(paintString({0, 0, 6, 12}, "abc", eAlignment::LeftTop, position), "a");
    EXPECT_EQ(paintString({60, 12, 0, 0}, "abc", eAlignment::LeftTop, position), "") << "inside out";
    EXPECT_TRUE(paint([](UIPainter& painter) { painter.drawString(sPoint(0, 0), AutoString(), sColor::Red); }).empty());
    EXPECT_TRUE(paint([](UIPainter& painter) { painter.drawString(sPoint(0, 0), "", sColor::Red); }).empty());
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
        EXPECT_EQ(draws[0].vertices.size(), 8u) << "both characters";
        EXPECT_EQ(draws[0].command.scissor, sRect(100, 200, 107, 212));
        EXPECT_EQ(draws[1].command.scissor, Region) << "what follows is not cut";
    }
}

TEST_F(UIPainterTest, ShowsUpTo254CharactersInARectangle)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    sPoint position = sPoint::Zero;
    const std::string text(255, 'x');
    EXPECT_EQ(paintString({0, 0, 1524, 12}, text, eAlignment::LeftTop, position).size(), 254u);
    EXPECT_EQ(paintString({0, 0, 1525, 12}, "short", eAlignment::LeftTop, position), "short");
    EXPECT_DEATH(paintString({0, 0, 1525, 12}, text, eAlignment::LeftTop, position), "Too long string.");
}

TEST_F(UIPainterTest, FramesWithFourLinesAndBevelsByTheirColours)
{
    const auto frame = [](sColor topLeft, sColor bottomRight)
    {
        return std::vector<sLine>{
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
    const auto engrave = [this](const sPoint& a, const sPoint& b)
    {
        return paintLines([&](UIPainter& painter) { painter.drawConcaveLine(a, b); })[1];
    };
    EXPECT_EQ(engrave({0, 0}, {9, 8}), (sLine{0, 1, 9, 9, High})) << "flat: shifted down";
    EXPECT_EQ(engrave({0, 0}, {-9, 9}), (sLine{1, 0, -8, 9, High})) << "steep: shifted right";
    EXPECT_EQ(engrave({5, 5}, {5, 5}), (sLine{6, 5, 6, 5, High})) << "a point counts as steep";
}

TEST_F(UIPainterTest, LeavesAGapForTheCaptionOfAGroup)
{
    const sRect rect(0, 0, 101, 51);
    const auto topLines = [&](const char* caption)
    {
        std::vector<sLine> top;
        for (const sLine& line : paintLines([&](UIPainter& painter) { painter.drawGroup(rect, caption, sColor::Red); }))
            if (line.y0 == 6 && line.y1 == 6 && line.color == Dark)
                top.push_back(line);
        return top;
    };
    EXPECT_EQ(topLines(nullptr), (std::vector<sLine>{{0, 6, 101, 6, Dark}}));
    EXPECT_EQ(topLines(""), (std::vector<sLine>{{0, 6, 4, 6, Dark}, {8, 6, 101, 6, Dark}}));
    EXPECT_EQ(topLines("abc"), (std::vector<sLine>{{0, 6, 4, 6, Dark}, {26, 6, 101, 6, Dark}}));
    EXPECT_EQ(topLines("wider than the whole box"), (std::vector<sLine>{{0, 6, 4, 6, Dark}, {97, 6, 101, 6, Dark}}));

    const std::vector<sLine> lines =
        paintLines([&](UIPainter& painter) { painter.drawGroup(rect, "abc", sColor::Red); });
    ASSERT_EQ(lines.size(), 10u);
    EXPECT_EQ(lines[0], (sLine{99, 6, 99, 51, Dark})) << "right";
    EXPECT_EQ(lines[2], (sLine{0, 49, 100, 49, Dark})) << "bottom";
    EXPECT_EQ(lines[8], (sLine{0, 7, 0, 51, Dark})) << "left, one below the corner";
}

TEST_F(UIPainterTest, DrawsOnTheViewAndLevelOfTheInterface)
{
    Texture* texture = new Texture(4, 4, false, nullptr);
    const std::vector<sRecordedDraw> draws = paint(
        [texture](UIPainter& painter)
        {
            painter.setBlendMode(UIPainter::eBlendMode::Subtract);
            painter.setTexture(texture);
            painter.drawString(sPoint(0, 0), "text", sColor::Red);
            painter.drawRect({0, 0, 4, 4}, sColor::Red, {0, 0}, {4, 4});
            painter.increasePriority();
            painter.drawTriangle({0, 0}, {1, 0}, {0, 1}, sColor::Red);
        });
    ASSERT_EQ(draws.size(), 3u);
    EXPECT_EQ(draws[0].command.key, 0x50000007u);
    EXPECT_EQ(draws[0].command.texture, ToolSystem::getInstance()->getFontTexture());
    EXPECT_EQ(draws[0].command.state.getBlendMode(), eBlendMode::Alpha);
    EXPECT_EQ(draws[0].command.state.getFiltering(), eTextureFiltering::Nearest);
    EXPECT_EQ(draws[1].command.texture, texture);
    EXPECT_EQ(draws[1].command.state.getBlendMode(), eBlendMode::Subtract) << "put back behind the text";
    EXPECT_EQ(draws[1].command.state.getFiltering(), eTextureFiltering::Linear);
    EXPECT_EQ(draws[1].vertices[3].x, 104);
    EXPECT_EQ(draws[2].command.key, 0x50000008u);
    EXPECT_EQ(draws[2].command.state.getVertexDecl(), eVertexDecl::Plain);
    texture->release();
    mSystems.recordFrame([] {});
}

TEST_F(UIPainterTest, StopsOnStatesThatDoNotExist)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(paint([](UIPainter& painter) { painter.setBlendMode(static_cast<eBlendMode>(4)); }),
                 "Invalid blend mode.");
    EXPECT_DEATH(paint([](UIPainter& painter) { painter.setTextureFiltering(static_cast<eTextureFiltering>(2)); }),
                 "Invalid texture filtering.");
}
