#include "resource/resourcebase.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "reflection/reflect.h"
#include "resource/resourcesystem.h"

#include <climits>
#include <new>

REFLECT(ResourceBase, eTypeAttribute::Abstract, "ObjectBase");

namespace
{
constexpr unsigned int Alignment = 4;
}

constinit AllocatorBase* ResourceBase::mpAllocator = nullptr;

// Resources may outlive the system, which then has reported them as leaks.
ResourceBase::~ResourceBase()
{
    if (ResourceSystem* system = ResourceSystem::getInstance())
        system->removeResource(this);
}

bool ResourceBase::load(Stream&)
{
    return false;
}

bool ResourceBase::save(Stream&)
{
    return false;
}

bool ResourceBase::convert(Stream&)
{
    return false;
}

const char* ResourceBase::getExtension() const
{
    return nullptr;
}

const TypeInfo* ResourceBase::getIntermediateType() const
{
    return nullptr;
}

const TypeInfo* ResourceBase::getExtraIntermediateType(unsigned int) const
{
    return nullptr;
}

const TypeInfo* ResourceBase::getNativeType() const
{
    return nullptr;
}

const char* ResourceBase::getFilter() const
{
    return nullptr;
}

void ResourceBase::setPath(const AutoString& path)
{
    if (!mPath.empty())
        dev_assert("Path is already set.", __FILE__, __LINE__);
    mPath = path;
    mHash = mPath.hash();
}

void ResourceBase::setModify()
{
    mFlag |= Modified | Updated;
    raiseRevision();
}

void ResourceBase::clearModify()
{
    mFlag &= static_cast<unsigned short>(~Modified);
}

void ResourceBase::clearUpdate()
{
    mFlag &= static_cast<unsigned short>(~Updated);
}

void ResourceBase::setAllocator(AllocatorBase* allocator)
{
    if (mpAllocator)
        dev_assert("Allocator already set.", __FILE__, __LINE__);
    mpAllocator = allocator;
}

void* ResourceBase::allocate(unsigned int size) noexcept
{
    if (!mpAllocator)
        return ::operator new[](size, std::nothrow);
    return size > INT_MAX ? nullptr : mpAllocator->allocate(static_cast<int>(size), Alignment);
}

void ResourceBase::deallocate(void* block) noexcept
{
    if (mpAllocator)
        mpAllocator->deallocate(block);
    else
        ::operator delete[](block);
}

bool ResourceBase::hasRoom()
{
    return !mpAllocator || mpAllocator->hasRoom();
}

void* ResourceBase::operator new(std::size_t size) noexcept
{
    return allocate(static_cast<unsigned int>(size));
}

void ResourceBase::operator delete(void* block) noexcept
{
    deallocate(block);
}
