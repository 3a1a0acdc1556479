#pragma once

#include <cstddef>
#include <cstdint>

// The header in front of every block of a general heap, free or used. Links, the owner and the word in front of a
// handed out pointer hold a place: the offset from the heap's start plus 1, so that 0 can mean none.
struct sHeapBlock
{
    static constexpr unsigned int Granule = 32;

    std::uint32_t mpPrevious;
    std::uint32_t mpNext;
    std::uint32_t mSize;
    std::uint32_t mRequestedSize;
    std::uint32_t mCallNo;
    std::uint32_t mFromBack;
    std::uint32_t mReserved;
    std::uint32_t mpOwner;
};

static_assert(sizeof(sHeapBlock) == sHeapBlock::Granule);

// Answers what a walk over the free blocks of a heap would: the lowest or highest one that is large enough, and the one
// in front of an address. A 64-way bitmap marks where free blocks start, a plain one where they end; a 16-way tree over
// pages of 4 KiB holds the largest size among the blocks that start in each page. A block is named by its granule, the
// number of 32-byte steps from the heap's start. Its header is read only where the marks are far apart. Not locked.
class FreeIndex
{
public:
    static constexpr unsigned int None = 0xFFFFFFFF;

    // The index's own memory comes from the system, so that it takes no room in any heap.
    FreeIndex(const void* heap, unsigned int granuleNum);
    ~FreeIndex();

    FreeIndex(const FreeIndex&) = delete;
    FreeIndex& operator=(const FreeIndex&) = delete;

    // Sizes are in bytes, multiples of a granule, and those in the headers by the time of the call.
    void insert(unsigned int granule, unsigned int size);
    void remove(unsigned int granule, unsigned int size);

    // The block's end or its start has moved, or it has grown over the block behind it.
    void moveEnd(unsigned int granule, unsigned int oldSize, unsigned int size);
    void moveStart(unsigned int from, unsigned int oldSize, unsigned int to, unsigned int size);
    void join(unsigned int granule, unsigned int oldSize, unsigned int behind, unsigned int behindSize);
    void clear();

    // Whether a block starts at the granule, and whether one ends in front of it.
    bool contains(unsigned int granule) const;
    bool endsBefore(unsigned int granule) const;

    // The last block in front of `granule`, or None.
    unsigned int findBefore(unsigned int granule) const;

    // The first block from the low or the high end with at least `size` bytes, above 0, and the next one further up or
    // down; None when there is none.
    unsigned int findLowest(unsigned int size) const;
    unsigned int findHighest(unsigned int size) const;
    unsigned int findAbove(unsigned int granule, unsigned int size) const;
    unsigned int findBelow(unsigned int granule, unsigned int size) const;

    // Compares every level with the one beneath it, the lowest with the headers.
    bool isConsistent() const;

private:
    // Enough for any heap that a 32-bit size can tell.
    static constexpr unsigned int MaximumLevel = 6;

    struct sBitLevel
    {
        std::uint64_t* words;
        unsigned int wordNum;
    };

    // Sizes in granules, which fit a signed word.
    struct sTreeLevel
    {
        std::int32_t* largest;
        unsigned int groupNum;
    };

    std::size_t layOut(unsigned char* memory);
    std::int32_t headerSize(unsigned int granule) const;
    std::int32_t sizeAt(unsigned int granule) const;

    void mark(unsigned int granule);
    void unmark(unsigned int granule);
    void flipEnd(unsigned int granule, std::int32_t size);
    void raise(unsigned int page, std::int32_t size);
    void lower(unsigned int page, std::int32_t oldSize);
    void replace(unsigned int oldPage, std::int32_t oldSize, unsigned int page, std::int32_t size);
    std::int32_t measurePage(unsigned int page, std::int32_t enough) const;

    template <bool Up>
    unsigned int findInPage(unsigned int page, unsigned int wordInPage, std::uint64_t mask, std::int32_t size) const;
    template <bool Up>
    unsigned int findInTree(unsigned int level, unsigned int node, std::int32_t size) const;
    template <bool Up>
    unsigned int findBeyond(unsigned int granule, std::int32_t size) const;

    const sHeapBlock* mpHeap;
    unsigned int mPageNum;
    unsigned char* mpMemory = nullptr;
    std::size_t mMemorySize = 0;
    std::uint64_t* mpEnds = nullptr;
    unsigned int mBitLevelNum = 0;
    unsigned int mTreeLevelNum = 0;
    sBitLevel mBits[MaximumLevel] = {};
    sTreeLevel mTree[MaximumLevel] = {};
};
