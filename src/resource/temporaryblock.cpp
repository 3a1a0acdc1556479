#include "resource/temporaryblock.h"

#include "application/application.h"
#include "foundation/allocator.h"

#include <climits>
#include <new>

namespace
{
constexpr unsigned int Alignment = 4;

AllocatorBase* findAllocator()
{
    const Application* application = Application::getInstance();
    return application ? application->getTempAllocator() : nullptr;
}

void* allocate(AllocatorBase* allocator, std::size_t size)
{
    if (size > INT_MAX)
        return nullptr;
    return allocator ? allocator->allocate(static_cast<int>(size), Alignment) : ::operator new[](size, std::nothrow);
}
}

TemporaryBlock::TemporaryBlock(std::size_t size)
    : mpAllocator(findAllocator()), mpBlock(static_cast<unsigned char*>(allocate(mpAllocator, size)))
{
}

TemporaryBlock::~TemporaryBlock()
{
    if (mpAllocator)
        mpAllocator->deallocate(mpBlock);
    else
        ::operator delete[](mpBlock);
}
