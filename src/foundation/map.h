#pragma once

#include "foundation/dev.h"

#include <algorithm>
#include <new>

// Pointers sorted by a 32-bit key in one array; it owns nothing that it points at. Key 0 is reserved.
template <typename T>
class Map
{
public:
    struct sEntryTag
    {
        T* value;
        unsigned int key;
    };

    class Iterator
    {
    public:
        explicit Iterator(sEntryTag* entry = nullptr) : mpEntry(entry) {}

        T* operator*() const { return mpEntry->value; }
        unsigned int getKey() const { return mpEntry->key; }

        Iterator& operator++()
        {
            ++mpEntry;
            return *this;
        }

        bool operator==(const Iterator&) const = default;

    private:
        sEntryTag* mpEntry;
    };

    explicit Map(unsigned int capacity = 0)
    {
        if (capacity)
            reserve(capacity);
    }

    ~Map() { delete[] mpArray; }

    Map(const Map&) = delete;
    Map& operator=(const Map&) = delete;

    void reserve(unsigned int capacity);

    // Room for one more, without which add() asserts. False when there is no memory.
    [[nodiscard]] bool makeRoom();

    // Asserts a key of 0 and one that is present.
    void add(T* value, unsigned int key);

    // Does nothing when the key is absent.
    void remove(unsigned int key);

    // Null when the key is absent.
    T* find(unsigned int key) const
    {
        const unsigned int place = getPlace(key);
        return place < mSize ? mpArray[place].value : nullptr;
    }

    // Between the lowest and the highest key, the place where `key` stands or would be inserted; 0 when empty.
    unsigned int findNearest(unsigned int key) const;

    unsigned int size() const { return mSize; }
    bool empty() const { return mSize == 0; }

    void clear() { mSize = 0; }

    Iterator begin() const { return Iterator(mpArray); }
    Iterator end() const { return Iterator(mpArray + mSize); }

private:
    // The size when the key is absent.
    unsigned int getPlace(unsigned int key) const
    {
        if (empty() || key < mLowest || key > mHighest)
            return mSize;
        if (key == mLowest)
            return 0;
        if (key == mHighest)
            return mSize - 1;
        const unsigned int place = findNearest(key);
        return mpArray[place].key == key ? place : mSize;
    }

    bool resize(unsigned int capacity);
    void insertAt(unsigned int place, T* value, unsigned int key);

    sEntryTag* mpArray = nullptr;
    unsigned int mLowest = 0;
    unsigned int mHighest = 0;
    unsigned int mSize = 0;
    unsigned int mCapacity = 0;
};

template <typename T>
void Map<T>::reserve(unsigned int capacity)
{
    if (capacity < mSize)
        dev_assert("Invalid size.", __FILE__, __LINE__);
    if (capacity != mCapacity && !resize(capacity))
        dev_assert("Not enough memory.", __FILE__, __LINE__);
}

template <typename T>
bool Map<T>::makeRoom()
{
    return mSize < mCapacity || resize(mCapacity ? mCapacity * 2 : 16);
}

template <typename T>
void Map<T>::add(T* value, unsigned int key)
{
    if (key == 0)
        dev_assert("ID number 0 is reserved.", __FILE__, __LINE__);
    if (getPlace(key) < mSize)
        dev_assert("ID number conflict.", __FILE__, __LINE__);
    if (!makeRoom())
        dev_assert("Not enough memory.", __FILE__, __LINE__);

    if (empty() || key < mLowest)
        insertAt(0, value, key);
    else if (key > mHighest)
        insertAt(mSize, value, key);
    else
        insertAt(findNearest(key), value, key);
}

template <typename T>
void Map<T>::remove(unsigned int key)
{
    const unsigned int place = getPlace(key);
    if (place == mSize)
        return;
    std::copy(mpArray + place + 1, mpArray + mSize, mpArray + place);
    // On purpose: the last entry leaves both extremes behind; they mean nothing while the map is empty.
    if (--mSize == 0)
        return;
    mLowest = mpArray[0].key;
    mHighest = mpArray[mSize - 1].key;
}

template <typename T>
unsigned int Map<T>::findNearest(unsigned int key) const
{
    if (empty())
        return 0;
    unsigned int low = 0;
    unsigned int high = mSize - 1;
    for (unsigned int middle = high / 2; high - low > 1; middle = (low + high) / 2)
    {
        if (mpArray[middle].key == key)
            return middle;
        (mpArray[middle].key > key ? high : low) = middle;
    }
    return mpArray[low].key == key ? low : high;
}

template <typename T>
bool Map<T>::resize(unsigned int capacity)
{
    sEntryTag* array = new (std::nothrow) sEntryTag[capacity]();
    if (!array)
        return false;
    std::copy_n(mpArray, mSize, array);
    delete[] mpArray;
    mpArray = array;
    mCapacity = capacity;
    return true;
}

template <typename T>
void Map<T>::insertAt(unsigned int place, T* value, unsigned int key)
{
    std::copy_backward(mpArray + place, mpArray + mSize, mpArray + mSize + 1);
    mpArray[place] = {value, key};
    ++mSize;
    mLowest = mpArray[0].key;
    mHighest = mpArray[mSize - 1].key;
}
