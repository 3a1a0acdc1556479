#include "sequencer/interpolation.h"

#include "tests/sequencer/sequenceprobe.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr eInterpolateType Constant = eInterpolateType::Constant;
constexpr eInterpolateType Linear = eInterpolateType::Linear;
constexpr eInterpolateType Hermite = eInterpolateType::Hermite;
constexpr eInterpolateType Trigger = eInterpolateType::Trigger;

// What playback makes of the keys at each frame.
template <typename T>
std::vector<T> play(const std::vector<sTestKey<T>>& keys, const std::vector<float>& frames)
{
    TestSequence sequence;
    sequence.addKeys(keys);
    TestPlayer sequencer(sequence);
    std::vector<T> values;
    for (float frame : frames)
    {
        sequencer.seek(0);
        sequencer.applySequence(frame);
        values.push_back(sequencer.getProbe().get<T>());
    }
    return values;
}

template <typename T>
std::vector<T> ramp(T from, T to, unsigned int frames = 10)
{
    std::vector<float> each;
    for (unsigned int i = 0; i <= frames; ++i)
        each.push_back(static_cast<float>(i));
    return play<T>({{0, from}, {frames, to}}, each);
}

// One component of the coefficients that the lane's keys make behind key `index`.
template <typename T>
sInterpolateParameter coefficients(const std::vector<sTestKey<T>>& keys, unsigned int index)
{
    TestSequence sequence;
    sequence.addKeys(keys);
    const sLaneRecord& lane = *sequence.findNativeLane("T", ValueTraits<T>::name);
    sInterpolateParameter parameters[4];
    makeInterpolateParameter<T>(parameters, {lane.key, lane.keyNum, lane.keyStride}, index);
    return parameters[0];
}

const std::vector<sTestKey<int>> Curve = {{0, 0, Hermite}, {10, 100, Hermite}, {20, 50, Hermite}, {30, 80, Hermite}};
}

