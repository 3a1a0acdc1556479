#include "reflection/property.h"

#include "reflection/valuetext.h"
#include "tests/support/values.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace
{
template <typename T>
std::string textOf(T value)
{
    char buffer[ValueTextSize];
    const char* text = ReferenceProperty<T>("value", &value).getString(buffer, PropertyBase::CurrentElement);
    return text ? text : "null";
}

template <typename T>
T parsed(const std::string& text)
{
    T value = makeValue<T>(1);
    ReferenceProperty<T>("value", &value).setString(text.c_str());
    return value;
}

template <typename T>
unsigned long long numberOf(T value)
{
    return ReferenceProperty<T>("value", &value).getNumeric(PropertyBase::CurrentElement);
}

template <typename T>
T fromNumber(unsigned long long number)
{
    T value = makeValue<T>(1);
    ReferenceProperty<T>("value", &value).setNumeric(number, PropertyBase::CurrentElement);
    return value;
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

TYPED_TEST(PropertyTest, ReachesTheElementsOfAnArray)
{
    TypeParam values[3] = {makeValue<TypeParam>(1), makeValue<TypeParam>(2), makeValue<TypeParam>(3)};
    ReferenceProperty<TypeParam> property("values", values, 3);
    PropertyBase& base = property;

    property.setIndex(1);
    EXPECT_TRUE(static_cast<TypeParam>(base) == values[1]);
    EXPECT_TRUE(base.getByType<TypeParam>(2) == values[2]);
    base = makeValue<TypeParam>(5);
    base.setByType(makeValue<TypeParam>(8), 0);
    EXPECT_TRUE(values[0] == makeValue<TypeParam>(8) && values[1] == makeValue<TypeParam>(5));
    EXPECT_TRUE(values[2] == makeValue<TypeParam>(3)) << "left alone";
    EXPECT_EQ(property.getPointer(), values);
}

TYPED_TEST(PropertyTest, AsksTheOwnerWhateverTheIndexIs)
{
    using Fixture = PropertyTest<TypeParam>;
    IndirectProperty<TypeParam> property("value", static_cast<Fixture*>(this), &Fixture::get, &Fixture::set, 3);
    EXPECT_EQ(property.getCount(), 3u);

    property.set(makeValue<TypeParam>(2), 2);
    EXPECT_TRUE(this->mValue == makeValue<TypeParam>(2));
    EXPECT_TRUE(property.get(0) == this->mValue && property.get(1) == this->mValue);
    EXPECT_EQ(property.getPointer(), nullptr);
}

TYPED_TEST(PropertyTest, HasTextAndNumberUnlessItIsAStructure)
{
    const TypeParam value = makeValue<TypeParam>(1);
    if constexpr (CompositeValue<TypeParam>)
    {
        EXPECT_EQ(textOf(value), "null");
        EXPECT_TRUE(parsed<TypeParam>("5") == value) << "ignored";
        EXPECT_EQ(numberOf(value), 0u);
        EXPECT_TRUE(fromNumber<TypeParam>(5) == value) << "ignored";
    }
    else if constexpr (!std::is_same_v<TypeParam, bool>)
    {
        EXPECT_TRUE(parsed<TypeParam>(textOf(value)) == value);
        EXPECT_TRUE(parsed<TypeParam>("nothing") == TypeParam()) << "no number reads as 0";
        EXPECT_EQ(numberOf(value), IntegerValue<TypeParam> ? 1u : 0u);
        EXPECT_TRUE(fromNumber<TypeParam>(7) == (IntegerValue<TypeParam> ? makeValue<TypeParam>(7) : value));
    }
}

TEST(Property, NumbersAndNamesOfTypesAreThoseOfDocuments)
{
    const char* const names[] = {"bool",  "s8",     "s16",      "s32",   "s64",   "u8",    "u16",
                                 "u32",   "u64",    "f32",      "f64",   "size",  "point", "rect",
                                 "color", "colorf", "texcoord", "fixed", "vector"};
    for (unsigned int type = 1; type <= std::size(names); ++type)
    {
        std::string name;
        visitValueType(ValueTypes{}, type,
                       [&]<typename T>()
                       {
                           T value{};
                           const ReferenceProperty<T> property("value", &value);
                           name = property.getType() == type ? property.getTypeName() : "wrong number";
                       });
        EXPECT_EQ(name, names[type - 1]);
    }
    EXPECT_FALSE(visitValueType(ValueTypes{}, 20, []<typename T>() {}));

    AutoString text("a");
    ReferenceProperty<AutoString> property("text", &text);
    EXPECT_EQ(property.getType(), 20u);
    EXPECT_STREQ(property.getTypeName(), "string");
    property.setString("b c");
    EXPECT_STREQ(property.getString(nullptr, 0), "b c");
}

TEST(Property, WritesAllIntegersAsSignedWords)
{
    EXPECT_EQ(textOf(0xFFFFFFFFu), "-1");
    EXPECT_EQ(parsed<unsigned int>("-1"), 0xFFFFFFFFu);
    EXPECT_EQ(textOf(3078513395u), "-1216453901");
    EXPECT_EQ(parsed<unsigned int>("-1216453901"), 3078513395u);
    EXPECT_EQ(textOf(0x100000001ll), "1");
    EXPECT_EQ(textOf(0x180000000ull), "-2147483648");
    EXPECT_EQ(parsed<unsigned long long>("-2147483648"), 0xFFFFFFFF80000000ull);
    EXPECT_EQ(parsed<unsigned long long>("-1"), std::numeric_limits<unsigned long long>::max());
    EXPECT_EQ(parsed<unsigned char>("300"), 44);
    EXPECT_EQ(textOf<signed char>(-128), "-128");
}

TEST(Property, WritesRealNumbersWithSixDecimals)
{
    const struct
    {
        int raw;
        const char* text;
        int back;
    } fixed[] = {
        {1, "0.000015", 0},
        {2, "0.000031", 2},
        {3, "0.000046", 3},
        {6554, "0.100006", 6553},
        {32769, "0.500015", 32768},
        {65535, "0.999985", 65535},
        {809041921, "12345.000000", 809041920},
    };
    for (const auto& row : fixed)
    {
        EXPECT_EQ(textOf(sFixed(row.raw, 0)), row.text);
        EXPECT_EQ(parsed<sFixed>(row.text).getRaw(), row.back);
    }

    EXPECT_EQ(textOf(1.00000001e-07f), "0.000000");
    EXPECT_EQ(parsed<float>(textOf(123456.789f)), 123456.789f);
    EXPECT_EQ(textOf(3.00000001e+38f), "300000000549775575777803994281145270272.000000");
    EXPECT_EQ(textOf(1e60), "9.9999999999999995e+59") << "too long for the buffer otherwise";
    const double lowest = std::numeric_limits<double>::lowest();
    EXPECT_EQ(parsed<double>(textOf(lowest)), lowest);
}

TEST(Property, FixedNumbersDriftThroughText)
{
    const auto reread = [](int raw)
    {
        return parsed<sFixed>(textOf(sFixed(raw, 0))).getRaw();
    };
    int first = 0;
    int second = 0;
    int drift = 0;
    for (int raw = 0; raw < 65536; ++raw)
    {
        const int once = reread(raw);
        const int twice = reread(once);
        first += once != raw;
        second += twice != once;
        drift += raw - twice;
    }
    EXPECT_EQ(first, 31466);
    EXPECT_EQ(second, 14506);
    EXPECT_EQ(drift, 45972);
}

TEST(Property, TextOfABoolIsInvertedOnReadingAndItsNumberIsNot)
{
    EXPECT_EQ(textOf(true) + textOf(false), "truefalse");
    EXPECT_FALSE(parsed<bool>("true"));
    for (const char* text : {"false", "1", "", "True"})
        EXPECT_TRUE(parsed<bool>(text)) << text;
    EXPECT_EQ(numberOf(true), 0xFFFFFFFFFFFFFFFFull);
    EXPECT_EQ(numberOf(false), 0u);
    EXPECT_TRUE(fromNumber<bool>(0x100000000ull));
    EXPECT_FALSE(fromNumber<bool>(0));
}

TEST(Property, NumbersExtendTheirSignAndAreCut)
{
    EXPECT_EQ(numberOf<signed char>(-1), 0xFFFFFFFFFFFFFFFFull);
    EXPECT_EQ(numberOf<unsigned char>(255), 255u);
    EXPECT_EQ(fromNumber<unsigned short>(0x12345), 0x2345);
}

TEST(Property, IndexOfAPlainValueStaysZero)
{
    int values[2] = {};
    ReferenceProperty<int> plain("value", values);
    plain.setIndex(5);
    EXPECT_EQ(plain.getIndex(), 0u);
    ReferenceProperty<int> array("values", values, 2);
    array.setIndex(1);
    EXPECT_EQ(array.getIndex(), 1u);
}

TEST(PropertyDeathTest, StopsOnAnIndexOutsideAndOnAnotherType)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    unsigned int values[2] = {};
    ReferenceProperty<unsigned int> property("values", values, 2);
    EXPECT_DEATH(property.setIndex(2), "Invalid index\\.");
    EXPECT_DEATH(property.getByType<int>(), "Type missmatch\n");
    EXPECT_DEATH(property.setByType(1), "Type missmatch\\.\n");
}
