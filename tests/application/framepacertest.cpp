#include "application/framepacer.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
constexpr std::uint64_t Millisecond = 1000000;
constexpr std::uint64_t Frame = 16666666; // one sixtieth of a second, as the intervals are cut
constexpr std::uint64_t Base = 5000 * Millisecond;

// One firing of the timer: when it begins and ends, counted from the first one, and what has to come of it.
struct sFiring
{
    std::uint64_t now;
    std::uint64_t after;
    std::optional<float> delta;
    unsigned int sleepTime;
    unsigned int currentFrame;
};

void expectFirings(FramePacer pacer, std::initializer_list<sFiring> firings)
{
    EXPECT_TRUE(pacer.start(Base)) << "the first firing only starts the clock";
    for (const sFiring& row : firings)
    {
        SCOPED_TRACE(row.now);
        EXPECT_FALSE(pacer.start(Base + row.now));
        EXPECT_EQ(pacer.begin(Base + row.now), row.delta);
        EXPECT_EQ(pacer.getSleepTime(Base + row.after), row.sleepTime);
        EXPECT_EQ(pacer.getCurrentFrame(), row.currentFrame);
    }
}
}

TEST(FramePacerTest, VariableStepFollowsTheTimeBetweenItsLimits)
{
    constexpr std::uint64_t Shortest = 4166666;
    const std::optional<float> none;
    expectFirings(FramePacer(60, 20, 240, 1, 1),
                  {
                      {Shortest - 1, Shortest - 1, none, 0, 0},
                      {Shortest, Shortest, static_cast<float>(double(Shortest) / double(Frame)), 3, 1},
                      {Shortest + Frame, Shortest + Frame + 2 * Millisecond, 1.0f, 1, 2},
                      {Shortest + 2 * Frame, Shortest + 2 * Frame + 5 * Millisecond, 1.0f, 0, 3},
                      {1000 * Millisecond, 1000 * Millisecond + 3000000, static_cast<float>(50.0 / 16.666666), 0, 4},
                  });
}

TEST(FramePacerTest, FixedStepSkipsWhatItMissed)
{
    const std::optional<float> none;
    expectFirings(FramePacer(60, 60, 60, 1, 1), {
                                                    {Frame - 1, Frame - 1, none, 0, 0},
                                                    {Frame, Frame, 1.0f, 15, 1},
                                                    {Frame + 1, Frame + 1, none, 15, 1},
                                                    {11 * Frame, 12 * Frame, 1.0f, 0, 11},
                                                    {12 * Frame, 13 * Frame - 1999999, 1.0f, 0, 12},
                                                    {13 * Frame, 14 * Frame - 2000000, 1.0f, 1, 13},
                                                });
}
