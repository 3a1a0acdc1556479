#include "foundation/blockallocator.h"

#include "foundation/dev.h"

#include <cstddef>

namespace
{
constexpr unsigned int BlockGranule = 16;
}

BlockAllocator::BlockAllocator(unsigned int blockSize, unsigned int blockNum, const char* name, AllocatorBase* parent,
                               bool threadSafe)
    : AllocatorBase(align(blockSize, BlockGranule) * blockNum, name, parent, threadSafe),
      mBlockSize(align(blockSize, BlockGranule)),
      mBlockNum(blockNum),
      mReciprocal(UINT64_MAX / mBlockSize + 1)
{
    mpStack = parent ? static_cast<void**>(parent->allocate(static_cast<int>(blockNum * sizeof(void*)), alignof(void*)))
                     : new void*[blockNum];
    if (!mpStack)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    refill();
}

BlockAllocator::~BlockAllocator()
{
    if (getFreeNum() != mBlockNum)
    {
        DEV_TRACE("%s : leak detected.\n", mName);
        dev_assert("Memory leak detected.", __FILE__, __LINE__);
    }
    if (mpParent)
        mpParent->deallocate(mpStack);
    else
        delete[] mpStack;
}

void BlockAllocator::clear()
{
    if (getFreeNum() != mBlockNum)
        dev_assert("Memory leak detected.", __FILE__, __LINE__);
    refill();
}

unsigned int BlockAllocator::getUsedSize() const
{
    return mBlockSize * (mBlockNum - guard([this] { return getFreeNum(); }));
}

// The last block of the heap ends up on top.
void BlockAllocator::refill()
{
    mpStackTop = mpStack;
    for (unsigned int i = 0; i < mBlockNum; ++i)
        *mpStackTop++ = static_cast<char*>(mpHeap) + std::size_t(i) * mBlockSize;
}

void BlockAllocator::stopOnSize()
{
    dev_assert("Requested size is larger than block size.", __FILE__, __LINE__);
}

void BlockAllocator::stopOnBlock()
{
    dev_assert("Deallocation block does not exist.", __FILE__, __LINE__);
}

void* BlockAllocator::fail()
{
    DEV_TRACE("BlockAllocator : Stack underflow.\n");
    return nullptr;
}
