#pragma once

#include <cstddef>
#include <new>
#include <type_traits>

// The memory of one document's tree: taken in pages that grow with the document and given back as a whole.
// A tree in it needs no walk to be deleted, and no block of the general heap for each of its small parts.
class XmlArena
{
public:
    // What documents leave of the general heap: whoever reads or writes one needs some for other things on the way.
    static constexpr unsigned int Reserve = 1024 * 1024;

    XmlArena() = default;
    ~XmlArena();

    XmlArena(const XmlArena&) = delete;
    XmlArena& operator=(const XmlArena&) = delete;

    // Aligned for pointers. Null when no more than the reserve is left.
    void* allocate(std::size_t size)
    {
        size = (size + sizeof(void*) - 1) & ~(sizeof(void*) - 1);
        if (size > mLeft && !addPage(size))
            return nullptr;
        void* block = mpNext;
        mpNext += size;
        mLeft -= size;
        return block;
    }

    // All that a page has left, but at least `size` bytes; `size` becomes what it is. Null as above.
    void* allocateRest(std::size_t& size)
    {
        if (size > mLeft && !addPage(size))
            return nullptr;
        size = mLeft;
        return allocate(size);
    }

    // A T as its default constructor leaves it; null as above.
    template <typename T>
    T* make()
    {
        static_assert(std::is_trivially_destructible_v<T>, "the arena destroys nothing");
        void* block = allocate(sizeof(T));
        return block ? new (block) T : nullptr;
    }

    // Gives all of it back.
    void clear();

private:
    struct sPage
    {
        sPage* next;
    };

    bool addPage(std::size_t size);

    sPage* mpPage = nullptr;
    char* mpNext = nullptr;
    std::size_t mLeft = 0;
    std::size_t mPageSize = 4096;
};
