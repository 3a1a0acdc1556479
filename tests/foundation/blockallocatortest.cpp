#include "foundation/blockallocator.h"

#include "foundation/gpallocator.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <memory>

class BlockAllocatorTest : public testing::Test
{
protected:
    char* allocate() { return static_cast<char*>(mHeap->allocate(20, 4)); }

    // Sizes round up to 32.
    std::unique_ptr<BlockAllocator> mHeap = std::make_unique<BlockAllocator>(20, 3, "Blocks", nullptr, true);
    char* mStart = static_cast<char*>(mHeap->getHeap());
};

TEST_F(BlockAllocatorTest, HandsOutTheLastBlockFirstAndWhatCameBackNext)
{
    EXPECT_EQ(mHeap->getHeapSize(), 96u);
    EXPECT_EQ(allocate(), mStart + 64);
    EXPECT_EQ(allocate(), mStart + 32);
    EXPECT_EQ(mHeap->allocate(-32, 64), mStart) << "sign and alignment mean nothing";
    EXPECT_EQ(mHeap->getUsedSize(), 96u);
    {
        TraceCapture trace;
        EXPECT_EQ(allocate(), nullptr);
        EXPECT_EQ(trace.take(), "BlockAllocator : Stack underflow.\n");
    }
    mHeap->deallocate(nullptr);
    mHeap->deallocate(mStart + 32);
    mHeap->deallocate(mStart + 64);
    EXPECT_EQ(mHeap->getUsedSize(), 32u);
    EXPECT_EQ(allocate(), mStart + 64);
    mHeap->deallocate(mStart + 64);
    mHeap->deallocate(mStart);

    mHeap->clear();
    EXPECT_EQ(allocate(), mStart + 64) << "cleared, the order is as at first";
    mHeap->deallocate(mStart + 64);
}

TEST_F(BlockAllocatorTest, StopsOnWhatIsNoBlock)
{
    EXPECT_DEATH(static_cast<void>(mHeap->allocate(33, 4)), "Requested size is larger than block size.");
    EXPECT_DEATH(static_cast<void>(mHeap->allocate(-33, 4)), "Requested size is larger than block size.");
    for (int offset : {-32, 1, 16, 33, 95, 96})
        EXPECT_DEATH(mHeap->deallocate(mStart + offset), "Deallocation block does not exist.") << offset;
}

TEST_F(BlockAllocatorTest, KnowsItsBlocksWhateverTheirSize)
{
    for (unsigned int size : {16u, 48u, 112u, 2032u})
    {
        BlockAllocator heap(size, 5, "Odd", nullptr, false);
        void* blocks[5];
        for (void*& block : blocks)
            block = heap.allocate(1, 4);
        for (void* block : blocks)
            heap.deallocate(block);
        EXPECT_EQ(heap.getUsedSize(), 0u);
        EXPECT_DEATH(heap.deallocate(static_cast<char*>(blocks[0]) + size / 2), "does not exist") << size;
    }
}

TEST_F(BlockAllocatorTest, StopsWhenABlockIsStillOut)
{
    allocate();
    EXPECT_DEATH(mHeap->clear(), "Memory leak detected.");
    EXPECT_DEATH(mHeap.reset(), "Blocks : leak detected.\n.*Memory leak detected.");
    mHeap->deallocate(mStart + 64);
}

TEST_F(BlockAllocatorTest, TakesHeapAndStackFromItsParent)
{
    GPAllocator parent(0x1000, "Parent", nullptr, 32, false);
    const unsigned int used = parent.getUsedSize();
    {
        BlockAllocator heap(16, 10, "Child", &parent, false);
        EXPECT_GE(parent.getUsedSize(), used + 160 + 10 * sizeof(void*));
    }
    EXPECT_EQ(parent.getUsedSize(), used);
}
