#include "sequencer/control.h"

#include "reflection/objectlist.h"
#include "reflection/objectproperty.h"
#include "tests/support/values.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace
{
template <typename T>
using Limits = std::numeric_limits<T>;

template <typename T>
void expectRange(T minimum, T maximum)
{
    T value{};
    const PropertyControl control(new ReferenceProperty<T>("value", &value));
    EXPECT_TRUE(control.getMinimum().get<T>() == minimum) << ValueTraits<T>::name;
    EXPECT_TRUE(control.getMaximum().get<T>() == maximum) << ValueTraits<T>::name;
}

// No value lies in it.
template <typename T>
void expectNoRange()
{
    T value{};
    const PropertyControl control(new ReferenceProperty<T>("value", &value));
    EXPECT_EQ(control.getMinimum().s64, Limits<long long>::max()) << ValueTraits<T>::name;
    EXPECT_EQ(control.getMaximum().s64, Limits<long long>::min());
}
}

TEST(PropertyControl, KnowsTheRangeOfEachType)
{
    expectRange<signed char>(-128, 127);
    expectRange<short>(-32768, 32767);
    expectRange<unsigned char>(0, 255);
    expectRange<unsigned short>(0, 65535);
    expectRange<unsigned int>(0, 4294967295u);
    expectRange<unsigned long long>(0, 18446744073709551615ull);
    expectRange<float>(Limits<float>::lowest(), Limits<float>::max());
    expectRange<double>(-1.7976931348623157e308, 1.7976931348623157e308);
    expectRange<sFixed>(sFixed::Min, sFixed::Min);
    expectRange<int>(2147483647, -2147483647 - 1);
    expectNoRange<bool>();
    expectNoRange<long long>();
    expectNoRange<sRect>();
    expectNoRange<AutoString>();
}

TEST(PropertyControl, SharesItsPropertyWithItsDuplicates)
{
    const PropertyControl::sEnumInfo table[] = {{"Off", 0}, {"On", 5}};
    unsigned int value = 0;
    auto* property = new ReferenceProperty<unsigned int>("Attribute", &value);
    property->addRef();
    {
        const PropertyControl control(property, table, 2);
        const std::unique_ptr<PropertyControl> copy(control.duplicate());
        EXPECT_EQ(property->getReferenceCount(), 3u);
        EXPECT_EQ(copy->getProperty(), property);
        EXPECT_EQ(copy->getNameHash(), 3607898120u);
        EXPECT_EQ(copy->getArrayNum(), 2u);
        EXPECT_NE(copy->getEnumInfo(), control.getEnumInfo());
        EXPECT_STREQ(copy->getEnumInfo()[1].name, "On");
        EXPECT_EQ(copy->getEnumInfo()[1].value, 5u);
        EXPECT_EQ(copy->getMaskInfo(), nullptr);
        EXPECT_EQ(copy->getMaximum().u64, 0xFFFFFFFFu);

        copy->invalidate();
        EXPECT_EQ(copy->getType(), ControlBase::eControlType::Invalid);
        EXPECT_EQ(control.getType(), ControlBase::eControlType::Property);
    }
    EXPECT_EQ(property->getReferenceCount(), 1u);
    property->release();

    const PropertyControl nameless(nullptr);
    EXPECT_EQ(nameless.getName(), nullptr);
    EXPECT_EQ(nameless.getNameHash(), 0xFFFFFFFFu);
}

TEST(PropertyControl, KeepsGivenLimitsAndClass)
{
    unsigned short value = 0;
    const PropertyControl control(new ReferenceProperty<unsigned short>("value", &value), 3, -4);
    EXPECT_EQ(control.getMinimum().s32, 3);
    EXPECT_EQ(control.getMaximum().s32, -4);
    EXPECT_EQ(control.getMaximum().u64, 0xFFFFFFFCu) << "the low bytes alone";

    ObjectList list;
    const PropertyControl object(new ObjectProperty("list", &list), ObjectList::getStaticTypeInfo());
    const std::unique_ptr<PropertyControl> copy(object.duplicate());
    EXPECT_EQ(copy->getObjectTypeInfo(), ObjectList::getStaticTypeInfo());
    EXPECT_EQ(copy->getMinimum().s64, Limits<long long>::max());
}

TEST(PropertyControlDeathTest, StopsOnTypesItCannotLimit)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const PropertyControl::sMaskInfo mask[] = {{"Bit", 1}};
    static float real = 0.0f;
    const auto make = []
    {
        return new ReferenceProperty<float>("real", &real);
    };
    EXPECT_DEATH(PropertyControl(make(), mask, 1), "Invalid property type\\.");
    EXPECT_DEATH(PropertyControl(make(), sFixed::Zero, sFixed::One), "Invalid property type\\.");
    EXPECT_DEATH(PropertyControl(make(), ObjectList::getStaticTypeInfo()), "Invalid property type\\.");
    static sPoint point(0, 0);
    EXPECT_DEATH(PropertyControl(new ReferenceProperty<sPoint>("point", &point), 0, 1), "Invalid property type\\.");
}

namespace
{
// What was called, as text.
class TestTarget
{
public:
    void play() { mCalls += "play "; }
    template <typename T>
    void take(T value)
    {
        mCalls += std::to_string(static_cast<int>(value)) + " ";
    }

    std::string mCalls;
};
}

TEST(TriggerControl, CallsItsObjectWithTheArgument)
{
    TestTarget target;
    auto control = std::make_unique<TriggerControl<unsigned int>>("Seek", &target, &TestTarget::take<unsigned int>);
    const std::unique_ptr<TriggerControl<unsigned int>> copy(control->duplicate());
    EXPECT_EQ(copy->getName(), control->getName());
    EXPECT_EQ(copy->getNameHash(), 3150367409u);
    EXPECT_EQ(copy->getType(), ControlBase::eControlType::Trigger);
    control->trigger(3);
    control.reset();
    copy->trigger(4);
    EXPECT_EQ(target.mCalls, "3 4 ");

    TriggerControl<void> plain("Play", &target, &TestTarget::play);
    plain.trigger();
    EXPECT_EQ(target.mCalls, "3 4 play ");
    TriggerControl<void>("Play", nullptr).trigger();
}

TEST(TriggerControl, NumbersItsArgumentTypes)
{
    const char* const names[] = {"bool", "u8", "u16", "u32", "u64", "s8", "s16", "s32", "s64", "f32", "f64", "fixed"};
    for (unsigned int i = 0; i < std::size(names); ++i)
    {
        const auto check = [&]<typename T>()
        {
            if constexpr (!std::is_void_v<T>)
            {
                const TriggerControl<T> control("Trigger", nullptr);
                EXPECT_EQ(control.getArgumentType(), 130 + i);
                EXPECT_STREQ(ValueTraits<T>::name, names[i]);
            }
        };
        EXPECT_TRUE(visitType<TriggerTraits>(TriggerTypes{}, 130 + i, check));
    }
    EXPECT_EQ(TriggerControl<void>("Trigger", nullptr).getArgumentType(), 129u);
    EXPECT_FALSE(visitType<TriggerTraits>(TriggerTypes{}, 142, []<typename T>() {}));
}
