#include "foundation/autostring.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/utils.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>

namespace
{
constexpr unsigned int Alignment = 4;
constexpr std::size_t FormatSize = 1024;

unsigned int getLength(const char* text)
{
    return text ? static_cast<unsigned int>(std::strlen(text)) : 0;
}
} // namespace

constinit const AutoString AutoString::Null;
AllocatorBase* AutoString::mpAllocator = nullptr;

AutoString::Buffer::Buffer(unsigned int length) : mpText(reinterpret_cast<char*>(this + 1))
{
    mpText[length] = '\0';
}

AutoString::Buffer* AutoString::Buffer::create(unsigned int length)
{
    void* block = allocate(sizeof(Buffer) + length + std::size_t{1});
    if (!block)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    return new (block) Buffer(length);
}

AutoString::AutoString(const AutoString& other) : mpBuffer(other.mpBuffer)
{
    if (mpBuffer)
        mpBuffer->addRef();
}

AutoString::AutoString(AutoString&& other) noexcept : mpBuffer(other.mpBuffer)
{
    other.mpBuffer = nullptr;
}

AutoString::AutoString(const char* text) : mpBuffer(text ? makeBuffer(text, getLength(text)) : nullptr)
{
}

AutoString::AutoString(char character) : mpBuffer(makeBuffer(&character, 1))
{
}

AutoString AutoString::fromBytes(const char* bytes, unsigned int length)
{
    AutoString string;
    string.mpBuffer = makeBuffer(bytes, length);
    return string;
}

AutoString& AutoString::operator=(const AutoString& other)
{
    if (other.mpBuffer)
        other.mpBuffer->addRef();
    setBuffer(other.mpBuffer);
    return *this;
}

AutoString& AutoString::operator=(AutoString&& other) noexcept
{
    Buffer* buffer = other.mpBuffer;
    other.mpBuffer = nullptr;
    setBuffer(buffer);
    return *this;
}

AutoString& AutoString::operator=(const char* text)
{
    if (!isEqual(c_str(), text))
        setBuffer(text ? makeBuffer(text, getLength(text)) : nullptr);
    return *this;
}

AutoString& AutoString::operator=(char character)
{
    setBuffer(makeBuffer(&character, 1));
    return *this;
}

unsigned int AutoString::size() const
{
    return getLength(c_str());
}

void AutoString::format(const char* format, ...)
{
    char text[FormatSize];
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof(text), format, arguments);
    va_end(arguments);
    *this = text;
}

AutoString AutoString::substr(unsigned int position, unsigned int length) const
{
    const unsigned int whole = size();
    if (position >= whole || length == 0)
        return AutoString();
    if (position == 0 && length >= whole)
        return *this;
    return fromBytes(c_str() + position, length < whole - position ? length : whole - position);
}

void AutoString::insert(unsigned int position, char character)
{
    replace(position, 0, &character, 1);
}

void AutoString::insert(unsigned int position, const AutoString& text)
{
    if (empty())
        *this = text;
    else if (text)
        replace(position, 0, text.c_str(), text.size());
}

void AutoString::remove(unsigned int position, unsigned int length)
{
    const unsigned int whole = size();
    if (length >= whole)
        setBuffer(nullptr);
    else if (position < whole && length)
        replace(position, length, nullptr, 0);
}

void AutoString::indent(unsigned int tabs)
{
    if (!tabs)
        return;

    const unsigned int whole = size();
    Buffer* buffer = Buffer::create(tabs + whole);
    std::memset(buffer->mpText, '\t', tabs);
    if (whole)
        std::memcpy(buffer->mpText + tabs, c_str(), whole);
    setBuffer(buffer);
}

unsigned int AutoString::findFirst(char character) const
{
    const char* found = character && mpBuffer ? std::strchr(c_str(), character) : nullptr;
    return found ? static_cast<unsigned int>(found - c_str()) : NotFound;
}

unsigned int AutoString::findFirst(const AutoString& text) const
{
    const char* found = mpBuffer && text.size() ? std::strstr(c_str(), text.c_str()) : nullptr;
    return found ? static_cast<unsigned int>(found - c_str()) : NotFound;
}

unsigned int AutoString::findLast(char character) const
{
    const char* found = character && mpBuffer ? std::strrchr(c_str(), character) : nullptr;
    return found ? static_cast<unsigned int>(found - c_str()) : NotFound;
}

