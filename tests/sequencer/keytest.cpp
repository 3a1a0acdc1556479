#include "sequencer/sequencerkey.h"
#include "tests/sequencer/sequenceprobe.h"

#include <gtest/gtest.h>

#include <cstring>

template <typename T>
class KeyTest : public testing::Test
{
};

TYPED_TEST_SUITE(KeyTest, AsTestTypes<ValueTypes>::Types);

TYPED_TEST(KeyTest, CarriesItsValueThroughTheRecordToTheProperty)
{
    const TypeParam zero{};
    const TypeParam value = makeValue<TypeParam>(3);
    const char* name = ValueTraits<TypeParam>::name;
    TestSequence sequence;
    sequence.addProbeLane(name);
    sequence.addKey("T", name, 7, eInterpolateType::Hermite);
    SequencerKey* key = sequence.findKey("T", name, 7);
    ASSERT_NE(key, nullptr);
    EXPECT_EQ(std::memcmp(key->getParameter(), &zero, sizeof(zero)), 0);
    EXPECT_EQ(key->getParameterSize(), sizeof(TypeParam));
    EXPECT_EQ(key->getLabel(), name);

    sequence.setKeyParameter("T", name, 7, &value);
    const auto* record = static_cast<const unsigned char*>(sequence.findNativeKey("T", name, 7));
    EXPECT_EQ(std::memcmp(record + KeyTraits<TypeParam>::offset, &value, sizeof(value)), 0);
    EXPECT_TRUE(sequence.isConsistent());
    TestPlayer sequencer(sequence);
    EXPECT_EQ(std::memcmp(&sequencer.getProbe().get<TypeParam>(), &value, sizeof(value)), 0);
}
