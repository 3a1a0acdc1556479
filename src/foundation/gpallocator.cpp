#include "foundation/gpallocator.h"

#include "foundation/dev.h"

#include <climits>

namespace
{
using sHeader = GPAllocator::sHeader;

// What would stay of a free block must hold a header and one granule, or it goes with the allocated part.
constexpr unsigned int MinimumRest = 2 * sHeader::Granule;

unsigned int wholeGranules(unsigned int size)
{
    return size & ~(sHeader::Granule - 1);
}

sHeader* headerAt(unsigned char* address)
{
    return reinterpret_cast<sHeader*>(address);
}

unsigned char* payloadOf(sHeader* block)
{
    return reinterpret_cast<unsigned char*>(block + 1);
}

unsigned char* endOf(sHeader* block)
{
    return payloadOf(block) + block->mSize;
}

unsigned char* alignUp(unsigned char* address, unsigned int alignment)
{
    return static_cast<unsigned char*>(AllocatorBase::align(static_cast<void*>(address), alignment));
}

unsigned char* alignDown(unsigned char* address, unsigned int alignment)
{
    return address - (reinterpret_cast<std::uintptr_t>(address) & (alignment - 1));
}

unsigned int distance(const unsigned char* from, const unsigned char* to)
{
    return static_cast<unsigned int>(to - from);
}

// Holds the place of the block that a handed out pointer lies in.
std::uint32_t& wordBefore(void* pointer)
{
    return static_cast<std::uint32_t*>(pointer)[-1];
}
}

GPAllocator::GPAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, int threshold, bool threadSafe)
    : AllocatorBase(heapSize, name, parent, threadSafe),
      mThreshold(threshold),
      mIndex(mpHeap, heapSize / sHeader::Granule)
{
    reset();
}

GPAllocator::~GPAllocator()
{
    checkLeak();
}

template <typename Work>
auto GPAllocator::guard(Work work) const
{
    return mThreadSafe ? mLock.run(work) : work();
}

void* GPAllocator::allocate(int size, unsigned int alignment)
{
    const unsigned int requested = size < 0 ? 0u - static_cast<unsigned int>(size) : static_cast<unsigned int>(size);
    const unsigned int rounded = requested ? wholeGranules(requested + sHeader::Granule - 1) : sHeader::Granule;
    unsigned char* start = guard(
        [=, this]() -> unsigned char*
        {
            ++mCallCount;
            if (size == INT_MIN)
                return nullptr;
            unsigned char* taken = mThreshold < size ? allocateFw(rounded, alignment) : allocateBk(rounded, alignment);
            if (taken)
                at(wordBefore(taken))->mRequestedSize = requested;
            return taken;
        });
    if (!start)
        DEV_TRACE("Heap allocation failed.(%s:size = %d)", mName, size);
    return start;
}

void GPAllocator::deallocate(void* block)
{
    if (!block)
        return;
    guard([=, this] { release(at(wordBefore(block))); });
}

void GPAllocator::clear()
{
    guard(
        [this]
        {
            checkLeak();
            reset();
        });
}

unsigned int GPAllocator::getUsedSize() const
{
    return guard([this] { return mHeapSize - mFreeSize; });
}

void GPAllocator::checkLeak() const
{
    // On purpose: a heap that is used up to its last byte is not searched.
    if (!mpFreeHead)
        return;

    bool leaking = false;
    const sHeader* free = mpFreeHead;
    for (sHeader* block = headerAt(getHeapStart()); block != headerAt(getHeapEnd()); block = headerAt(endOf(block)))
    {
        if (block == free)
        {
            free = at(free->mpNext);
            continue;
        }
        DEV_TRACE("%s : leak detected(call no = %d,size = %d).\n", mName, static_cast<int>(block->mCallNo),
                  static_cast<int>(block->mRequestedSize));
        leaking = true;
    }
    if (leaking)
        dev_assert("Memory leak detected.", __FILE__, __LINE__);
}

bool GPAllocator::isConsistent() const
{
    return isHeapConsistent() && isListConsistent() && mIndex.isConsistent();
}

