// The operators of the program itself: everything made with `new` lies in the global heap, and a full heap yields null.
// This file is linked into programs only, whose symbols are hidden from shared libraries: those keep their own memory.

#include "foundation/allocator.h"

#include <climits>
#include <cstddef>
#include <new>

namespace
{
constexpr unsigned int Alignment = 4;

void* allocate(std::size_t size)
{
    return size <= INT_MAX ? AllocatorBase::getGlobalAllocator()->allocate(static_cast<int>(size), Alignment) : nullptr;
}

void deallocate(void* block)
{
    AllocatorBase::getGlobalAllocator()->deallocate(block);
}
}

void* operator new(std::size_t size)
{
    return allocate(size);
}

void* operator new[](std::size_t size)
{
    return allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void operator delete(void* block) noexcept
{
    deallocate(block);
}

void operator delete[](void* block) noexcept
{
    deallocate(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    deallocate(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    deallocate(block);
}
