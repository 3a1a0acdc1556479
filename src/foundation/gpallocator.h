#pragma once

#include "foundation/allocator.h"
#include "foundation/biasedlock.h"
#include "foundation/freeindex.h"

// The general heap: exact first fit, small blocks and negative sizes from the top, all others from the bottom, so that
// long-lived big blocks are not torn apart by small ones. The free blocks form a list in ascending order in which no
// two neighbours touch; the index knows the same blocks and saves the walk. A block left over at the end is fatal.
class GPAllocator : public AllocatorBase
{
public:
    using sHeader = sHeapBlock;

    // Requests of more than `threshold` bytes come from the bottom.
    GPAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, int threshold, bool threadSafe);
    ~GPAllocator() override;

    // Null and a trace when no free block fits.
    void* allocate(int size, unsigned int alignment) override;
    void deallocate(void* block) override;

    // Asserts that nothing is allocated.
    void clear() override;

    // Counts the headers of free blocks as used.
    unsigned int getUsedSize() const override;

    // How many blocks have ever been handed out.
    unsigned int getCallCount() const { return mCallCount; }

    // Traces every block in use and asserts if there is one.
    void checkLeak() const;

    // Compares the heap, the list of free blocks and the index with one another.
    bool isConsistent() const;

private:
    sHeader* at(unsigned int place) const;
    unsigned int placeOf(const sHeader* block) const;
    sHeader* atGranule(unsigned int granule) const;
    unsigned int granuleOf(const sHeader* block) const;
    unsigned char* getHeapStart() const { return static_cast<unsigned char*>(mpHeap); }
    unsigned char* getHeapEnd() const;

    template <typename Work>
    auto guard(Work work) const;

    void reset();
    unsigned char* allocateFw(unsigned int rounded, unsigned int alignment);
    unsigned char* allocateBk(unsigned int rounded, unsigned int alignment);
    unsigned char* take(sHeader* block, unsigned char* start, unsigned char* end, unsigned int fromBack);
    void release(sHeader* block);

    void insert(sHeader* block, sHeader* previous, sHeader* next);
    void remove(sHeader* block);
    void resize(sHeader* block, unsigned int size);
    void move(sHeader* block, sHeader* to);
    void join(sHeader* block, sHeader* behind);
    void connect(sHeader* previous, sHeader* next);

    bool isHeapConsistent() const;
    bool isListConsistent() const;

    sHeader* mpFreeHead = nullptr;
    sHeader* mpFreeTail = nullptr;
    int mThreshold;
    unsigned int mCallCount = 0;
    mutable BiasedLock<CriticalSection> mLock;
    unsigned int mFreeSize = 0;
    FreeIndex mIndex;
};
