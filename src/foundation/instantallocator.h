#pragma once

#include "foundation/allocator.h"
#include "foundation/multithread.h"

#include <cstdint>

// Hands out memory by moving one of two marks towards the other, the cheapest way there is, and takes it back only as a
// whole. All blocks of one instance must be asked for with the same alignment: only the result is aligned, the marks
// are not. Allocation stands here in full, since recording does little else.
class InstantAllocator final : public AllocatorBase
{
public:
    InstantAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe);

    // Asserts when the marks would cross.
    void* allocate(int size, unsigned int alignment) override;
    void deallocate(void*) override {}
    void clear() override;
    unsigned int getUsedSize() const override;

private:
    // The marks count bytes of a heap that may be larger than a signed word can tell.
    static unsigned int place(const Atomic& mark) { return static_cast<unsigned int>(mark.get()); }

    unsigned int reserveFront(unsigned int size);
    unsigned int reserveBack(unsigned int size);
    [[noreturn]] static void stopOnCrossing();

    Atomic mFront;
    Atomic mBack;
};

inline void* InstantAllocator::allocate(int size, unsigned int alignment)
{
    const unsigned int requested = size < 0 ? 0u - static_cast<unsigned int>(size) : static_cast<unsigned int>(size);
    const unsigned int rounded = alignment > 1 ? align(requested, alignment) : requested;
    const unsigned int offset = size < 0 ? reserveBack(rounded) : reserveFront(rounded);
    return align(static_cast<unsigned char*>(mpHeap) + offset, alignment);
}

inline unsigned int InstantAllocator::reserveFront(unsigned int size)
{
    // Between threads the mark moves first and is tested afterwards: of two that drive the marks across each other,
    // the later one sees it.
    const unsigned int begin =
        mThreadSafe ? static_cast<unsigned int>(mFront.add(static_cast<int>(size))) : place(mFront);
    const std::uint64_t end = std::uint64_t(begin) + size;
    if (end > place(mBack)) [[unlikely]]
        stopOnCrossing();
    if (!mThreadSafe)
        mFront.setDirect(static_cast<int>(end));
    return begin;
}
