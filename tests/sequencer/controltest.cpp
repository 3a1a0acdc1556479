#include "sequencer/control.h"

#include "tests/support/values.h"

#include <limits>
#include <string>

namespace
{
constexpr long long S64Maximum = std::numeric_limits<long long>::max();
constexpr long long S64Minimum = std::numeric_limits<long long>::min();

template <typename T>
PropertyBase* makeProperty()
{
    static T value{};
    return new ReferenceProperty<T>("Attribute", &value);
}

// Limits are kept in the form of L, that of T but for types without limits of their own.
template <typename T, typename L>
void expectRange(L minimum, L maximum)
{
    const PropertyControl control(makeProperty<T>());
    EXPECT_TRUE(control.getMinimum().get<L>() == minimum) << ValueTraits<T>::name;
    EXPECT_TRUE(control.getMaximum().get<L>() == maximum) << ValueTraits<T>::name;
}
}

TEST(PropertyControl, KnowsTheRangeOfEachType)
{
    expectRange<signed char, signed char>(-128, 127);
    expectRange<unsigned char, unsigned char>(0, 255);
    expectRange<unsigned long long>(0ull, 18446744073709551615ull);
    expectRange<float>(-std::numeric_limits<float>::max(), std::numeric_limits<float>::max());
    expectRange<double>(-1.7976931348623157e308, 1.7976931348623157e308);
    expectRange<sFixed>(sFixed::Min, sFixed::Min);
    expectRange<int>(2147483647, -2147483647 - 1);
    expectRange<long long>(S64Maximum, S64Minimum);
    expectRange<sRect>(S64Maximum, S64Minimum);
}

TEST(PropertyControl, SharesItsPropertyWithItsDuplicates)
{
    const PropertyControl::sEnumInfo table[] = {{"Off", 0}, {"On", 5}};
    PropertyBase* property = makeProperty<unsigned int>();
    property->addRef();
    {
        const PropertyControl control(property, table, 2);
        const std::unique_ptr<PropertyControl> copy(control.duplicate());
        EXPECT_EQ(property->getReferenceCount(), 3u);
        EXPECT_EQ(copy->getNameHash(), 3607898120u);
        EXPECT_TRUE(copy->getArrayNum() == 2 && copy->getEnumInfo() != control.getEnumInfo() && !copy->getMaskInfo());
        EXPECT_STREQ(copy->getEnumInfo()[1].name, "On");
        EXPECT_EQ(copy->getMaximum().u64, 0xFFFFFFFFu);

        copy->invalidate();
        EXPECT_EQ(copy->getType(), ControlBase::eControlType::Invalid);
    }
    EXPECT_EQ(property->getReferenceCount(), 1u);
    property->release();
    EXPECT_EQ(PropertyControl(nullptr).getNameHash(), 0xFFFFFFFFu);

    const PropertyControl limited(makeProperty<unsigned short>(), 3, -4);
    EXPECT_EQ(limited.getMinimum().s32, 3);
    EXPECT_EQ(limited.getMaximum().u64, 0xFFFFFFFCu) << "in the low bytes";
}

namespace
{
// What was called, as text.
struct TestTarget
{
    void play() { calls += "play "; }
    void seek(unsigned int frame) { calls += std::to_string(frame) + " "; }

    std::string calls;
};
}

TEST(TriggerControl, CallsItsObjectWithTheArgument)
{
    TestTarget target;
    auto control = std::make_unique<TriggerControl<unsigned int>>("Seek", &target, &TestTarget::seek);
    const std::unique_ptr<TriggerControl<unsigned int>> copy(control->duplicate());
    EXPECT_EQ(copy->getNameHash(), 3150367409u);
    control->trigger(3);
    control.reset();
    copy->trigger(4);
    TriggerControl<void>("Play", &target, &TestTarget::play).trigger();
    TriggerControl<void>("Play", nullptr).trigger();
    EXPECT_EQ(target.calls, "3 4 play ");
}
