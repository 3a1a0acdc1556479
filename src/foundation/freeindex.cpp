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

std::int32_t toGranules(unsigned int size)
{
    return static_cast<std::int32_t>(size / sHeapBlock::Granule);
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

    // One word more, since a look for a block's end goes on into the next one.
    mpEnds = reinterpret_cast<std::uint64_t*>(take((mBits[0].wordNum + 1) * sizeof(std::uint64_t)));

    mTreeLevelNum = 0;
    for (unsigned int groups = divideUp(mPageNum, Fan);; groups = divideUp(groups, Fan))
    {
        mTree[mTreeLevelNum++] = {reinterpret_cast<std::int32_t*>(take(groups * Fan * sizeof(std::int32_t))), groups};
        if (groups == 1)
            return used;
    }
}

std::int32_t FreeIndex::headerSize(unsigned int granule) const
{
    return toGranules(mpHeap[granule].mSize);
}

// The size of a block without its header, read from the marks if the end is close.
std::int32_t FreeIndex::sizeAt(unsigned int granule) const
{
    const std::uint64_t* ends = mpEnds + granule / WordBits;
    const unsigned int bit = granule % WordBits;
    if (const std::uint64_t near = ends[0] >> bit)
        return static_cast<std::int32_t>(pickBit<true>(near));
    if (ends[1])
        return static_cast<std::int32_t>(WordBits - bit + pickBit<true>(ends[1]));
    return headerSize(granule);
}

void FreeIndex::insert(unsigned int granule, unsigned int size)
{
    mark(granule);
    flipEnd(granule, toGranules(size));
    raise(granule / PageGranules, toGranules(size));
}

void FreeIndex::remove(unsigned int granule, unsigned int size)
{
    unmark(granule);
    flipEnd(granule, toGranules(size));
    lower(granule / PageGranules, toGranules(size));
}

void FreeIndex::moveEnd(unsigned int granule, unsigned int oldSize, unsigned int size)
{
    flipEnd(granule, toGranules(oldSize));
    flipEnd(granule, toGranules(size));
    replace(granule / PageGranules, toGranules(oldSize), granule / PageGranules, toGranules(size));
}

void FreeIndex::moveStart(unsigned int from, unsigned int oldSize, unsigned int to, unsigned int size)
{
    unmark(from);
    mark(to);
    replace(from / PageGranules, toGranules(oldSize), to / PageGranules, toGranules(size));
}

// The end of the block behind becomes the end of both.
void FreeIndex::join(unsigned int granule, unsigned int oldSize, unsigned int behind, unsigned int behindSize)
{
    unmark(behind);
    flipEnd(granule, toGranules(oldSize));
    const std::int32_t size = static_cast<std::int32_t>(behind - granule) + toGranules(behindSize);
    replace(behind / PageGranules, toGranules(behindSize), granule / PageGranules, size);
}

void FreeIndex::clear()
{
    std::memset(mBits[0].words, 0, mMemorySize);
}

bool FreeIndex::contains(unsigned int granule) const
{
    return mBits[0].words[granule / WordBits] >> granule % WordBits & 1;
}

bool FreeIndex::endsBefore(unsigned int granule) const
{
    const unsigned int last = granule - 1;
    return granule != 0 && (mpEnds[last / WordBits] >> last % WordBits & 1);
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
    return findInTree<true>(mTreeLevelNum - 1, 0, toGranules(size));
}

unsigned int FreeIndex::findHighest(unsigned int size) const
{
    return findInTree<false>(mTreeLevelNum - 1, Fan - 1, toGranules(size));
}

unsigned int FreeIndex::findAbove(unsigned int granule, unsigned int size) const
{
    return findBeyond<true>(granule, toGranules(size));
}

unsigned int FreeIndex::findBelow(unsigned int granule, unsigned int size) const
{
    return findBeyond<false>(granule, toGranules(size));
}

void FreeIndex::mark(unsigned int granule)
{
    for (unsigned int level = 0; level < mBitLevelNum; ++level, granule /= WordBits)
    {
        std::uint64_t& word = mBits[level].words[granule / WordBits];
        const bool known = word != 0;
        word |= std::uint64_t(1) << granule % WordBits;
        if (known)
            return;
    }
}

void FreeIndex::unmark(unsigned int granule)
{
    for (unsigned int level = 0; level < mBitLevelNum; ++level, granule /= WordBits)
    {
        std::uint64_t& word = mBits[level].words[granule / WordBits];
        word &= ~(std::uint64_t(1) << granule % WordBits);
        if (word)
            return;
    }
}

// Sets or clears the mark of the last granule of a block, whose header counts as the first.
void FreeIndex::flipEnd(unsigned int granule, std::int32_t size)
{
    const unsigned int last = granule + static_cast<unsigned int>(size);
    mpEnds[last / WordBits] ^= std::uint64_t(1) << last % WordBits;
}

// A page's largest block has become at least `size`.
void FreeIndex::raise(unsigned int page, std::int32_t size)
{
    unsigned int node = page;
    for (unsigned int level = 0; level < mTreeLevelNum && mTree[level].largest[node] < size; ++level, node /= Fan)
        mTree[level].largest[node] = size;
}

// A block of `oldSize` has shrunk or gone; a level is touched only while nothing else of that size is known to it. A
// group is read before it is written, since a wide read of what was just written has to wait.
void FreeIndex::lower(unsigned int page, std::int32_t oldSize)
{
    if (mTree[0].largest[page] > oldSize)
        return;
    std::int32_t largest = measurePage(page, oldSize);
    if (largest == oldSize)
        return;

    unsigned int node = page;
    for (unsigned int level = 0; level < mTreeLevelNum; ++level, node /= Fan)
    {
        std::int32_t* group = mTree[level].largest + node / Fan * Fan;
        const bool shared = fitting(group, oldSize) & ~(std::uint64_t(1) << node % Fan);
        group[node % Fan] = largest;
        if (shared)
            return;
        largest = largestOf(group);
    }
}

// Of a page that has lost one block and got another, only the larger one matters.
void FreeIndex::replace(unsigned int oldPage, std::int32_t oldSize, unsigned int page, std::int32_t size)
{
    raise(page, size);
    if (oldPage != page || size < oldSize)
        lower(oldPage, oldSize);
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

    for (unsigned int word = 0; word < mBits[0].wordNum; ++word)
        for (std::uint64_t bits = mBits[0].words[word]; bits; bits &= bits - 1)
            if (const unsigned int block = word * WordBits + pickBit<true>(bits); sizeAt(block) != headerSize(block))
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
