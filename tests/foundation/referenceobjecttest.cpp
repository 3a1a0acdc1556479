#include "foundation/referenceobject.h"

#include <gtest/gtest.h>

namespace
{
// Outlives its last reference, to be looked at afterwards.
class Counted : public ReferenceObject
{
public:
    void end() override { ++mEnds; }

    int mEnds = 0;
};
} // namespace

TEST(ReferenceObjectTest, EndsWithTheLastReference)
{
    Counted object;
    object.addRef();
    object.release();
    EXPECT_EQ(object.mEnds, 0);
    object.release();
    EXPECT_EQ(object.mEnds, 1);

    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(object.release(), "Reference counter underflow.");
}