// On purpose: the search goes on behind each occurrence, so that one which overlaps the one before is not seen.
unsigned int AutoString::findLast(const AutoString& text) const
{
    const unsigned int length = text.size();
    const char* last = nullptr;
    if (mpBuffer && length)
    {
        for (const char* found = c_str(); (found = std::strstr(found, text.c_str())); found += length)
            last = found;
    }
    return last ? static_cast<unsigned int>(last - c_str()) : NotFound;
}

unsigned int AutoString::hash() const
{
    return Utils::hash(c_str());
}

AutoString& AutoString::operator+=(const AutoString& text)
{
    insert(NotFound, text);
    return *this;
}

AutoString& AutoString::operator+=(const char* text)
{
    if (text)
        replace(NotFound, 0, text, getLength(text));
    return *this;
}

AutoString& AutoString::operator+=(char character)
{
    insert(NotFound, character);
    return *this;
}

AutoString AutoString::operator+(const AutoString& text) const
{
    return AutoString(*this) += text;
}

AutoString AutoString::operator+(const char* text) const
{
    return AutoString(*this) += text;
}

AutoString AutoString::operator+(char character) const
{
    return AutoString(*this) += character;
}

AutoString operator+(const char* left, const AutoString& right)
{
    return AutoString(left) += right;
}

char AutoString::operator[](unsigned int index) const
{
    if (!mpBuffer)
        dev_assert("Buffer is NULL.", __FILE__, __LINE__);
    return mpBuffer->mpText[index];
}

char& AutoString::operator[](unsigned int index)
{
    if (!mpBuffer)
        dev_assert("Buffer is NULL.", __FILE__, __LINE__);
    setBuffer(makeBuffer(c_str(), size()));
    return mpBuffer->mpText[index];
}

bool AutoString::operator==(const AutoString& other) const
{
    return mpBuffer == other.mpBuffer || isEqual(c_str(), other.c_str());
}

bool AutoString::isEqual(const char* a, const char* b)
{
    return a == b || (a && b && std::strcmp(a, b) == 0);
}

void AutoString::setAllocator(AllocatorBase* allocator)
{
    if (mpAllocator)
        dev_assert("Allocator already set.", __FILE__, __LINE__);
    mpAllocator = allocator;
}

void AutoString::deleteAllocator()
{
    mpAllocator = nullptr;
}

void* AutoString::allocate(std::size_t size)
{
    constexpr std::size_t LargestBlock = 0x7FFFFFFF;
    void* block =
        mpAllocator && size <= LargestBlock ? mpAllocator->allocate(static_cast<int>(size), Alignment) : nullptr;
    return block ? block : ::operator new[](size, std::nothrow);
}

void AutoString::deallocate(void* block)
{
    const char* place = static_cast<const char*>(block);
    const char* heap = mpAllocator ? static_cast<const char*>(mpAllocator->getHeap()) : nullptr;
    if (heap && place >= heap && place < heap + mpAllocator->getHeapSize())
        mpAllocator->deallocate(block);
    else
        ::operator delete[](block);
}

AutoString::Buffer* AutoString::makeBuffer(const char* text, unsigned int length)
{
    Buffer* buffer = Buffer::create(length);
    std::memcpy(buffer->mpText, text, length);
    return buffer;
}

void AutoString::releaseBuffer()
{
    mpBuffer->release();
}

void AutoString::setBuffer(Buffer* buffer)
{
    Buffer* old = mpBuffer;
    mpBuffer = buffer;
    if (old)
        old->release();
}

// The new buffer is complete before the old one is released: `text` may lie in it.
void AutoString::replace(unsigned int position, unsigned int removed, const char* text, unsigned int length)
{
    const unsigned int whole = size();
    const unsigned int head = position < whole ? position : whole;
    const unsigned int gap = removed < whole - head ? removed : whole - head;
    const unsigned int tail = whole - head - gap;

    Buffer* buffer = Buffer::create(head + length + tail);
    char* write = buffer->mpText;
    if (head)
        std::memcpy(write, c_str(), head);
    if (length)
        std::memcpy(write + head, text, length);
    if (tail)
        std::memcpy(write + head + length, c_str() + head + gap, tail);
    setBuffer(buffer);
}
