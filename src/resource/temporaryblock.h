#pragma once

#include <cstddef>

class AllocatorBase;

// Memory for the length of a call, from the application's temporary allocator, or from the global heap while there
// is none. Null when the size is beyond 2 GiB or there is no room.
class TemporaryBlock
{
public:
    explicit TemporaryBlock(std::size_t size);
    ~TemporaryBlock();

    TemporaryBlock(const TemporaryBlock&) = delete;
    TemporaryBlock& operator=(const TemporaryBlock&) = delete;

    unsigned char* get() const { return mpBlock; }
    explicit operator bool() const { return mpBlock != nullptr; }

private:
    AllocatorBase* mpAllocator;
    unsigned char* mpBlock;
};
