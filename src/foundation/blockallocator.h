#pragma once

#include "foundation/allocator.h"
#include "foundation/biasedlock.h"

#include <cstdint>

// Blocks of one size, handed out and taken back by a stack of free ones. A block left over at the end is fatal. Both
// stand here in full: they are shorter than a call.
class BlockAllocator final : public AllocatorBase
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
    bool isBlock(const void* address) const;

    template <typename Work>
    auto guard(Work work) const;

    [[noreturn]] static void stopOnSize();
    [[noreturn]] static void stopOnBlock();
    static void* fail();

    unsigned int getFreeNum() const { return static_cast<unsigned int>(mpStackTop - mpStack); }

    unsigned int mBlockSize;
    unsigned int mBlockNum;
    void** mpStack = nullptr;
    void** mpStackTop = nullptr;
    mutable BiasedLock<SpinLock> mLock;

    // 2 to the 64 over the block size, rounded up.
    std::uint64_t mReciprocal;
};

template <typename Work>
auto BlockAllocator::guard(Work work) const
{
    if (!mThreadSafe) [[unlikely]]
        return work();
    return mLock.run(work);
}

inline void* BlockAllocator::allocate(int size, unsigned int)
{
    if (mBlockSize < (size < 0 ? 0u - static_cast<unsigned int>(size) : static_cast<unsigned int>(size))) [[unlikely]]
        stopOnSize();

    void* block = guard([this]() -> void* { return mpStackTop == mpStack ? nullptr : *--mpStackTop; });
    return block ? block : fail();
}

// The block that comes back is the next to go out, and will be written then.
inline void BlockAllocator::deallocate(void* block)
{
    if (!block)
        return;
    if (!isBlock(block)) [[unlikely]]
        stopOnBlock();

    __builtin_prefetch(block, 1);
    guard([this, block] { return *mpStackTop++ = block; });
}

// A multiple of the block size is told by its product with the reciprocal, which wraps around to less than that.
inline bool BlockAllocator::isBlock(const void* address) const
{
    const std::uint64_t offset =
        static_cast<std::uint64_t>(static_cast<const char*>(address) - static_cast<const char*>(mpHeap));
    return offset < mHeapSize && offset * mReciprocal < mReciprocal;
}