TEST(Interpolation, SubtractsWithoutSignWhereTheValueHasNone)
{
    using U8 = std::vector<unsigned char>;
    EXPECT_EQ(ramp<unsigned char>(10, 5), (U8{10, 160, 64, 0, 128, 0, 0, 0, 0, 0, 5}));
    EXPECT_EQ(ramp<signed char>(10, 5), (std::vector<signed char>{10, 9, 9, 8, 8, 7, 7, 6, 6, 5, 5}));

    using U32 = std::vector<unsigned int>;
    EXPECT_EQ(ramp(1u, 0u), (U32{1, 429496736, 858993472, 1288490240, 1717986944, 2147483648, 2576980480, 3006477056,
                                 3435973888, 3865470720, 0}));
    EXPECT_EQ(ramp(0u, 1u), (U32{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(ramp(1u, 5u), (U32{1, 1, 1, 2, 2, 3, 3, 3, 4, 4, 5}));
    EXPECT_EQ(ramp(5u, 5u, 4)[1], 5u);

    EXPECT_EQ(
        ramp<unsigned long long>(5, 3, 4),
        (std::vector<unsigned long long>{5, 4611686018427387904u, 9223372036854775808u, 13835058055282163712u, 3}));
    EXPECT_EQ(ramp<long long>(5, 3, 4), (std::vector<long long>{5, 4, 4, 3, 3}));
}

TEST(Interpolation, WorksInFloatsOf32Bits)
{
    constexpr int Odd = 16777217;
    EXPECT_EQ(ramp(Odd, Odd), std::vector<int>({16777216, 16777216, 16777216, 16777216, 16777216, 16777216, 16777216,
                                                16777216, 16777216, 16777216, Odd}))
        << "the last key is applied as it stands";
    EXPECT_EQ(ramp(std::numeric_limits<int>::min(), std::numeric_limits<int>::max())[1],
              std::numeric_limits<int>::min());
    EXPECT_EQ(ramp(-7, 0, 4), (std::vector<int>{-7, -5, -3, -1, 0}));
    EXPECT_EQ(ramp(16777217.0, 16777217.0)[0], 16777216.0);
}

TEST(Interpolation, CurvesBetweenHermiteKeys)
{
    const float expected[3][4] = {{-175, 275, 0, 0}, {115, -190, 25, 100}, {-70, 110, -10, 50}};
    for (unsigned int i = 0; i < 3; ++i)
    {
        const sInterpolateParameter parameter = coefficients<int>(Curve, i);
        const float made[4] = {parameter.c3, parameter.c2, parameter.c1, parameter.c0};
        EXPECT_TRUE(std::equal(made, made + 4, expected[i])) << i;
    }
    EXPECT_EQ(play<int>(Curve, {0, 2.5, 5, 7.5, 10, 12.5, 15, 17.5, 20, 22.5, 25, 27.5, 30}),
              (std::vector<int>{0, 14, 46, 80, 100, 96, 79, 60, 50, 53, 63, 74, 80}));
}

TEST(Interpolation, TakesTheSlopeFromTheTypeOfTheNeighbour)
{
    const std::tuple<eInterpolateType, eInterpolateType, float, float, float> rows[] = {
        {Constant, Constant, 92.1875f, 75.0f, 57.8125f},      {Linear, Constant, 106.25f, 87.5f, 62.5f},
        {Hermite, Constant, 95.703125f, 78.125f, 58.984375f}, {Constant, Linear, 90.78125f, 71.25f, 53.59375f},
        {Constant, Hermite, 92.65625f, 76.25f, 59.21875f},    {Linear, Linear, 104.84375f, 83.75f, 58.28125f},
        {Trigger, Trigger, 92.1875f, 75.0f, 57.8125f},
    };
    for (const auto& [previous, next, early, middle, late] : rows)
    {
        const sInterpolateParameter parameter =
            coefficients<int>({{0, 0, previous}, {10, 100, Hermite}, {20, 50, next}, {30, 80}}, 1);
        EXPECT_EQ(Interpolation::evaluate(parameter, Hermite, 0.25f), early);
        EXPECT_EQ(Interpolation::evaluate(parameter, Hermite, 0.5f), middle);
        EXPECT_EQ(Interpolation::evaluate(parameter, Hermite, 0.75f), late);
    }
}

TEST(Interpolation, SubtractsComponentsAsFloatsButForTheSlopeAtTheEnd)
{
    const std::vector<sTestKey<sPoint>> points = {
        {0, {0, 0}, Hermite}, {10, {100, 0}, Hermite}, {20, {-40, 60}, Hermite}};
    EXPECT_EQ(play<sPoint>(points, {0, 4, 8, 12, 16, 20}),
              (std::vector<sPoint>{{0, 0}, {37, -2}, {92, -3}, {82, 10}, {7, 41}, {-40, 60}}));

    const std::vector<sTestKey<sSize>> sizes = {{0, {10, 0}, Hermite}, {10, {20, 0}, Hermite}, {20, {5, 0}, Hermite}};
    const auto widths = [](const std::vector<sTestKey<sSize>>& keys)
    {
        std::vector<unsigned int> all;
        for (const sSize& size : play<sSize>(keys, {0, 2, 4, 6, 8, 10}))
            all.push_back(size.width);
        return all;
    };
    EXPECT_EQ(widths(sizes), (std::vector<unsigned int>{10, 0, 0, 0, 0, 20}));
    EXPECT_EQ(coefficients<sSize>(sizes, 0).c3, 2147483648.0f);
    EXPECT_EQ(widths({{0, {20, 0}}, {10, {5, 0}}}), (std::vector<unsigned int>{20, 17, 14, 11, 8, 5}));

    std::vector<int> reds;
    for (const sColor& color : play<sColor>({{0, {0, 0, 0, 0}, Hermite},
                                             {10, {250, 0, 0, 0}, Hermite},
                                             {20, {255, 0, 0, 0}, Hermite},
                                             {30, {0, 0, 0, 0}, Hermite}},
                                            {10, 12.5, 15, 17.5, 20}))
        reds.push_back(color.r);
    EXPECT_EQ(reds, (std::vector<int>{250, 18, 28, 21, 255})) << "an overshoot wraps";
}

TEST(Interpolation, KeepsTheFractionsOfFixedPoint)
{
    std::vector<int> raw;
    for (sFixed value : play<sFixed>({{0, sFixed(-1.5f)}, {8, sFixed(1.25f)}}, {0, 2, 4, 6, 8}))
        raw.push_back(value.getRaw());
    EXPECT_EQ(raw, (std::vector<int>{-98304, -53248, -8192, 36864, 81920}));
}

TEST(Interpolation, TurnsFloatsIntoValuesByTruncation)
{
    using namespace Interpolation;
    constexpr float Huge = 1e30f;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_TRUE(fromFloat<unsigned char>(-1.9f) == 255 && fromFloat<unsigned short>(65537.0f) == 1);
    EXPECT_TRUE(fromFloat<signed char>(128.0f) == -128 && fromFloat<int>(4294967296.0f) == 0);
    EXPECT_TRUE(fromFloat<int>(Huge) == 0 && fromFloat<int>(nan) == 0);
    constexpr long long Lowest = std::numeric_limits<long long>::min();
    EXPECT_TRUE(fromFloat<long long>(Huge) == Lowest && fromFloat<long long>(nan) == Lowest);
    EXPECT_TRUE(fromFloat<unsigned int>(-5.0f) == 0 && fromFloat<unsigned int>(nan) == 0);
    EXPECT_EQ(fromFloat<unsigned int>(4294967296.0f), 0xFFFFFFFFu);
    EXPECT_EQ(fromFloat<unsigned int>(4294967040.0f), 4294967040u);
    EXPECT_EQ(fromFloat<unsigned long long>(Huge), 18446744073709551615u);
    EXPECT_EQ(fromFloat<unsigned long long>(-1.0f), 18446744073709551615u);
}
