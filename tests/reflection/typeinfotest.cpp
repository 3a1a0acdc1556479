#include "reflection/typeinfo.h"

#include "reflection/objectbase.h"

#include <gtest/gtest.h>

namespace
{
// Registered in the order that they stand in, which is not that of the tree.
TypeInfo sFirst("TestFirst", "TestParent", 0);
TypeInfo sSecond("TestSecond", "TestParent", 1);
const bool sFirstHadBase = sFirst.getBase() || sFirst.isDerivedFrom("TestParent");
TypeInfo sParent("TestParent", "ObjectBase", 2);
TypeInfo sThird("TestThird", "TestParent", 0);

// Another name of the same id.
TypeInfo sTwin("Testhvyfhkfm", nullptr, 0);
constexpr const char* TwinName = "Testmjrvhliz";
}

TEST(TypeInfo, LinksRecordsWhateverTheirOrderIs)
{
    EXPECT_FALSE(sFirstHadBase) << "before the parent is there";
    for (const TypeInfo* child : {&sFirst, &sSecond, &sThird})
    {
        EXPECT_EQ(child->getBase(), &sParent);
        EXPECT_TRUE(child->isDerivedFrom("TestParent") && child->isDerivedFrom(ObjectBase::mUniqueTypeInfo));
        EXPECT_TRUE(child->isDerivedFrom(child->getID()));
    }
    EXPECT_FALSE(sParent.isDerivedFrom(sFirst) || sFirst.isDerivedFrom("TestNobody"));

    EXPECT_EQ(sParent.getOffshoot(), &sThird) << "newest first";
    EXPECT_TRUE(sThird.getLoop() == &sSecond && sSecond.getLoop() == &sFirst && !sFirst.getLoop());
}

TEST(TypeInfoDeathTest, StopsOnCollisionsAndWithoutItsDatabase)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH(TypeInfo("TestFirst", nullptr, 0), "TypeInfo collision detected.");
    EXPECT_DEATH(TypeInfo::find(TwinName), "TypeInfo Collision detected.");
    EXPECT_DEATH(
        {
            TypeInfo("TestLast", nullptr, 0);
            TypeInfo::find("TestFirst");
        },
        "Database is not constructed.");
}
