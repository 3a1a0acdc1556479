#include "io/xmltextpool.h"

#include <cstdint>
#include <cstring>

namespace
{
constexpr unsigned int FirstCapacity = 64;

uint64_t load(const char* bytes, unsigned int count)
{
    uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    return word;
}

// The last eight bytes in one word; of a shorter text all bytes, some of them twice. Together with the length the word
// tells texts of up to eight bytes apart.
uint64_t getTail(const char* text, unsigned int length)
{
    if (length >= 8)
        return load(text + length - 8, 8);
    if (length >= 4)
        return load(text, 4) | load(text + length - 4, 4) << 32;
    if (length)
        return load(text, 1) | load(text + length / 2, 1) << 8 | load(text + length - 1, 1) << 16;
    return 0;
}

unsigned int hashText(const char* text, unsigned int length, uint64_t tail)
{
    constexpr uint64_t Factor = 0x9E3779B97F4A7C15;
    uint64_t hash = length;
    for (unsigned int i = 0; i + 8 < length; i += 8)
        hash = (hash ^ load(text + i, 8)) * Factor;
    hash = (hash ^ tail) * Factor;
    return static_cast<unsigned int>((hash ^ hash >> 32) * Factor >> 32);
}
}

XmlTextPool::~XmlTextPool()
{
    clear();
}

void XmlTextPool::clear()
{
    for (unsigned int i = 0; mHasStrings && i < mCapacity; ++i)
        if (mpTable[i].text)
            mpTable[i].text->string = AutoString();
    delete[] mpTable;
    mpTable = nullptr;
    mCapacity = 0;
    mSize = 0;
    mHasStrings = false;
    mArena.clear();
}

XmlTextPool::sText* XmlTextPool::share(const char* text)
{
    if (!text)
        text = "";
    const unsigned int length = static_cast<unsigned int>(std::strlen(text));
    const uint64_t tail = getTail(text, length);
    const unsigned int hash = hashText(text, length, tail);
    if (mSize * 2 >= mCapacity && !grow())
        return nullptr;
    unsigned int place = hash & (mCapacity - 1);
    for (; sText* known = mpTable[place].text; place = (place + 1) & (mCapacity - 1))
        if (mpTable[place].tail == tail && known->length == length &&
            (length <= 8 || std::memcmp(known->c_str(), text, length) == 0))
            return known;
    sText* added = add(text, length, hash);
    mSize += added != nullptr;
    mpTable[place] = {tail, added};
    return added;
}

AutoString XmlTextPool::getString(const char* text)
{
    sText* entry = share(text);
    if (!entry)
        return text;
    if (entry->string.empty())
        entry->string = AutoString::fromBytes(entry->c_str(), entry->length);
    mHasStrings = true;
    return entry->string;
}

XmlTextPool::sText* XmlTextPool::add(const char* text, unsigned int length, unsigned int hash)
{
    const std::size_t room = (std::size_t{length} / sText::Block + 1) * sText::Block;
    void* block = mArena.allocate(sizeof(sText) + room);
    if (!block)
        return nullptr;
    std::memcpy(static_cast<char*>(block) + sizeof(sText), text, length + 1);
    return new (block) sText{hash, length, {}};
}

bool XmlTextPool::grow()
{
    const unsigned int capacity = mCapacity ? mCapacity * 4 : FirstCapacity;
    sSlot* table = new (std::nothrow) sSlot[capacity]();
    if (!table)
        return false;
    for (unsigned int i = 0; i < mCapacity; ++i)
    {
        if (!mpTable[i].text)
            continue;
        unsigned int place = mpTable[i].text->hash & (capacity - 1);
        while (table[place].text)
            place = (place + 1) & (capacity - 1);
        table[place] = mpTable[i];
    }
    delete[] mpTable;
    mpTable = table;
    mCapacity = capacity;
    return true;
}
