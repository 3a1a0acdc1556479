#include "application/system.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"

#include <new>

REFLECT(System, eTypeAttribute::Abstract, "ObjectBase");

namespace
{
constexpr unsigned int Alignment = 4;
}

AllocatorBase* System::mpAllocator = nullptr;

void* System::allocate(unsigned int size)
{
    if (!mpAllocator)
        return new (std::nothrow) char[size];
    return mpAllocator->allocate(static_cast<int>(size), Alignment);
}

void System::deallocate(void* block)
{
    if (mpAllocator)
        mpAllocator->deallocate(block);
    else
        delete[] static_cast<char*>(block);
}

void System::setAllocator(AllocatorBase* allocator)
{
    if (mpAllocator)
        dev_assert("Allocator already set.", __FILE__, __LINE__);
    mpAllocator = allocator;
}

void System::setProcessEnable(bool preprocess, bool update, bool postprocess)
{
    mPreprocessEnable = preprocess;
    mUpdateEnable = update;
    mPostprocessEnable = postprocess;
}

bool System::isEnable(ePhase phase) const
{
    switch (phase)
    {
    case ePhase::Preprocess: return mPreprocessEnable;
    case ePhase::Update: return mUpdateEnable;
    case ePhase::Postprocess: return mPostprocessEnable;
    case ePhase::Destroy: return true;
    }
    return false;
}

void System::clearDependency()
{
    for (List<System>& dependency : mDependency)
        dependency.clear();
}
