#include "foundation/memorymanager.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/gpallocator.h"

REFLECT(MemoryManager, eTypeAttribute::Singleton, "ObjectBase");

namespace
{
constexpr int Threshold = 32;
}

MemoryManager::MemoryManager() : Singleton("MemoryManager already instanced.")
{
    DEV_TRACE("MemoryManager : start.\n");
    mAllocator.addLast(AllocatorBase::getGlobalAllocator());
}

MemoryManager::~MemoryManager()
{
    for (unsigned int i = 1; i < mAllocator.size(); ++i)
        delete mAllocator[i];
    DEV_TRACE("MemoryManager : end.\n");
}

void MemoryManager::destroy()
{
    delete this;
}

AllocatorBase* MemoryManager::createAllocator(unsigned int size, const char* name)
{
    AllocatorBase* allocator = new GPAllocator(size, name, AllocatorBase::getGlobalAllocator(), Threshold, true);
    mAllocator.addLast(allocator);
    return allocator;
}
