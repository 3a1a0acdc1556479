#include "foundation/blockallocator.h"

#include "foundation/dev.h"

#include <cstddef>

namespace
{
constexpr unsigned int BlockGranule = 16;

// Holds the lock for the length of a scope; null holds nothing.
class ScopedSpinLock
{
public:
    explicit ScopedSpinLock(SpinLock* lock) : mpLock(lock)
    {
        if (mpLock)
            mpLock->lock();
    }

    ~ScopedSpinLock()
    {
        if (mpLock)
            mpLock->unlock();
    }

private:
    SpinLock* mpLock;
};
}

BlockAllocator::BlockAllocator(unsigned int blockSize, unsigned int blockNum, const char* name, AllocatorBase* parent,
                               bool threadSafe)
    : AllocatorBase(align(blockSize, BlockGranule) * blockNum, name, parent, threadSafe),
      mBlockSize(align(blockSize, BlockGranule)),
      mBlockNum(blockNum)
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

void* BlockAllocator::allocate(int size, unsigned int)
{
    if (mBlockSize < (size < 0 ? 0u - static_cast<unsigned int>(size) : static_cast<unsigned int>(size)))
        dev_assert("Requested size is larger than block size.", __FILE__, __LINE__);
    {
        ScopedSpinLock lock(getLock());
        if (mpStackTop != mpStack)
            return *--mpStackTop;
    }
    DEV_TRACE("BlockAllocator : Stack underflow.\n");
    return nullptr;
}

void BlockAllocator::deallocate(void* block)
{
    if (!block)
        return;
    const std::size_t offset = static_cast<std::size_t>(static_cast<char*>(block) - static_cast<char*>(mpHeap));
    if (offset >= mHeapSize || static_cast<unsigned int>(offset) % mBlockSize != 0)
        dev_assert("Deallocation block does not exist.", __FILE__, __LINE__);

    ScopedSpinLock lock(getLock());
    *mpStackTop++ = block;
}

void BlockAllocator::clear()
{
    if (getFreeNum() != mBlockNum)
        dev_assert("Memory leak detected.", __FILE__, __LINE__);
    refill();
}

unsigned int BlockAllocator::getUsedSize() const
{
    ScopedSpinLock lock(getLock());
    return mBlockSize * (mBlockNum - getFreeNum());
}

// The last block of the heap ends up on top.
void BlockAllocator::refill()
{
    mpStackTop = mpStack;
    for (unsigned int i = 0; i < mBlockNum; ++i)
        *mpStackTop++ = static_cast<char*>(mpHeap) + std::size_t(i) * mBlockSize;
}
