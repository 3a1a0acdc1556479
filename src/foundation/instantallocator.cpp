#include "foundation/instantallocator.h"

#include "foundation/dev.h"

InstantAllocator::InstantAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe)
    : AllocatorBase(heapSize, name, parent, threadSafe)
{
    clear();
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

unsigned int InstantAllocator::reserveBack(unsigned int size)
{
    const unsigned int end = mThreadSafe ? static_cast<unsigned int>(mBack.sub(static_cast<int>(size))) : place(mBack);
    if (std::uint64_t(place(mFront)) + size > end)
        stopOnCrossing();
    if (!mThreadSafe)
        mBack.setDirect(static_cast<int>(end - size));
    return end - size;
}

void InstantAllocator::stopOnCrossing()
{
    dev_assert("This allocator do not have enough memory.", __FILE__, __LINE__);
}
