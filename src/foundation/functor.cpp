#include "foundation/functor.h"

#include "foundation/blockallocator.h"

namespace
{
constexpr unsigned int BlockSize = 0x20;
constexpr unsigned int BlockNum = 0x1000;
constexpr unsigned int Alignment = 4;

// Every functor fits a block exactly; its receiver has to inherit singly.
class Receiver;
static_assert(sizeof(Functor<Receiver, void, void>) == BlockSize);
static_assert(sizeof(Functor<Receiver, unsigned int, void>) == BlockSize);
static_assert(sizeof(ConstFunctor<Receiver, void, void>) == BlockSize);
static_assert(sizeof(ConstFunctor<Receiver, unsigned int, void>) == BlockSize);
} // namespace

void* FunctorBase::operator new(std::size_t size) noexcept
{
    return getAllocator().allocate(static_cast<int>(size), Alignment);
}

void FunctorBase::operator delete(void* block) noexcept
{
    getAllocator().deallocate(block);
}

BlockAllocator& FunctorBase::getAllocator()
{
    static BlockAllocator pool(BlockSize, BlockNum, "Functor", AllocatorBase::getGlobalAllocator(), true);
    return pool;
}
