#include "foundation/instantallocator.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <thread>
#include <vector>

class InstantAllocatorTest : public testing::TestWithParam<bool>
{
protected:
    static constexpr unsigned int HeapSize = 1024;

    std::ptrdiff_t allocate(int size, unsigned int alignment)
    {
        return static_cast<char*>(mHeap.allocate(size, alignment)) - static_cast<char*>(mHeap.getHeap());
    }

    InstantAllocator mHeap{HeapSize, "Instant", nullptr, GetParam()};
};

TEST_P(InstantAllocatorTest, MovesTwoMarksTowardsEachOtherUntilItIsCleared)
{
    EXPECT_EQ(allocate(10, 4), 0);
    EXPECT_EQ(allocate(4, 4), 12);
    EXPECT_EQ(allocate(-10, 4), 1012);
    EXPECT_EQ(allocate(-1, 4), 1008);
    EXPECT_EQ(allocate(0, 4), 16) << "takes nothing";
    EXPECT_EQ(mHeap.getUsedSize(), 16u + 16u);

    EXPECT_EQ(allocate(1008 - 16, 4), 16) << "the marks may meet";
    EXPECT_EQ(mHeap.getUsedSize(), HeapSize);
    mHeap.deallocate(mHeap.getHeap());
    EXPECT_EQ(mHeap.getUsedSize(), HeapSize);

    mHeap.clear();
    EXPECT_EQ(mHeap.getUsedSize(), 0u);
    EXPECT_EQ(allocate(3, 1), 0);
    EXPECT_EQ(allocate(3, 1), 3) << "an alignment of 1 rounds nothing";
}

TEST_P(InstantAllocatorTest, StopsWhenTheMarksWouldCross)
{
    allocate(512, 8);
    for (int size : {513, -513, INT_MAX, -INT_MAX, INT_MIN})
        EXPECT_DEATH(allocate(size, 1), "This allocator do not have enough memory.") << size;
}

INSTANTIATE_TEST_SUITE_P(Kinds, InstantAllocatorTest, testing::Bool(),
                         [](const auto& kind) { return kind.param ? "Shared" : "OfOneThread"; });

TEST(InstantAllocatorThreadTest, GivesEveryThreadMemoryOfItsOwn)
{
    constexpr unsigned int BlockNum = 2000;
    InstantAllocator heap(2 * BlockNum * 8, "Instant", nullptr, true);
    std::vector<void*> own;
    std::vector<void*> others;
    const auto fill = [&](std::vector<void*>& blocks)
    {
        for (unsigned int i = 0; i < BlockNum; ++i)
            blocks.push_back(heap.allocate(i % 2 ? 8 : -8, 8));
    };
    std::thread other([&] { fill(others); });
    fill(own);
    other.join();
    own.insert(own.end(), others.begin(), others.end());
    EXPECT_EQ(std::set<void*>(own.begin(), own.end()).size(), 2 * BlockNum);
}
