#pragma once

#include "foundation/dev.h"

#include <algorithm>
#include <new>

// Walks an array of pointers.
template <typename T>
class ArrayIterator
{
public:
    explicit ArrayIterator(T** place = nullptr) : mpPlace(place) {}

    T*& operator*() const { return *mpPlace; }

    ArrayIterator& operator++()
    {
        ++mpPlace;
        return *this;
    }

    ArrayIterator operator+(int offset) const { return ArrayIterator(mpPlace + offset); }
    bool operator==(const ArrayIterator&) const = default;

private:
    T** mpPlace;
};

// A growing array of pointers; it owns nothing that it points at.
template <typename T>
class Vector
{
public:
    using iterator = ArrayIterator<T>;

    explicit Vector(unsigned int capacity = 0)
    {
        if (capacity)
            reserve(capacity);
    }

    ~Vector() { delete[] mpArray; }

    Vector(const Vector&) = delete;
    Vector& operator=(const Vector&) = delete;

    // 0 frees the array.
    void reserve(unsigned int capacity)
    {
        if (capacity < mSize)
            dev_assert("Invalid size.", __FILE__, __LINE__);
        T** array = nullptr;
        if (capacity)
        {
            array = new (std::nothrow) T*[capacity];
            if (!array)
                dev_assert("Not enough memory.", __FILE__, __LINE__);
            std::copy_n(mpArray, mSize, array);
        }
        delete[] mpArray;
        mpArray = array;
        mCapacity = capacity;
    }

    void addLast(T* value)
    {
        if (mSize == mCapacity)
            reserve(mCapacity + 16);
        mpArray[mSize++] = value;
    }

    // Not checked.
    T*& operator[](unsigned int index) const { return mpArray[index]; }

    iterator find(const T* value) const
    {
        iterator place = begin();
        while (place != end() && *place != value)
            ++place;
        return place;
    }

    unsigned int size() const { return mSize; }
    bool empty() const { return mSize == 0; }

    // Keeps the capacity.
    void clear() { mSize = 0; }

    iterator begin() const { return iterator(mpArray); }
    iterator end() const { return iterator(mpArray + mSize); }

private:
    T** mpArray = nullptr;
    unsigned int mSize = 0;
    unsigned int mCapacity = 0;
};
