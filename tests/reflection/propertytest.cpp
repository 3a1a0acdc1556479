#include "reflection/property.h"

#include "reflection/valuetext.h"
#include "tests/support/values.h"

#include <limits>
#include <string>

namespace
{
// One value of a type, through the operations of its property.
template <typename T>
struct Sample
{
    std::string text() const
    {
        char buffer[ValueTextSize];
        const char* result = property.getString(buffer, PropertyBase::CurrentElement);
        return result ? result : "null";
    }

    T parse(const std::string& from)
    {
        property.setString(from.c_str());
        return value;
    }

    T assign(unsigned long long number)
    {
        property.setNumeric(number, PropertyBase::CurrentElement);
        return value;
    }

    unsigned long long number() const { return property.getNumeric(PropertyBase::CurrentElement); }

    T value = makeValue<T>(1);
    ReferenceProperty<T> property{"value", &value};
};

template <typename T>
std::string textOf(T value)
{
    return Sample<T>{value}.text();
}
}

TEST(Property, WritesAllIntegersAsSignedWords)
{
    EXPECT_EQ(textOf(3078513395u), "-1216453901");
    EXPECT_EQ(Sample<unsigned int>().parse("-1216453901"), 3078513395u);
    EXPECT_EQ(textOf(0x100000001ll), "1");
    EXPECT_EQ(textOf(0x180000000ull), "-2147483648");
    EXPECT_EQ(Sample<unsigned long long>().parse("-2147483648"), 0xFFFFFFFF80000000ull);
    EXPECT_EQ(Sample<unsigned char>().parse("300"), 44);

    EXPECT_EQ(Sample<signed char>{-1}.number(), 0xFFFFFFFFFFFFFFFFull);
    EXPECT_EQ(Sample<unsigned char>{255}.number(), 255u);
    EXPECT_EQ(Sample<unsigned short>().assign(0x12345), 0x2345);
}

TEST(Property, WritesRealNumbersWithSixDecimals)
{
    EXPECT_EQ(textOf(sFixed(6554, 0)), "0.100006");
    EXPECT_EQ(Sample<sFixed>().parse("0.100006").getRaw(), 6553);
    EXPECT_EQ(Sample<sFixed>().parse("0.000015").getRaw(), 0);
    EXPECT_EQ(textOf(3.00000001e+38f), "300000000549775575777803994281145270272.000000");
    EXPECT_EQ(textOf(1e60), "9.9999999999999995e+59") << "too long for the buffer otherwise";
    EXPECT_EQ(Sample<double>().parse("-1.7976931348623157e+308"), std::numeric_limits<double>::lowest());
}

TEST(Property, FixedNumbersDriftThroughText)
{
    const auto reread = [](int raw)
    {
        return Sample<sFixed>().parse(textOf(sFixed(raw, 0))).getRaw();
    };
    int first = 0;
    int second = 0;
    for (int raw = 0; raw < 65536; ++raw)
    {
        first += raw - reread(raw);
        second += reread(raw) - reread(reread(raw));
    }
    EXPECT_EQ(first, 31466);
    EXPECT_EQ(second, 14506);
}

TEST(Property, TextOfABoolIsInvertedOnReadingAndItsNumberIsNot)
{
    Sample<bool> sample;
    EXPECT_EQ(sample.text(), "true");
    EXPECT_EQ(sample.number(), 0xFFFFFFFFFFFFFFFFull);
    EXPECT_FALSE(sample.parse("true"));
    EXPECT_TRUE(sample.parse("false") && sample.parse("1") && sample.parse(""));
    EXPECT_FALSE(sample.assign(0));
    EXPECT_TRUE(sample.assign(0x100000000ull));
}
