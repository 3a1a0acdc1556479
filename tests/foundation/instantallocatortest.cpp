#include "foundation/instantallocator.h"

#include <gtest/gtest.h>

#include <climits>

TEST(InstantAllocatorTest, MovesTwoMarksTowardsEachOtherUntilItIsCleared)
{
    constexpr unsigned int HeapSize = 1024;
    InstantAllocator heap(HeapSize, "Instant", nullptr, false);
    const auto allocate = [&heap](int size, unsigned int alignment)
    {
        return static_cast<char*>(heap.allocate(size, alignment)) - static_cast<char*>(heap.getHeap());
    };
    EXPECT_EQ(allocate(10, 4), 0);
    EXPECT_EQ(allocate(4, 4), 12);
    EXPECT_EQ(allocate(-10, 4), 1012);
    EXPECT_EQ(allocate(-1, 4), 1008);
    EXPECT_EQ(allocate(0, 4), 16) << "takes nothing";
    EXPECT_EQ(heap.getUsedSize(), 16u + 16u);

    EXPECT_EQ(allocate(1008 - 16, 4), 16) << "the marks may meet";
    EXPECT_EQ(heap.getUsedSize(), HeapSize);
    heap.deallocate(heap.getHeap());
    EXPECT_EQ(heap.getUsedSize(), HeapSize);

    EXPECT_DEATH(allocate(INT_MIN, 1), "This allocator do not have enough memory.");
    heap.clear();
    EXPECT_EQ(heap.getUsedSize(), 0u);
    EXPECT_EQ(allocate(3, 1), 0);
    EXPECT_EQ(allocate(3, 1), 3) << "an alignment of 1 rounds nothing";
}
