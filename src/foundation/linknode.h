#pragma once

template <typename T>
class List;

// A link of a chain that runs both ways; it refers to its value and owns nothing.
template <typename T>
class sLinkNode
{
public:
    sLinkNode* previous() const { return mpPrevious; }
    sLinkNode* next() const { return mpNext; }
    T* get() const { return mpValue; }
    void set(T* value) { mpValue = value; }

    // Links `node` directly behind this one.
    void insertBackFront(sLinkNode* node)
    {
        node->mpPrevious = this;
        node->mpNext = mpNext;
        if (mpNext)
            mpNext->mpPrevious = node;
        mpNext = node;
    }

    // Links `node` directly before this one.
    void insertFront(sLinkNode* node)
    {
        node->mpNext = this;
        node->mpPrevious = mpPrevious;
        if (mpPrevious)
            mpPrevious->mpNext = node;
        mpPrevious = node;
    }

    // Takes this node out from between its neighbours.
    void remove()
    {
        if (mpPrevious)
            mpPrevious->mpNext = mpNext;
        if (mpNext)
            mpNext->mpPrevious = mpPrevious;
        mpPrevious = nullptr;
        mpNext = nullptr;
    }

private:
    // Chains its free nodes by their next side alone.
    friend class List<T>;

    sLinkNode* mpPrevious = nullptr;
    sLinkNode* mpNext = nullptr;
    T* mpValue = nullptr;
};

// Walks a chain from its head; the end holds no node, and walking on from there stays there.
template <typename T>
class LinkIterator
{
public:
    explicit LinkIterator(sLinkNode<T>* node = nullptr) : mpNode(node) {}

    T* operator*() const { return mpNode->get(); }
    sLinkNode<T>* getNode() const { return mpNode; }

    LinkIterator& operator++()
    {
        if (mpNode)
            mpNode = mpNode->next();
        return *this;
    }

    // On purpose: a negative offset does nothing.
    LinkIterator& operator+=(int offset)
    {
        for (int i = 0; i < offset && mpNode; ++i)
            ++*this;
        return *this;
    }

    LinkIterator operator+(int offset) const
    {
        LinkIterator moved = *this;
        return moved += offset;
    }

    bool operator==(const LinkIterator&) const = default;

private:
    sLinkNode<T>* mpNode;
};

// Walks a chain from its tail.
template <typename T>
class ReverseLinkIterator
{
public:
    explicit ReverseLinkIterator(sLinkNode<T>* node = nullptr) : mpNode(node) {}

    T* operator*() const { return mpNode->get(); }
    sLinkNode<T>* getNode() const { return mpNode; }

    ReverseLinkIterator& operator++()
    {
        if (mpNode)
            mpNode = mpNode->previous();
        return *this;
    }

    ReverseLinkIterator& operator--()
    {
        if (mpNode)
            mpNode = mpNode->next();
        return *this;
    }

    ReverseLinkIterator& operator+=(int offset)
    {
        for (int i = 0; i < offset && mpNode; ++i)
            ++*this;
        return *this;
    }

    ReverseLinkIterator operator+(int offset) const
    {
        ReverseLinkIterator moved = *this;
        return moved += offset;
    }

    // The number of -- steps from here to `other`.
    int operator-(const ReverseLinkIterator& other) const
    {
        int steps = 0;
        for (ReverseLinkIterator walk = *this; walk != other && walk.mpNode; --walk)
            ++steps;
        return steps;
    }

    bool operator==(const ReverseLinkIterator&) const = default;

private:
    sLinkNode<T>* mpNode;
};
