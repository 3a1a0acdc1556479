#pragma once

#include "foundation/dev.h"
#include "foundation/linknode.h"

#include <cstddef>
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

    // Room for one entry less than `capacity`, which has to lie above the size.
    void reserve(unsigned int capacity)
    {
        const unsigned int count = size();
        if (capacity <= count)
            dev_assert("Invalid size.", __FILE__, __LINE__);
        sLinkNode<T>* ring = new (std::nothrow) sLinkNode<T>[capacity];
        if (!ring)
            dev_assert("Not enough memory.", __FILE__, __LINE__);

        ring[0].insertFront(&ring[0]);
        for (unsigned int i = 1; i < capacity; ++i)
            ring[i - 1].insertBackFront(&ring[i]);
        sLinkNode<T>* write = ring;
        for (T* value : *this)
        {
            write->set(value);
            write = write->next();
        }

        delete[] mpNode;
        mCapacity = capacity;
        mpNode = ring;
        mpWrite = write;
        mpRead = ring;
    }

    void push(T* value)
    {
        mpWrite->set(value);
        mpWrite = mpWrite->next();
    }

    T* pop()
    {
        if (empty())
            dev_assert("Queue underflow.", __FILE__, __LINE__);
        T* value = mpRead->get();
        mpRead = mpRead->next();
        return value;
    }

    unsigned int size() const
    {
        const std::ptrdiff_t distance = mpWrite - mpRead;
        return static_cast<unsigned int>(distance < 0 ? distance + mCapacity : distance);
    }

    bool empty() const { return mpRead == mpWrite; }

    // From the next entry to be popped to the last one pushed.
    iterator begin() const { return iterator(mpRead); }
    iterator end() const { return iterator(mpWrite); }

private:
    unsigned int mCapacity = 0;
    sLinkNode<T>* mpNode = nullptr;
    sLinkNode<T>* mpWrite = nullptr;
    sLinkNode<T>* mpRead = nullptr;
};
