#include "sequencer/recordblock.h"

#include "resource/resourcebase.h"

#include <algorithm>

void* resizeRecords(void* record, unsigned int size, unsigned int newSize, unsigned int stride)
{
    unsigned char* resized = nullptr;
    if (newSize)
    {
        resized = static_cast<unsigned char*>(ResourceBase::allocate(newSize * stride));
        if (!resized)
            return newSize < size ? record : nullptr;
        const unsigned int kept = std::min(size, newSize) * stride;
        if (kept)
            std::memcpy(resized, record, kept);
        std::memset(resized + kept, 0, newSize * stride - kept);
    }
    ResourceBase::deallocate(record);
    return resized;
}

void moveRecord(void* record, unsigned int from, unsigned int to, unsigned int stride)
{
    unsigned char* const bytes = static_cast<unsigned char*>(record);
    unsigned char* const first = bytes + std::min(from, to) * stride;
    unsigned char* const last = bytes + (std::max(from, to) + 1) * stride;
    std::rotate(first, from < to ? first + stride : last - stride, last);
}
