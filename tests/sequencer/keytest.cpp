#include "sequencer/keytable.h"
#include "sequencer/sequenceruniquekey.h"
#include "tests/sequencer/sequenceprobe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

TEST(KeyTable, HasARowForEachTypeOfValue)
{
    using Row = std::tuple<unsigned int, unsigned int, const char*, unsigned int, unsigned int, unsigned int>;
    const Row rows[] = {{1, 130, "bool", 4, 2, 0},    {6, 131, "u8", 4, 2, 1},           {7, 132, "u16", 4, 2, 1},
                        {8, 133, "u32", 8, 4, 1},     {9, 134, "u64", 12, 4, 1},         {2, 135, "s8", 4, 2, 1},
                        {3, 136, "s16", 4, 2, 1},     {4, 137, "s32", 8, 4, 1},          {5, 138, "s64", 12, 4, 1},
                        {10, 139, "f32", 8, 4, 1},    {11, 140, "f64", 12, 4, 1},        {18, 141, "sFixed", 8, 4, 1},
                        {13, 0, "sPoint", 12, 4, 2},  {12, 0, "sSize", 12, 4, 2},        {14, 0, "sRect", 20, 4, 4},
                        {15, 0, "sColor", 8, 4, 4},   {16, 0, "sColorF", 20, 4, 4},      {17, 0, "sTexcoord", 8, 4, 2},
                        {19, 0, "sVector", 12, 4, 2}, {22, 0, "ResourceBase", 236, 4, 0}};
    for (const auto& [type, triggerType, name, stride, offset, components] : rows)
    {
        const sKeyRow* row = KeyTable::find(type);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_EQ(row->getTypeInfo()->getName(), "SequencerUniqueKey<" + std::string(name) + ">");
        EXPECT_TRUE(row->stride == stride && row->offset == offset && row->componentNum == components) << name;
        EXPECT_EQ(KeyTable::find(triggerType), triggerType ? row : nullptr) << name;
        char key[32];
        const bool behindHead = offset == 4 && type != 22;
        EXPECT_EQ(SequencerResource::getKeyParameter(key, type), behindHead ? key + 4 : nullptr);
    }
    for (unsigned int type : {20u, 21u, 23u, 128u, 142u})
        EXPECT_EQ(KeyTable::find(type), nullptr) << type;
    EXPECT_EQ(KeyTable::find(129), KeyTable::find(1)) << "a trigger without argument";
    EXPECT_NE(TypeInfo::find("SequencerUniqueKey<void>"), nullptr);
}

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

TEST(ResourceKey, HoldsOneReferenceOrNone)
{
    SequencerResource fits;
    SequencerResource tooLong;
    fits.setPath(("native/" + std::string(223, 'a') + ".seq").c_str());
    tooLong.setPath(("native/" + std::string(224, 'a') + ".seq").c_str());
    {
        SequencerUniqueKey<ResourceBase> key;
        EXPECT_EQ(key.getInterpolateType(), eInterpolateType::Trigger);
        EXPECT_TRUE(key.isTriggerOnly());
        sResourceKeyRecord record;
        std::memset(&record, 0x55, sizeof(record));
        SequencerResourceIntermediate::copyKeyParameter(&record, key, 22);
        EXPECT_EQ(record.typeID, 0xFFFFFFFFu);
        EXPECT_EQ(record.hash, 0xFFFFFFFFu);
        EXPECT_EQ(std::count(std::begin(record.path), std::end(record.path), 0), 224);
        EXPECT_EQ(record.head, 0x55555555u);

        key.setResource(&fits);
        key.setResource(&fits);
        EXPECT_EQ(fits.getReferenceCount(), 2);
        SequencerResourceIntermediate::copyKeyParameter(&record, key, 22);
        EXPECT_EQ(record.path, std::string(223, 'a'));
        EXPECT_EQ(record.hash, fits.getHash());
        key.setResource(&tooLong);
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        EXPECT_DEATH(SequencerResourceIntermediate::copyKeyParameter(&record, key, 22), "Too long path.");
    }
    EXPECT_EQ(fits.getReferenceCount(), 1);
}
