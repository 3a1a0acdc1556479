#pragma once

#include "foundation/dev.h"

#include <cstring>

// Gives a run of equally long records another size: what fits of the records moves to a new block of the resources'
// memory, further ones are zeroed, and the old block is freed. Null for a size of 0. Without memory the block stays as
// it is, which is large enough for fewer records; null, and nothing happens, for more.
void* resizeRecords(void* record, unsigned int size, unsigned int newSize, unsigned int stride);

// Takes one record out and puts it back at `to`, the place that it has once it is out.
void moveRecord(void* record, unsigned int from, unsigned int to, unsigned int stride);

// A view of a run of equally long records that keeps the owner's pointer and count up to date. The run grows and
// shrinks by one record at a time and is given back with the last one, so a record's address dies with each edit.
template <typename Record, typename Count>
class RecordBlock
{
public:
    RecordBlock(Record*& record, Count& count, unsigned int stride = sizeof(Record))
        : mrRecord(record), mrCount(count), mStride(stride)
    {
    }

    unsigned int size() const { return mrCount; }

    Record* at(unsigned int index) const
    {
        requireIndex(index, mrCount);
        return reinterpret_cast<Record*>(reinterpret_cast<unsigned char*>(mrRecord) + index * mStride);
    }

    // Opens a zeroed record in front of `index`; an index of size() appends. Null without memory.
    Record* insert(unsigned int index)
    {
        requireIndex(index, mrCount + 1u);
        void* grown = resizeRecords(mrRecord, mrCount, mrCount + 1u, mStride);
        if (!grown)
            return nullptr;
        mrRecord = static_cast<Record*>(grown);
        ++mrCount;
        move(mrCount - 1u, index);
        return at(index);
    }

    void remove(unsigned int index)
    {
        move(index, mrCount - 1u);
        resize(mrCount - 1u);
    }

    // `to` is the place of the record once it has been taken out.
    void move(unsigned int from, unsigned int to)
    {
        requireIndex(from, mrCount);
        requireIndex(to, mrCount);
        moveRecord(mrRecord, from, to, mStride);
    }

    // On purpose: only a move to an earlier place shifts the records between; a move to a later one overwrites the
    // record there and leaves a double at the old place.
    Record* place(unsigned int from, unsigned int to)
    {
        if (to < from)
            move(from, to);
        else
            std::memmove(at(to), at(from), mStride);
        return at(to);
    }

    void clear() { resize(0); }

private:
    static void requireIndex(unsigned int index, unsigned int size)
    {
        if (index >= size)
            dev_assert("Invalid index.", __FILE__, __LINE__);
    }

    void resize(unsigned int size)
    {
        mrRecord = static_cast<Record*>(resizeRecords(mrRecord, mrCount, size, mStride));
        mrCount = static_cast<Count>(size);
    }

    Record*& mrRecord;
    Count& mrCount;
    unsigned int mStride;
};
