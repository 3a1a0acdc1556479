#pragma once

#include "foundation/allocator.h"

#include <cstdlib>
#include <cstring>

// Hands out a heap of its own piece by piece, never a piece twice, and counts. Freed pieces stay spoiled, so that
// reading them shows.
class CountingAllocator : public AllocatorBase
{
public:
    explicit CountingAllocator(unsigned int heapSize = 0x100000) : AllocatorBase(heapSize, "Counting", nullptr, false)
    {
    }

    void* allocate(int size, unsigned int alignment) override
    {
        const unsigned int bytes = static_cast<unsigned int>(std::abs(size));
        const unsigned int place = align(mUsed + HeaderSize, alignment < HeaderSize ? HeaderSize : alignment);
        if (mExhausted || place + bytes > getHeapSize())
            return nullptr;

        mUsed = place + bytes;
        mLast = bytes;
        mLastAlignment = alignment;
        ++mCalls;
        ++mLive;
        char* block = static_cast<char*>(getHeap()) + place;
        std::memcpy(block - sizeof(bytes), &bytes, sizeof(bytes));
        std::memset(block, 0xCD, bytes);
        return block;
    }

    void deallocate(void* block) override
    {
        if (!block)
            return;
        unsigned int bytes = 0;
        std::memcpy(&bytes, static_cast<char*>(block) - sizeof(bytes), sizeof(bytes));
        std::memset(block, 0xDD, bytes);
        --mLive;
    }

    void clear() override
    {
        mUsed = 0;
        mLive = 0;
    }

    unsigned int getUsedSize() const override { return mUsed; }

    // Blocks that are out, requests that were served, and the last one of these.
    int getLive() const { return mLive; }
    int getCalls() const { return mCalls; }
    unsigned int getLastSize() const { return mLast; }
    unsigned int getLastAlignment() const { return mLastAlignment; }

    bool owns(const void* block) const
    {
        const char* place = static_cast<const char*>(block);
        const char* heap = static_cast<const char*>(getHeap());
        return place >= heap && place < heap + getHeapSize();
    }

    // Refuses every request from now on, or serves again.
    void setExhausted(bool exhausted) { mExhausted = exhausted; }

private:
    static constexpr unsigned int HeaderSize = 16;

    unsigned int mUsed = 0;
    unsigned int mLast = 0;
    unsigned int mLastAlignment = 0;
    int mCalls = 0;
    int mLive = 0;
    bool mExhausted = false;
};
