#pragma once

#include "reflection/objectbase.h"
#include "reflection/reflect.h"

#include <cstddef>

class AllocatorBase;

// What can stand on a track of an animation. Nothing here draws: such an object is a bag of values, which the
// sequence writes and whoever draws the animation reads.
class AnimPrimitive : public ObjectBase
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    // One allocator for all of them, set once and not owned; the global heap until then.
    static void setAllocator(AllocatorBase* allocator);
    static AllocatorBase* getAllocator() { return mpAllocator; }

    static void* allocate(std::size_t size) noexcept;
    static void deallocate(void* block) noexcept;
    static void* operator new(std::size_t size) noexcept { return allocate(size); }
    static void operator delete(void* block) noexcept { deallocate(block); }

private:
    static UniqueTypeInfo<AnimPrimitive> mTypeInfo;
    static AllocatorBase* mpAllocator;
};