GPAllocator::sHeader* GPAllocator::at(unsigned int place) const
{
    return place ? headerAt(getHeapStart() + (place - 1)) : nullptr;
}

unsigned int GPAllocator::placeOf(const sHeader* block) const
{
    return block ? distance(getHeapStart(), reinterpret_cast<const unsigned char*>(block)) + 1 : 0;
}

GPAllocator::sHeader* GPAllocator::atGranule(unsigned int granule) const
{
    return granule == FreeIndex::None ? nullptr : static_cast<sHeader*>(mpHeap) + granule;
}

unsigned int GPAllocator::granuleOf(const sHeader* block) const
{
    return static_cast<unsigned int>(block - static_cast<const sHeader*>(mpHeap));
}

// A heap too small for a header and one granule has no blocks at all.
unsigned char* GPAllocator::getHeapEnd() const
{
    return getHeapStart() + (mHeapSize < MinimumRest ? 0 : wholeGranules(mHeapSize));
}

void GPAllocator::reset()
{
    mIndex.clear();
    mpFreeHead = mpFreeTail = nullptr;
    mFreeSize = 0;
    if (getHeapEnd() == getHeapStart())
        return;

    sHeader* whole = headerAt(getHeapStart());
    *whole = {};
    whole->mSize = distance(payloadOf(whole), getHeapEnd());
    insert(whole, nullptr, nullptr);
}

// The lowest free block that fits; its upper part stays free.
unsigned char* GPAllocator::allocateFw(unsigned int rounded, unsigned int alignment)
{
    for (sHeader* block = atGranule(mIndex.findLowest(rounded)); block;
         block = atGranule(mIndex.findAbove(granuleOf(block), rounded)))
    {
        unsigned char* start = alignUp(payloadOf(block), alignment);
        unsigned char* end = endOf(block);
        const std::ptrdiff_t rest = end - start - static_cast<std::ptrdiff_t>(rounded);
        if (rest < 0)
            continue;
        if (rest < MinimumRest)
        {
            remove(block);
            return take(block, start, end, 0);
        }
        move(block, headerAt(start + rounded));
        return take(block, start, start + rounded, 0);
    }
    return nullptr;
}

// The highest free block that fits; its lower part stays free.
unsigned char* GPAllocator::allocateBk(unsigned int rounded, unsigned int alignment)
{
    // Every free block holds a granule, so that the highest of all is the one for the smallest size.
    sHeader* highest = rounded == sHeader::Granule ? mpFreeTail : atGranule(mIndex.findHighest(rounded));
    for (sHeader* block = highest; block; block = atGranule(mIndex.findBelow(granuleOf(block), rounded)))
    {
        unsigned char* end = endOf(block);
        unsigned char* start = alignDown(end - rounded, alignment);
        const std::ptrdiff_t rest = start - payloadOf(block);
        if (rest < 0)
            continue;
        if (rest < MinimumRest)
        {
            remove(block);
            return take(block, start, end, 1);
        }
        sHeader* used = headerAt(start) - 1;
        resize(block, distance(payloadOf(block), reinterpret_cast<unsigned char*>(used)));
        return take(used, start, end, 1);
    }
    return nullptr;
}

// Makes a used block up to `end` that hands out `start`.
unsigned char* GPAllocator::take(sHeader* block, unsigned char* start, unsigned char* end, unsigned int fromBack)
{
    const unsigned int place = placeOf(block);
    *block = {0, 0, distance(payloadOf(block), end), 0, mCallCount, fromBack, 0, place};
    wordBefore(start) = place;
    return start;
}

