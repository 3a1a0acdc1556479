#pragma once

#include "foundation/singleton.h"
#include "foundation/vector.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"

class AllocatorBase;

// Knows the heaps of the program, in the order in which the head-up display lists them. The first is the global heap,
// which is not its own; the others are cut from that one and end with the manager.
class MemoryManager : public ObjectBase, public Singleton<MemoryManager>
{
    REFLECTED(MemoryManager)

public:
    void destroy();

    // A general heap of `size` bytes. The name is kept, not copied.
    AllocatorBase* createAllocator(unsigned int size, const char* name);

    unsigned int getAllocatorNum() const { return mAllocator.size(); }

    // Not checked.
    AllocatorBase* getAllocator(unsigned int index) const { return mAllocator[index]; }

private:
    friend Singleton<MemoryManager>;

    MemoryManager();
    ~MemoryManager() override;

    Vector<AllocatorBase> mAllocator;
};
