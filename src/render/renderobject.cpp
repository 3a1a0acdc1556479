#include "render/renderobject.h"

#include "application/system.h"

void* RenderObject::operator new(std::size_t size) noexcept
{
    return System::allocate(static_cast<unsigned int>(size));
}

void RenderObject::operator delete(void* block)
{
    System::deallocate(block);
}

void RenderObject::unprotect(unsigned int frame)
{
    const unsigned int passed = frame - mProtectFrame.load(std::memory_order_relaxed);
    if (mProtected && static_cast<int>(passed) >= 0)
        mProtected = false;
}
