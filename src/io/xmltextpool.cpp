#include "io/xmltextpool.h"

#include "io/xmlgrammar.h"

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
    return static_cast<unsigned int>(hash >> 32);
}
}

XmlTextPool::~XmlTextPool()
{
    clear();
}

void XmlTextPool::clear()
{
    for (unsigned int i = 0; mHasStrings && i < mCapacity; ++i)
        if (mpTable[i])
            mpTable[i]->string = AutoString();
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
    for (; sText* entry = mpTable[place]; place = (place + 1) & (mCapacity - 1))
        if (entry->tail == tail && entry->length == length &&
            (length <= 8 || std::memcmp(entry->c_str(), text, length) == 0))
            return entry;
    sText* entry = add(text, {tail, hash, length});
    mSize += entry != nullptr;
    return mpTable[place] = entry;
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

XmlTextPool::sText* XmlTextPool::add(const char* text, const sText& entry)
{
    const std::size_t room = (std::size_t{entry.length} / sText::Block + 1) * sText::Block;
    void* block = mArena.allocate(sizeof(sText) + room);
    if (!block)
        return nullptr;
    sText* added = new (block) sText(entry);
    added->isWord = XmlGrammar::isAll(text, XmlGrammar::Word);
    added->isValue = XmlGrammar::isAll(text, XmlGrammar::Value);
    std::memcpy(static_cast<char*>(block) + sizeof(sText), text, entry.length + 1);
    return added;
}

bool XmlTextPool::grow()
{
    const unsigned int capacity = mCapacity ? mCapacity * 2 : FirstCapacity;
    sText** table = new (std::nothrow) sText*[capacity]();
    if (!table)
        return false;
    for (unsigned int i = 0; i < mCapacity; ++i)
    {
        if (!mpTable[i])
            continue;
        unsigned int place = mpTable[i]->hash & (capacity - 1);
        while (table[place])
            place = (place + 1) & (capacity - 1);
        table[place] = mpTable[i];
    }
    delete[] mpTable;
    mpTable = table;
    mCapacity = capacity;
    return true;
}
