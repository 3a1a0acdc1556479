#include "foundation/instantallocator.h"

#include "foundation/dev.h"

#include <cstdint>

namespace
{
// The marks count bytes of a heap that may be larger than a signed word can tell.
unsigned int place(const Atomic& mark)
{
    return static_cast<unsigned int>(mark.get());
}

[[noreturn]] void stopOnCrossing()
{
    dev_assert("This allocator do not have enough memory.", __FILE__, __LINE__);
}
}

InstantAllocator::InstantAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe)
    : AllocatorBase(heapSize, name, parent, threadSafe)
{
    clear();
}

void* InstantAllocator::allocate(int size, unsigned int alignment)
{
    const unsigned int requested = size < 0 ? 0u - static_cast<unsigned int>(size) : static_cast<unsigned int>(size);
    const unsigned int rounded = alignment > 1 ? align(requested, alignment) : requested;
    const unsigned int offset = size < 0 ? reserveBack(rounded) : reserveFront(rounded);
    return align(static_cast<unsigned char*>(mpHeap) + offset, alignment);
}

void InstantAllocator::deallocate(void*)
{
}

void InstantAllocator::clear()
{
    mFront.setDirect(0);
    mBack.setDirect(static_cast<int>(mHeapSize));
}

unsigned int InstantAllocator::getUsedSize() const
{
    return place(mFront) + mHeapSize - place(mBack);
}

// The mark moves first and is tested afterwards: of two threads that drive the marks across each other, the later one
// sees it.
unsigned int InstantAllocator::reserveFront(unsigned int size)
{
    const unsigned int begin =
        mThreadSafe ? static_cast<unsigned int>(mFront.add(static_cast<int>(size))) : place(mFront);
    if (std::uint64_t(begin) + size > place(mBack))
        stopOnCrossing();
    if (!mThreadSafe)
        mFront.setDirect(static_cast<int>(begin + size));
    return begin;
}

unsigned int InstantAllocator::reserveBack(unsigned int size)
{
    const unsigned int end = mThreadSafe ? static_cast<unsigned int>(mBack.sub(static_cast<int>(size))) : place(mBack);
    if (end < std::uint64_t(size) + place(mFront))
        stopOnCrossing();
    if (!mThreadSafe)
        mBack.setDirect(static_cast<int>(end - size));
    return end - size;
}