// Puts the block among the free ones and joins it with the neighbours that it touches.
void GPAllocator::release(sHeader* block)
{
    sHeader* next = headerAt(endOf(block));
    const bool joinsNext = endOf(block) != getHeapEnd() && mIndex.contains(granuleOf(next));
    const bool joinsPrevious = mIndex.endsBefore(granuleOf(block));
    block->mpOwner = 0;

    if (joinsPrevious)
    {
        sHeader* previous = joinsNext ? at(next->mpPrevious) : atGranule(mIndex.findBefore(granuleOf(block)));
        if (joinsNext)
            join(previous, next);
        else
            resize(previous, distance(payloadOf(previous), endOf(block)));
    }
    else if (joinsNext)
        move(next, block);
    else
    {
        sHeader* previous = atGranule(mIndex.findBefore(granuleOf(block)));
        insert(block, previous, previous ? at(previous->mpNext) : mpFreeHead);
    }
}

void GPAllocator::insert(sHeader* block, sHeader* previous, sHeader* next)
{
    connect(previous, block);
    connect(block, next);
    mIndex.insert(granuleOf(block), block->mSize);
    mFreeSize += block->mSize;
}

void GPAllocator::remove(sHeader* block)
{
    connect(at(block->mpPrevious), at(block->mpNext));
    mIndex.remove(granuleOf(block), block->mSize);
    mFreeSize -= block->mSize;
}

void GPAllocator::resize(sHeader* block, unsigned int size)
{
    const unsigned int oldSize = block->mSize;
    block->mSize = size;
    mIndex.moveEnd(granuleOf(block), oldSize, size);
    mFreeSize += size - oldSize;
}

// Lets the free block begin elsewhere and keep its end and its place in the list.
void GPAllocator::move(sHeader* block, sHeader* to)
{
    const unsigned int size = distance(payloadOf(to), endOf(block));
    const unsigned int oldSize = block->mSize;
    sHeader* previous = at(block->mpPrevious);
    sHeader* next = at(block->mpNext);
    *to = {0, 0, size, 0, 0, 0, 0, 0};
    connect(previous, to);
    connect(to, next);
    mIndex.moveStart(granuleOf(block), oldSize, granuleOf(to), size);
    mFreeSize += size - oldSize;
}

// Lets the free block grow up to the end of the next free one.
void GPAllocator::join(sHeader* block, sHeader* behind)
{
    const unsigned int oldSize = block->mSize;
    connect(block, at(behind->mpNext));
    mFreeSize += distance(endOf(block), payloadOf(behind));
    block->mSize = distance(payloadOf(block), endOf(behind));
    mIndex.join(granuleOf(block), oldSize, granuleOf(behind), behind->mSize);
}

// Makes two free blocks neighbours in the list; null stands for its ends.
void GPAllocator::connect(sHeader* previous, sHeader* next)
{
    if (previous)
        previous->mpNext = placeOf(next);
    else
        mpFreeHead = next;

    if (next)
        next->mpPrevious = placeOf(previous);
    else
        mpFreeTail = previous;
}

// Every block is owned by itself or free, and no two free ones touch.
bool GPAllocator::isHeapConsistent() const
{
    unsigned int freeSize = 0;
    bool afterFree = false;
    unsigned char* block = getHeapStart();
    while (block < getHeapEnd())
    {
        sHeader* header = headerAt(block);
        const bool isFree = header->mpOwner == 0;
        if (isFree != mIndex.contains(granuleOf(header)) || (isFree ? afterFree : header->mpOwner != placeOf(header)))
            return false;
        freeSize += isFree ? header->mSize : 0;
        afterFree = isFree;
        block = endOf(header);
    }
    return block == getHeapEnd() && freeSize == mFreeSize;
}

// From the end of the heap, list and index lead through the same blocks.
bool GPAllocator::isListConsistent() const
{
    sHeader* next = nullptr;
    sHeader* block = mpFreeTail;
    const unsigned int end = distance(getHeapStart(), getHeapEnd()) / sHeader::Granule;
    for (unsigned int granule = end ? mIndex.findBefore(end - 1) : FreeIndex::None; granule != FreeIndex::None;
         granule = mIndex.findBefore(granule))
    {
        if (block != atGranule(granule) || block->mpNext != placeOf(next))
            return false;
        next = block;
        block = at(block->mpPrevious);
    }
    return !block && next == mpFreeHead;
}
