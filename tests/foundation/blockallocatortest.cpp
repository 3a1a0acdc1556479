#include "foundation/blockallocator.h"

#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <memory>

class BlockAllocatorTest : public testing::Test
{
protected:
    char* allocate() { return static_cast<char*>(mHeap->allocate(40, 4)); }

    // Sizes round up to 48.
    std::unique_ptr<BlockAllocator> mHeap = std::make_unique<BlockAllocator>(40, 3, "Blocks", nullptr, true);
    char* mStart = static_cast<char*>(mHeap->getHeap());
};

TEST_F(BlockAllocatorTest, HandsOutTheLastBlockFirstAndWhatCameBackNext)
{
    EXPECT_EQ(mHeap->getHeapSize(), 144u);
    EXPECT_EQ(allocate(), mStart + 96);
    EXPECT_EQ(allocate(), mStart + 48);
    EXPECT_EQ(mHeap->allocate(-48, 64), mStart) << "sign and alignment mean nothing";
    EXPECT_EQ(mHeap->getUsedSize(), 144u);
    {
        TraceCapture trace;
        EXPECT_EQ(allocate(), nullptr);
        EXPECT_EQ(trace.take(), "BlockAllocator : Stack underflow.\n");
    }
    mHeap->deallocate(nullptr);
    mHeap->deallocate(mStart + 48);
    mHeap->deallocate(mStart + 96);
    EXPECT_EQ(mHeap->getUsedSize(), 48u);
    EXPECT_EQ(allocate(), mStart + 96);
    mHeap->deallocate(mStart + 96);
    mHeap->deallocate(mStart);

    mHeap->clear();
    EXPECT_EQ(allocate(), mStart + 96) << "cleared, the order is as at first";
    mHeap->deallocate(mStart + 96);
}

TEST_F(BlockAllocatorTest, StopsOnWhatIsNoBlock)
{
    EXPECT_DEATH(static_cast<void>(mHeap->allocate(49, 4)), "Requested size is larger than block size.");
    EXPECT_DEATH(static_cast<void>(mHeap->allocate(-49, 4)), "Requested size is larger than block size.");
    for (int offset : {-48, 1, 16, 32, 64, 143, 144})
        EXPECT_DEATH(mHeap->deallocate(mStart + offset), "Deallocation block does not exist.") << offset;
}
