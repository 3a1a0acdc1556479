#pragma once

#include "foundation/dev.h"
#include "foundation/linknode.h"

#include <new>

// A ring of pointers without a count of its own.
// On purpose: a write that catches the read pointer is taken for an empty queue, so a ring of 16 that holds 15 loses
// them all at the next push; whoever needs n entries reserves n + 1.
template <typename T>
class Queue
{
public:
    using iterator = LinkIterator<T>;

    Queue() { reserve(16); }
    ~Queue() { delete[] mpNode; }

    Queue(const Queue&) = delete;
    Queue& operator=(const Queue&) = delete;

    void reserve(unsigned int capacity)
    {
        const unsigned int count = size();
        if (capacity < count)
            dev_assert("Invalid size.", __FILE__, __LINE__);
        sLinkNode<T>* node = new (std::nothrow) sLinkNode<T>[capacity];
        if (!node)
            dev_assert("Not enough memory.", __FILE__, __LINE__);
        for (unsigned int i = 1; i < capacity; ++i)
            node[i - 1].insertBackFront(&node[i]);
        for (unsigned int i = 0; i < count; ++i)
            node[i].set(mpNode[(mRead + i) % mCapacity].get());
        delete[] mpNode;
        mpNode = node;
        mCapacity = capacity;
        mRead = 0;
        mWrite = count % capacity;
    }

    void push(T* value)
    {
        mpNode[mWrite].set(value);
        mWrite = (mWrite + 1) % mCapacity;
    }

    T* pop()
    {
        if (empty())
            dev_assert("Queue underflow.", __FILE__, __LINE__);
        T* value = mpNode[mRead].get();
        mRead = (mRead + 1) % mCapacity;
        return value;
    }

    unsigned int size() const { return mCapacity ? (mWrite + mCapacity - mRead) % mCapacity : 0; }
    bool empty() const { return mRead == mWrite; }

    // The entry `index` places behind the next one to be popped. Not checked.
    T* operator[](unsigned int index) const { return mpNode[(mRead + index) % mCapacity].get(); }

private:
    unsigned int mCapacity = 0;
    sLinkNode<T>* mpNode = nullptr;
    unsigned int mWrite = 0;
    unsigned int mRead = 0;
};
