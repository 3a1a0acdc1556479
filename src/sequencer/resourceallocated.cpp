#include "sequencer/resourceallocated.h"

#include "resource/resourcebase.h"

void* ResourceAllocated::operator new(std::size_t size) noexcept
{
    return ResourceBase::operator new(size);
}

void ResourceAllocated::operator delete(void* block) noexcept
{
    ResourceBase::operator delete(block);
}
