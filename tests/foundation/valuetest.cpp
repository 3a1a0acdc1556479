#include "foundation/scolor.h"
#include "foundation/sfixed.h"
#include "foundation/smatrix.h"
#include "foundation/srect.h"
#include "foundation/trigonometricalfunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

// What is used before main has to be known to the compiler.
static_assert(sColor::DarkGray.g == 105 && sColorF::Cyan.b == 1.0f && sFixed::Half.getRaw() == 0x8000);
static_assert(sRect(7u, 8u).getHeight() == 8 && sMatrix::Identity.m[1][1] == sFixed::One);
static_assert(sVector(3, -1).y.getRaw() == -65536 && sVector(sFixed::Half, sFixed::One).x == sFixed::Half);

TEST(sFixedTest, TruncatesFloatsAndFloorsToIntegers)
{
    const std::tuple<float, int, int, float> cases[] = {
        {-0.5f, -32768, -1, -0.5f},
        {0.1f, 6553, 0, 0.0999908447f},
        {-0.1f, -6553, -1, -0.0999908447f},
        {0.999f, 65470, 0, 0.99899292f},
        {-1.25f, -81920, -2, -1.25f},
        {32767.99f, 2147483008, 32767, 32767.9902f},
        {40000.0f, 2147483647, 32767, 32768.0f},
        {-1.0e30f, -2147483647 - 1, -32768, -32768.0f},
        {std::numeric_limits<float>::infinity(), 2147483647, 32767, 32768.0f},
        {std::numeric_limits<float>::quiet_NaN(), 0, 0, 0.0f},
    };
    for (const auto& [value, raw, whole, back] : cases)
    {
        const sFixed fixed(value);
        EXPECT_EQ(fixed.getRaw(), raw) << value;
        EXPECT_EQ(static_cast<int>(fixed), whole) << value;
        EXPECT_EQ(static_cast<float>(fixed), back) << value;
    }
}

TEST(sFixedTest, ShiftsProductsArithmeticallyAndWrapsSums)
{
    const int cases[][3] = {{-1, 1, -1},
                            {-32768, 32768, -16384},
                            {65536, -98304, -98304},
                            {-98304, 98304, -147456},
                            {2147483647, 131072, -2}};
    for (const auto& [left, right, product] : cases)
        EXPECT_EQ((sFixed(left, 0) * sFixed(right, 0)).getRaw(), product) << left << " * " << right;

    EXPECT_EQ(sFixed::Max + sFixed(1, 0), sFixed::Min);
    EXPECT_EQ(sFixed::Min - sFixed(1, 0), sFixed::Max);
    EXPECT_EQ(-sFixed::Min, sFixed::Min);
    EXPECT_NE(sFixed(0.4f), sFixed::Zero);
}

TEST(TrigonometricalFunctionTest, FollowsTheSineAllAround)
{
    TrigonometricalFunction::initialize();
    for (int angle = 0; angle < 1024; ++angle)
    {
        if (angle == 768)
            continue;
        const float sine = static_cast<float>(TrigonometricalFunction::getSin(angle));
        EXPECT_NEAR(sine, std::sin(angle * 3.14159265358979 / 512.0), 2.0e-5) << angle;
        EXPECT_EQ(TrigonometricalFunction::getCos(angle - 256), TrigonometricalFunction::getSin(angle));
        EXPECT_EQ(TrigonometricalFunction::getSin(angle - 1024), TrigonometricalFunction::getSin(angle));
    }
    // The last three differ as soon as the step is a float.
    for (const auto& [angle, raw] :
         {std::pair(768, 65536), std::pair(617, -39362), std::pair(664, -52639), std::pair(1017, -2813)})
        EXPECT_EQ(TrigonometricalFunction::getSin(angle).getRaw(), raw) << angle;
}

TEST(TrigonometricalFunctionTest, TurnsAndMovesPoints)
{
    TrigonometricalFunction::initialize();
    const int cases[][3] = {
        {0, 983040, 720896},   {1, 981412, 724908},    {64, 832834, 951730},   {128, 605720, 1107512},
        {256, 65536, 1114112}, {384, -321080, 736792}, {512, 983040, 720896},  {640, 49640, -190008},
        {768, 65536, 1114112}, {896, 976440, 180712},  {1023, 984628, 716868},
    };
    for (const auto& [angle, x, y] : cases)
    {
        const sMatrix matrix(sFixed(angle, 16), sVector(5, 7));
        const sVector moved = matrix.transform(sVector(10, 4));
        EXPECT_EQ(moved.x.getRaw(), x) << angle;
        EXPECT_EQ(moved.y.getRaw(), y) << angle;
        EXPECT_EQ((matrix * matrix).transform(sVector(0, 0)), matrix.transform(sVector(5, 7)));
    }
}
