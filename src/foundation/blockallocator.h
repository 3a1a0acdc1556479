#pragma once

#include "foundation/allocator.h"
#include "foundation/multithread.h"

// Blocks of one size, handed out and taken back by a stack of free ones. A block left over at the end is fatal.
class BlockAllocator : public AllocatorBase
{
public:
    // The block size is rounded up to 16.
    BlockAllocator(unsigned int blockSize, unsigned int blockNum, const char* name, AllocatorBase* parent,
                   bool threadSafe);
    ~BlockAllocator() override;

    // Any size up to that of a block; the sign and the alignment mean nothing here. Null and a trace when all blocks
    // are out.
    void* allocate(int size, unsigned int alignment) override;

    // Asserts on what is no block of this heap.
    void deallocate(void* block) override;

    // Asserts that no block is out.
    void clear() override;
    unsigned int getUsedSize() const override;

private:
    void refill();
    SpinLock* getLock() const { return mThreadSafe ? &mSpinLock : nullptr; }
    unsigned int getFreeNum() const { return static_cast<unsigned int>(mpStackTop - mpStack); }

    unsigned int mBlockSize;
    unsigned int mBlockNum;
    void** mpStack = nullptr;
    void** mpStackTop = nullptr;
    mutable SpinLock mSpinLock;
};
