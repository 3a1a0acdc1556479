#include "animation/drawcurve.h"

#include "animation/animcell.h"
#include "animation/animresource.h"
#include "sequencer/sequencerlane.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/lanes.h"
#include "ui/uilinerun.h"

#include <gtest/gtest.h>

// A cell with a lane of its position and three keys.
class DrawCurveTest : public testing::Test
{
protected:
    DrawCurveTest()
    {
        mAnimation.addTrack(AnimCell::getStaticTypeInfo(), "Cell");
        addLane(mAnimation, "Cell", "Position");
        for (const auto& [frame, point] : {std::pair(0u, sPoint(0, 0)), {10u, {100, 0}}, {20u, {-40, 60}}})
        {
            mAnimation.addKey("Cell", "Position", frame, eInterpolateType::Hermite);
            mAnimation.setKeyParameter("Cell", "Position", frame, &point);
        }
    }

    // The number of lines of both colours.
    using Lines = std::pair<unsigned int, unsigned int>;
    Lines draw(unsigned int frame)
    {
        Lines lines(0, 0);
        for (const sRecordedDraw& draw : mSystems.record(
                 [&](DrawContext& context)
                 {
                     UIPainter painter(&context, 7);
                     UILineRun run(painter);
                     addCurve(run, mAnimation, 0, frame);
                 }))
            for (const sTexturedDeviceVertex& vertex : draw.vertices)
                ++(vertex.color == sColor::Red ? lines.first : lines.second);
        return Lines(lines.first / 2, lines.second / 2);
    }

    HeadlessSystems mSystems;
    AnimResource mAnimation;
};

TEST_F(DrawCurveTest, GoesWhereTheSequencerGoes)
{
    const std::array<sPoint, CurveStepNum> curves[] = {
        {{{2, 0}, {11, 0}, {22, -1}, {37, -2}, {52, -3}, {67, -4}, {81, -4}, {92, -3}, {98, -2}, {99, 0}}},
        {{{94, 4}, {82, 10}, {66, 17}, {47, 25}, {27, 33}, {7, 41}, {-11, 48}, {-26, 54}, {-36, 58}, {-39, 60}}},
    };
    ObjectList::Iterator key = mAnimation.findLane("Cell", "Position")->getKeyList().begin();
    for (const std::array<sPoint, CurveStepNum>& curve : curves)
    {
        EXPECT_EQ(makeHermiteCurve(key), curve) << "the steps add up to a little more than 1";
        ++key;
    }
}

TEST_F(DrawCurveTest, DrawsEachSegmentByTheTypeOfItsKeyAndMarksTheCurrentOne)
{
    EXPECT_EQ(draw(9), Lines(12, 14));
    EXPECT_EQ(draw(4000), Lines(2, 24)) << "the last key governs all that follows";
    mAnimation.setKeyInterpolateType("Cell", "Position", 0, eInterpolateType::Linear);
    mAnimation.setKeyInterpolateType("Cell", "Position", 10, eInterpolateType::Constant);
    EXPECT_EQ(draw(0), Lines(3, 4));
}
