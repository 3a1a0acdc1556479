#pragma once

#include "foundation/dev.h"
#include "foundation/linknode.h"

#include <new>

// A list of pointers inside its own pool of nodes; it owns nothing that it points at. A growing pool moves its nodes:
// iterators die then.
template <typename T>
class List
{
public:
    using iterator = LinkIterator<T>;
    using reverse_iterator = ReverseLinkIterator<T>;

    explicit List(unsigned int capacity = 0)
    {
        if (capacity)
            reserve(capacity);
    }

    ~List() { delete[] mpPool; }

    List(const List&) = delete;
    List& operator=(const List&) = delete;

    // 0 frees the pool.
    void reserve(unsigned int capacity);

    void addFirst(T* value)
    {
        sLinkNode<T>* node = takeNode(value);
        if (mpHead)
            mpHead->insertFront(node);
        else
            mpTail = node;
        mpHead = node;
    }

    void addLast(T* value)
    {
        sLinkNode<T>* node = takeNode(value);
        if (mpTail)
            mpTail->insertBackFront(node);
        else
            mpHead = node;
        mpTail = node;
    }

    // On purpose: either insertion at end() adds last, at rend() first.
    void insertFront(iterator place, T* value)
    {
        place.getNode() ? insertBefore(place.getNode(), value) : addLast(value);
    }
    void insertBackFront(iterator place, T* value)
    {
        place.getNode() ? insertBehind(place.getNode(), value) : addLast(value);
    }
    void insertFront(reverse_iterator place, T* value)
    {
        place.getNode() ? insertBehind(place.getNode(), value) : addFirst(value);
    }
    void insertBackFront(reverse_iterator place, T* value)
    {
        place.getNode() ? insertBefore(place.getNode(), value) : addFirst(value);
    }

    // Returns the iterator of the following node, in the direction of the walk.
    iterator remove(iterator place)
    {
        if (!place.getNode())
            return place;
        iterator following = place;
        ++following;
        freeNode(place.getNode());
        return following;
    }

    reverse_iterator remove(reverse_iterator place)
    {
        if (!place.getNode())
            return place;
        reverse_iterator following = place;
        ++following;
        freeNode(place.getNode());
        return following;
    }

    void remove(T* value) { remove(find(value)); }

    iterator find(const T* value) const
    {
        iterator place = begin();
        while (place != end() && *place != value)
            ++place;
        return place;
    }

    // The size for the end.
    unsigned int getIndex(iterator place) const
    {
        unsigned int index = 0;
        for (iterator walk = begin(); walk != end() && walk != place; ++walk)
            ++index;
        return index;
    }

    unsigned int getIndex(reverse_iterator place) const
    {
        return place.getNode() ? static_cast<unsigned int>(place - rbegin()) : mSize;
    }

    // Not checked.
    T* operator[](unsigned int index) const { return *(begin() + static_cast<int>(index)); }

    unsigned int size() const { return mSize; }
    bool empty() const { return mSize == 0; }
    void clear();

    iterator begin() const { return iterator(mpHead); }
    iterator end() const { return iterator(); }
    reverse_iterator rbegin() const { return reverse_iterator(mpTail); }
    reverse_iterator rend() const { return reverse_iterator(); }

private:
    void grow() { reserve(mCapacity + 16); }
    sLinkNode<T>* takeNode(T* value);
    void freeNode(sLinkNode<T>* node);
    sLinkNode<T>* keepPlaceWhileGrowing(sLinkNode<T>* place);
    void insertBefore(sLinkNode<T>* place, T* value);
    void insertBehind(sLinkNode<T>* place, T* value);

    sLinkNode<T>* mpPool = nullptr;
    sLinkNode<T>* mpHead = nullptr;
    sLinkNode<T>* mpTail = nullptr;
    sLinkNode<T>* mpFree = nullptr;
    unsigned int mSize = 0;
    unsigned int mCapacity = 0;
};

template <typename T>
void List<T>::reserve(unsigned int capacity)
{
    if (capacity < mSize)
        dev_assert("Invalid size.", __FILE__, __LINE__);

    sLinkNode<T>* pool = capacity ? new (std::nothrow) sLinkNode<T>[capacity] : nullptr;
    if (capacity && !pool)
        dev_assert("Not enough memory.", __FILE__, __LINE__);

    const sLinkNode<T>* source = mpHead;
    for (unsigned int i = 0; i < mSize; ++i, source = source->next())
    {
        pool[i].mpValue = source->get();
        pool[i].mpPrevious = i ? &pool[i - 1] : nullptr;
        pool[i].mpNext = i + 1 < mSize ? &pool[i + 1] : nullptr;
    }
    for (unsigned int i = mSize; i + 1 < capacity; ++i)
        pool[i].mpNext = &pool[i + 1];

    delete[] mpPool;
    mpPool = pool;
    mpHead = mSize ? pool : nullptr;
    mpTail = mSize ? &pool[mSize - 1] : nullptr;
    mpFree = mSize < capacity ? &pool[mSize] : nullptr;
    mCapacity = capacity;
}

template <typename T>
void List<T>::clear()
{
    if (!mpTail)
        return;
    mpTail->mpNext = mpFree;
    mpFree = mpHead;
    mpHead = nullptr;
    mpTail = nullptr;
    mSize = 0;
}

template <typename T>
sLinkNode<T>* List<T>::takeNode(T* value)
{
    if (!mpFree)
        grow();
    sLinkNode<T>* node = mpFree;
    mpFree = node->mpNext;
    node->mpPrevious = nullptr;
    node->mpNext = nullptr;
    node->mpValue = value;
    ++mSize;
    return node;
}

template <typename T>
void List<T>::freeNode(sLinkNode<T>* node)
{
    if (node == mpHead)
        mpHead = node->next();
    if (node == mpTail)
        mpTail = node->previous();
    node->remove();
    node->mpNext = mpFree;
    mpFree = node;
    --mSize;
}

// Growing moves the nodes, so the place is found again by its index.
template <typename T>
sLinkNode<T>* List<T>::keepPlaceWhileGrowing(sLinkNode<T>* place)
{
    if (mpFree)
        return place;
    const unsigned int index = getIndex(iterator(place));
    grow();
    return &mpPool[index];
}

template <typename T>
void List<T>::insertBefore(sLinkNode<T>* place, T* value)
{
    place = keepPlaceWhileGrowing(place);
    sLinkNode<T>* node = takeNode(value);
    place->insertFront(node);
    if (place == mpHead)
        mpHead = node;
}

template <typename T>
void List<T>::insertBehind(sLinkNode<T>* place, T* value)
{
    place = keepPlaceWhileGrowing(place);
    sLinkNode<T>* node = takeNode(value);
    place->insertBackFront(node);
    if (place == mpTail)
        mpTail = node;
}
