#pragma once

#include <cstddef>

// The classes of the editable tree live in the memory of the resources.
class ResourceAllocated
{
public:
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block) noexcept;
};
