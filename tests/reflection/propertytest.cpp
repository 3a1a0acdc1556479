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

template <typename T>
class PropertyTest : public testing::Test
{
public:
    T get() const { return mValue; }
    void set(T value) { mValue = value; }

    T mValue = makeValue<T>(1);
};

TYPED_TEST_SUITE(PropertyTest, AsTestTypes<ValueTypes>::Types);

TYPED_TEST(PropertyTest, ReachesElementsOfAnArrayOrTheOneValueOfItsOwner)
{
    const TypeParam odd = makeValue<TypeParam>(5);
    const TypeParam even = makeValue<TypeParam>(8);
    TypeParam values[3] = {odd, even, odd};
    ReferenceProperty<TypeParam> property("values", values, 3);
    PropertyBase& base = property;
    property.setIndex(1);
    EXPECT_TRUE(static_cast<TypeParam>(base) == even && base.getByType<TypeParam>(2) == odd);
    base = odd;
    base.setByType(even, 0);
    EXPECT_TRUE(values[0] == even && values[1] == odd && values[2] == odd);

    using Fixture = PropertyTest<TypeParam>;
    IndirectProperty<TypeParam> indirect("value", static_cast<Fixture*>(this), &Fixture::get, &Fixture::set, 3);
    indirect.set(even, 2);
    EXPECT_TRUE(this->mValue == even && indirect.get(0) == even && indirect.getCount() == 3);
    EXPECT_TRUE(property.getPointer() == values && !indirect.getPointer());
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
