#pragma once

#include "foundation/allocator.h"
#include "foundation/multithread.h"

// Hands out memory by moving one of two marks towards the other, the cheapest way there is, and takes it back only as a
// whole. All blocks of one instance must be asked for with the same alignment: only the result is aligned, the marks
// are not.
class InstantAllocator : public AllocatorBase
{
public:
    InstantAllocator(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe);

    // Asserts when the marks would cross.
    void* allocate(int size, unsigned int alignment) override;
    void deallocate(void* block) override;
    void clear() override;
    unsigned int getUsedSize() const override;

private:
    unsigned int reserveFront(unsigned int size);
    unsigned int reserveBack(unsigned int size);

    Atomic mFront;
    Atomic mBack;
};
