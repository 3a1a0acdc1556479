#pragma once

#include "reflection/objectlist.h"
#include "sequencer/recordblock.h"

// A list of objects and the records that mirror it, in the same order: whatever is done here is done to both. It
// makes and deletes no object.
template <typename Record, typename Count>
class MirroredList
{
public:
    MirroredList(ObjectList& list, RecordBlock<Record, Count> record) : mrList(list), mRecord(record) {}

    // Returns the new record, zeroed; null, and neither has changed, without memory for it.
    Record* insert(unsigned int index, ObjectBase* object)
    {
        Record* record = mRecord.insert(index);
        if (record)
            mrList.insertFront(place(index), object);
        return record;
    }

    void remove(unsigned int index)
    {
        mrList.remove(place(index));
        mRecord.remove(index);
    }

    // `to` is the place of the element once it has been taken out.
    void move(unsigned int from, unsigned int to)
    {
        moveObject(from, to);
        mRecord.move(from, to);
    }

    // The move of what is sorted by frame, which treats a later place in its own way.
    Record* place(unsigned int from, unsigned int to)
    {
        moveObject(from, to);
        return mRecord.place(from, to);
    }

private:
    ObjectList::Iterator place(unsigned int index) const { return mrList.begin() + static_cast<int>(index); }

    void moveObject(unsigned int from, unsigned int to)
    {
        ObjectBase* object = mrList[from];
        mrList.remove(place(from));
        mrList.insertFront(place(to), object);
    }

    ObjectList& mrList;
    RecordBlock<Record, Count> mRecord;
};
