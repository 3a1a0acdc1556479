#include "foundation/allocator.h"

#include "foundation/dev.h"
#include "foundation/gpallocator.h"

#include <climits>
#include <cstdlib>

namespace
{
constexpr unsigned int GlobalHeapSize = 0x8000000;
constexpr int GlobalThreshold = 32;
constexpr unsigned int HeapAlignment = 128;

// Objects of static storage may allocate before main and release after it, so the heap is made before the first of
// them and ends behind the last.
struct sGlobalHeapStart
{
    sGlobalHeapStart() { AllocatorBase::getGlobalAllocator(); }
};

[[gnu::init_priority(101)]] sGlobalHeapStart globalHeapStart;
}

AllocatorBase::AllocatorBase(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe)
    : mHeapSize(heapSize), mThreadSafe(threadSafe), mName(name), mpParent(parent)
{
    if (!parent)
        mpRawMemory = std::malloc(std::size_t(heapSize) + HeapAlignment - 1);
    else if (heapSize <= INT_MAX)
        mpRawMemory = parent->allocate(static_cast<int>(heapSize), HeapAlignment);

    if (!mpRawMemory)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    mpHeap = align128(mpRawMemory);
}

AllocatorBase::~AllocatorBase()
{
    if (mpParent)
        mpParent->deallocate(mpRawMemory);
    else
        std::free(mpRawMemory);
}

AllocatorBase* AllocatorBase::getGlobalAllocator()
{
    static GPAllocator global(GlobalHeapSize, "Global", nullptr, GlobalThreshold, true);
    return &global;
}
