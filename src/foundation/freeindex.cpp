#include "foundation/freeindex.h"

#include "foundation/dev.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>

#include <emmintrin.h>

namespace
{
constexpr unsigned int PageGranules = 128;
constexpr unsigned int WordBits = 64;
constexpr unsigned int PageWords = PageGranules / WordBits;
constexpr unsigned int Fan = 16;
constexpr std::size_t CacheLine = 64;

unsigned int divideUp(unsigned int value, unsigned int divisor)
{
    return value / divisor + (value % divisor != 0);
}

template <bool Lowest>
unsigned int pickBit(std::uint64_t word)
{
    return static_cast<unsigned int>(Lowest ? std::countr_zero(word) : std::bit_width(word) - 1);
}

std::uint64_t bitsBelow(unsigned int bit)
{
    return (std::uint64_t(1) << bit) - 1;
}

// The bits on the far side of `bit`, seen in the direction of the search.
template <bool Up>
std::uint64_t bitsBeyond(unsigned int bit)
{
    return Up ? ~std::uint64_t(1) << bit : bitsBelow(bit);
}

// One bit for each of a group's values that is at least `size`.
std::uint64_t fitting(const std::int32_t* group, std::int32_t size)
{
    const __m128i* lanes = reinterpret_cast<const __m128i*>(group);
    const __m128i limit = _mm_set1_epi32(size - 1);
    const __m128i low = _mm_packs_epi32(_mm_cmpgt_epi32(lanes[0], limit), _mm_cmpgt_epi32(lanes[1], limit));
    const __m128i high = _mm_packs_epi32(_mm_cmpgt_epi32(lanes[2], limit), _mm_cmpgt_epi32(lanes[3], limit));
    return static_cast<unsigned int>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
}

std::int32_t largestOf(const std::int32_t* group)
{
    std::int32_t largest = 0;
    for (unsigned int i = 0; i < Fan; ++i)
        largest = std::max(largest, group[i]);
    return largest;
}
}

FreeIndex::FreeIndex(const void* heap, unsigned int granuleNum)
    : mpHeap(static_cast<const sHeapBlock*>(heap)), mPageNum(std::max(divideUp(granuleNum, PageGranules), 1u))
{
    mMemorySize = layOut(nullptr);
    mpMemory = static_cast<unsigned char*>(std::calloc(mMemorySize + CacheLine, 1));
    if (!mpMemory)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    layOut(mpMemory + CacheLine - reinterpret_cast<std::uintptr_t>(mpMemory) % CacheLine);
}

FreeIndex::~FreeIndex()
{
    std::free(mpMemory);
}

// Deals out the memory to the levels, or only measures it when there is none yet.
std::size_t FreeIndex::layOut(unsigned char* memory)
{
    std::size_t used = 0;
    const auto take = [&](std::size_t size)
    {
        unsigned char* place = memory ? memory + used : nullptr;
        used += (size + CacheLine - 1) / CacheLine * CacheLine;
        return place;
    };

    mBitLevelNum = 0;
    for (unsigned int words = mPageNum * PageWords;; words = divideUp(words, WordBits))
    {
        mBits[mBitLevelNum++] = {reinterpret_cast<std::uint64_t*>(take(words * sizeof(std::uint64_t))), words};
        if (words == 1)
            break;
    }

    mTreeLevelNum = 0;
    for (unsigned int groups = divideUp(mPageNum, Fan);; groups = divideUp(groups, Fan))
    {
        mTree[mTreeLevelNum++] = {reinterpret_cast<std::int32_t*>(take(groups * Fan * sizeof(std::int32_t))), groups};
        if (groups == 1)
            return used;
    }
}

std::int32_t FreeIndex::sizeAt(unsigned int granule) const
{
    return static_cast<std::int32_t>(mpHeap[granule].mSize / sHeapBlock::Granule);
}

void FreeIndex::insert(unsigned int granule)
{
    unsigned int place = granule;
    for (unsigned int level = 0; level < mBitLevelNum; ++level, place /= WordBits)
    {
        std::uint64_t& word = mBits[level].words[place / WordBits];
        const bool known = word != 0;
        word |= std::uint64_t(1) << place % WordBits;
        if (known)
            break;
    }
    raise(granule, sizeAt(granule));
}

void FreeIndex::remove(unsigned int granule)
{
    unsigned int place = granule;
    for (unsigned int level = 0; level < mBitLevelNum; ++level, place /= WordBits)
    {
        std::uint64_t& word = mBits[level].words[place / WordBits];
        word &= ~(std::uint64_t(1) << place % WordBits);
        if (word)
            break;
    }
    lower(granule, sizeAt(granule));
}

void FreeIndex::resize(unsigned int granule, unsigned int oldSize)
{
    if (mpHeap[granule].mSize > oldSize)
        raise(granule, sizeAt(granule));
    else
        lower(granule, static_cast<std::int32_t>(oldSize / sHeapBlock::Granule));
}

void FreeIndex::clear()
{
    std::memset(mBits[0].words, 0, mMemorySize);
}

bool FreeIndex::contains(unsigned int granule) const
{
    return mBits[0].words[granule / WordBits] >> granule % WordBits & 1;
}

unsigned int FreeIndex::findBefore(unsigned int granule) const
{
    unsigned int place = granule;
    for (unsigned int level = 0; level < mBitLevelNum; ++level, place /= WordBits)
    {
        const std::uint64_t before = mBits[level].words[place / WordBits] & bitsBelow(place % WordBits);
        if (!before)
            continue;
        unsigned int found = place / WordBits * WordBits + pickBit<false>(before);
        while (level--)
            found = found * WordBits + pickBit<false>(mBits[level].words[found]);
        return found;
    }
    return None;
}

