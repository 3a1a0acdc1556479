#include "ui/uipainter.h"

#include "tests/support/elements.h"
#include "ui/uilinerun.h"

#include <gtest/gtest.h>

namespace
{
using eAlignment = UIPainter::eAlignment;

constexpr sPoint Origin(100, 200);
constexpr sRect Region(0, 0, 1024, 768);
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

TEST_F(UIPainterTest, DrawsTheLinesOfARunInTheirOrder)
{
    constexpr int LineNum = 150;
    const std::vector<sRecordedDraw> draws = paint(
        [](UIPainter& painter)
        {
            UILineRun lines(painter);
            for (int i = 0; i < LineNum; ++i)
                lines.add(sPoint(i, -1), sPoint(2 * i, i), sColor(0, 0, 0, static_cast<unsigned char>(i)));
        });
    ASSERT_EQ(draws.size(), 1u);
    ASSERT_EQ(draws[0].vertices.size(), 2u * LineNum);
    for (int i = 0; i < LineNum; ++i)
    {
        const std::size_t vertex = 2 * static_cast<std::size_t>(i);
        EXPECT_EQ(getPoint(draws[0], vertex), sPoint(i, -1));
        EXPECT_EQ(getPoint(draws[0], vertex + 1), sPoint(2 * i, i));
        EXPECT_EQ(draws[0].vertices[vertex + 1].color.a, i);
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
