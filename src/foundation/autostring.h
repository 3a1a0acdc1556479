#pragma once

#include "foundation/referenceobject.h"

#include <cstddef>

class AllocatorBase;

// A text of bytes in a shared buffer, copied on write. A null buffer is the empty string, whose c_str() is null;
// AutoString("") however holds a buffer of length 0 and is not empty().
class AutoString
{
public:
    static constexpr unsigned int NotFound = 0xFFFFFFFF;

    constexpr AutoString() = default;
    AutoString(const AutoString& other);
    AutoString(AutoString&& other) noexcept;
    AutoString(const char* text);
    AutoString(char character);
    constexpr ~AutoString()
    {
        if (mpBuffer)
            releaseBuffer();
    }

    // A string of `length` bytes, made in one step.
    static AutoString fromBytes(const char* bytes, unsigned int length);

    AutoString& operator=(const AutoString& other);
    AutoString& operator=(AutoString&& other) noexcept;
    AutoString& operator=(const char* text);
    AutoString& operator=(char character);

    const char* c_str() const { return mpBuffer ? mpBuffer->mpText : nullptr; }
    unsigned int size() const;
    bool empty() const { return !mpBuffer; }
    explicit operator bool() const { return mpBuffer != nullptr; }

    // Formats into 1024 bytes; longer results are cut.
    void format(const char* format, ...) __attribute__((format(printf, 2, 3)));

    AutoString substr(unsigned int position, unsigned int length = NotFound) const;
    // At or beyond the end they append.
    void insert(unsigned int position, char character);
    void insert(unsigned int position, const AutoString& text);

    // On purpose: a length that is not below size() empties the string, whatever the position. Otherwise what lies
    // beyond the end is not removed.
    void remove(unsigned int position, unsigned int length);
    void indent(unsigned int tabs);

    // Byte index, or NotFound. An empty text is found nowhere.
    unsigned int findFirst(char character) const;
    unsigned int findFirst(const AutoString& text) const;
    unsigned int findLast(char character) const;
    unsigned int findLast(const AutoString& text) const;

    unsigned int hash() const;

    AutoString& operator+=(const AutoString& text);
    AutoString& operator+=(const char* text);
    AutoString& operator+=(char character);
    AutoString operator+(const AutoString& text) const;
    AutoString operator+(const char* text) const;
    AutoString operator+(char character) const;

    // Of a string that is not empty(); the index is not checked.
    char operator[](unsigned int index) const;

    // Always un-shares first, so that a former copy keeps its text.
    char& operator[](unsigned int index);

    bool operator==(const AutoString& other) const;
    bool operator==(const char* text) const { return isEqual(c_str(), text); }

    // Byte by byte; null equals null only.
    static bool isEqual(const char* a, const char* b);

    static const AutoString Null;

    // The heap of all texts; set once, never owned. It may be forgotten when no string of it is left.
    static void setAllocator(AllocatorBase* allocator);
    static AllocatorBase* getAllocator() { return mpAllocator; }
    static void deleteAllocator();

    static void* operator new(std::size_t size) noexcept { return allocate(size); }
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void* operator new[](std::size_t size) noexcept { return allocate(size); }
    static void operator delete(void* block) noexcept { deallocate(block); }
    static void operator delete[](void* block) noexcept { deallocate(block); }

private:
    // The text stands behind the object, in one block of the heap. Its length is not kept.
    class Buffer : public ReferenceObject
    {
    public:
        // A buffer for `length` bytes, which are the caller's to fill; the end is in place.
        static Buffer* create(unsigned int length);

        char* mpText;

        static void* operator new(std::size_t, void* place) noexcept { return place; }
        static void operator delete(void* block) noexcept { deallocate(block); }

    private:
        explicit Buffer(unsigned int length);
    };

    // A full or absent heap falls back on the general one.
    static void* allocate(std::size_t size);
    static void deallocate(void* block);

    static Buffer* makeBuffer(const char* text, unsigned int length);

    void releaseBuffer();
    void setBuffer(Buffer* buffer);

    // Puts `text` in the place of `removed` bytes; the one way by which a text changes.
    void replace(unsigned int position, unsigned int removed, const char* text, unsigned int length);

    static AllocatorBase* mpAllocator;

    Buffer* mpBuffer = nullptr;
};

AutoString operator+(const char* left, const AutoString& right);
