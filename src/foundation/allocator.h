#pragma once

#include <cstdint>

// A fixed piece of memory, cut from a parent or from the system, and a way to hand out parts of it. The heap is
// reserved once, aligned to 128 bytes, and given back by the destructor.
class AllocatorBase
{
public:
    virtual ~AllocatorBase();

    AllocatorBase(const AllocatorBase&) = delete;
    AllocatorBase& operator=(const AllocatorBase&) = delete;

    // `size` in bytes; a negative size asks for its absolute value from the back of the heap. `alignment` is a power
    // of two. Null when there is no room.
    virtual void* allocate(int size, unsigned int alignment) = 0;
    virtual void deallocate(void* block) = 0;
    virtual void clear() = 0;
    virtual unsigned int getUsedSize() const = 0;

    // Bytes of no block. A single block may have to be much smaller.
    unsigned int getFreeSize() const { return mHeapSize - getUsedSize(); }

    // Whether more than a sixteenth of the heap is free. Documents and users can ask for more objects than there is
    // memory for; who makes such objects stops when this is false, so that the rest is there for everybody else.
    bool hasRoom() const { return getFreeSize() > mHeapSize / 16; }

    const char* getName() const { return mName; }
    unsigned int getHeapSize() const { return mHeapSize; }
    void* getHeap() const { return mpHeap; }
    bool isThreadSafe() const { return mThreadSafe; }

    static unsigned int align(unsigned int value, unsigned int alignment)
    {
        return -alignment & (value + alignment - 1);
    }

    static void* align(void* pointer, unsigned int alignment)
    {
        const std::uintptr_t mask = alignment - 1;
        return reinterpret_cast<void*>((reinterpret_cast<std::uintptr_t>(pointer) + mask) & ~mask);
    }

    static void* align128(void* pointer) { return align(pointer, 128); }

    // The root heap behind operator new; made on first use.
    static AllocatorBase* getGlobalAllocator();

protected:
    // `name` is kept, not copied. A null parent marks the root, whose heap comes from the system.
    AllocatorBase(unsigned int heapSize, const char* name, AllocatorBase* parent, bool threadSafe);

    void* mpRawMemory = nullptr;
    void* mpHeap = nullptr;
    unsigned int mHeapSize = 0;
    bool mThreadSafe = false;
    const char* mName = nullptr;
    AllocatorBase* mpParent = nullptr;
};
