#include "animation/animprimitive.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"

#include <climits>
#include <new>

UniqueTypeInfo<AnimPrimitive> AnimPrimitive::mTypeInfo("AnimPrimitive", "ObjectBase");
constinit AllocatorBase* AnimPrimitive::mpAllocator = nullptr;

namespace
{
constexpr unsigned int Alignment = 4;
}

TypeInfo* AnimPrimitive::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* AnimPrimitive::getTypeInfo() const
{
    return &mTypeInfo;
}

void AnimPrimitive::setAllocator(AllocatorBase* allocator)
{
    if (mpAllocator)
        dev_assert("Allocator already set.", __FILE__, __LINE__);
    mpAllocator = allocator;
}

void* AnimPrimitive::allocate(std::size_t size) noexcept
{
    if (!mpAllocator)
        return ::operator new[](size, std::nothrow);
    return size > INT_MAX ? nullptr : mpAllocator->allocate(static_cast<int>(size), Alignment);
}

void AnimPrimitive::deallocate(void* block) noexcept
{
    if (mpAllocator)
        mpAllocator->deallocate(block);
    else
        ::operator delete[](block);
}