unsigned int FreeIndex::findLowest(unsigned int size) const
{
    return findInTree<true>(mTreeLevelNum - 1, 0, static_cast<std::int32_t>(size / sHeapBlock::Granule));
}

unsigned int FreeIndex::findHighest(unsigned int size) const
{
    return findInTree<false>(mTreeLevelNum - 1, Fan - 1, static_cast<std::int32_t>(size / sHeapBlock::Granule));
}

unsigned int FreeIndex::findAbove(unsigned int granule, unsigned int size) const
{
    return findBeyond<true>(granule, static_cast<std::int32_t>(size / sHeapBlock::Granule));
}

unsigned int FreeIndex::findBelow(unsigned int granule, unsigned int size) const
{
    return findBeyond<false>(granule, static_cast<std::int32_t>(size / sHeapBlock::Granule));
}

// A page's largest block has become at least `size`.
void FreeIndex::raise(unsigned int granule, std::int32_t size)
{
    unsigned int node = granule / PageGranules;
    for (unsigned int level = 0; level < mTreeLevelNum && mTree[level].largest[node] < size; ++level, node /= Fan)
        mTree[level].largest[node] = size;
}

// A block of `oldSize` has shrunk or gone; each level is touched only while that was its largest.
void FreeIndex::lower(unsigned int granule, std::int32_t oldSize)
{
    unsigned int node = granule / PageGranules;
    if (mTree[0].largest[node] > oldSize)
        return;

    std::int32_t largest = measurePage(node, oldSize);
    for (unsigned int level = 0; largest < oldSize; ++level)
    {
        mTree[level].largest[node] = largest;
        if (level + 1 == mTreeLevelNum)
            return;
        const std::int32_t* group = mTree[level].largest + node / Fan * Fan;
        node /= Fan;
        if (mTree[level + 1].largest[node] > oldSize || fitting(group, oldSize))
            return;
        largest = largestOf(group);
    }
}

// The largest block that starts in the page; the search ends early at one of `enough`.
std::int32_t FreeIndex::measurePage(unsigned int page, std::int32_t enough) const
{
    std::int32_t largest = 0;
    for (unsigned int word = page * PageWords; word < (page + 1) * PageWords; ++word)
        for (std::uint64_t bits = mBits[0].words[word]; bits && largest < enough; bits &= bits - 1)
            largest = std::max(largest, sizeAt(word * WordBits + pickBit<true>(bits)));
    return largest;
}

// The first block that fits in one page, beginning with the bits of `mask` in one of its words.
template <bool Up>
unsigned int FreeIndex::findInPage(unsigned int page, unsigned int wordInPage, std::uint64_t mask,
                                   std::int32_t size) const
{
    for (; wordInPage < PageWords; wordInPage += Up ? 1 : -1, mask = ~std::uint64_t(0))
    {
        const unsigned int word = page * PageWords + wordInPage;
        for (std::uint64_t bits = mBits[0].words[word] & mask; bits;)
        {
            const unsigned int bit = pickBit<Up>(bits);
            if (sizeAt(word * WordBits + bit) >= size)
                return word * WordBits + bit;
            bits &= bitsBeyond<Up>(bit);
        }
    }
    return None;
}

// The first block that fits in the pages from a node on: up the tree until a group holds one, then down to its page.
template <bool Up>
unsigned int FreeIndex::findInTree(unsigned int level, unsigned int node, std::int32_t size) const
{
    constexpr unsigned int First = Up ? 0 : PageWords - 1;

    for (; level < mTreeLevelNum; ++level)
    {
        unsigned int group = node / Fan;
        const unsigned int at = node % Fan;
        std::uint64_t found =
            fitting(mTree[level].largest + group * Fan, size) & (bitsBeyond<Up>(at) | std::uint64_t(1) << at);
        if (found)
        {
            node = group * Fan + pickBit<Up>(found);
            while (level--)
                node = node * Fan + pickBit<Up>(fitting(mTree[level].largest + node * Fan, size));
            return findInPage<Up>(node, First, ~std::uint64_t(0), size);
        }
        if (group == (Up ? mTree[level].groupNum - 1 : 0))
            break;
        node = group + (Up ? 1 : -1);
    }
    return None;
}

template <bool Up>
unsigned int FreeIndex::findBeyond(unsigned int granule, std::int32_t size) const
{
    const unsigned int page = granule / PageGranules;
    const unsigned int word = granule / WordBits % PageWords;
    const unsigned int found = findInPage<Up>(page, word, bitsBeyond<Up>(granule % WordBits), size);
    if (found != None || page == (Up ? mPageNum - 1 : 0))
        return found;
    return findInTree<Up>(0, page + (Up ? 1 : -1), size);
}

bool FreeIndex::isConsistent() const
{
    for (unsigned int level = 1; level < mBitLevelNum; ++level)
        for (unsigned int place = 0; place < mBits[level - 1].wordNum; ++place)
            if ((mBits[level].words[place / WordBits] >> place % WordBits & 1) != (mBits[level - 1].words[place] != 0))
                return false;

    for (unsigned int page = 0; page < mPageNum; ++page)
        if (mTree[0].largest[page] != measurePage(page, INT32_MAX))
            return false;

    for (unsigned int level = 1; level < mTreeLevelNum; ++level)
        for (unsigned int group = 0; group < mTree[level - 1].groupNum; ++group)
            if (mTree[level].largest[group] != largestOf(mTree[level - 1].largest + group * Fan))
                return false;
    return true;
}
