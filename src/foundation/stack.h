#pragma once

#include "foundation/dev.h"
#include "foundation/minmax.h"

#include <algorithm>
#include <new>

// A stack of pointers that doubles when full; it owns nothing that it points at.
template <typename T>
class Stack
{
public:
    Stack() { reserve(16); }
    ~Stack() { delete[] mpBase; }

    Stack(const Stack&) = delete;
    Stack& operator=(const Stack&) = delete;

    // 0 counts as 1.
    void reserve(unsigned int capacity)
    {
        const unsigned int count = size();
        capacity = maximum(capacity, 1u);
        if (capacity < count)
            dev_assert("Not enough size to copy elements.", __FILE__, __LINE__);
        T** base = new (std::nothrow) T*[capacity];
        if (!base)
            dev_assert("Not enough memory.", __FILE__, __LINE__);
        std::copy_n(mpBase, count, base);
        delete[] mpBase;
        mpBase = base;
        mpTop = base + count;
        mCapacity = capacity;
    }

    void push(T* value)
    {
        if (size() == mCapacity)
            reserve(mCapacity * 2);
        *mpTop++ = value;
    }

    T* pop()
    {
        if (empty())
            dev_assert("Stack underflow.", __FILE__, __LINE__);
        return *--mpTop;
    }

    unsigned int size() const { return static_cast<unsigned int>(mpTop - mpBase); }
    bool empty() const { return mpTop == mpBase; }
    unsigned int getCapacity() const { return mCapacity; }
    void clear() { mpTop = mpBase; }

private:
    unsigned int mCapacity = 0;
    T** mpBase = nullptr;
    T** mpTop = nullptr;
};
