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

// Eight bytes at a time; the last step may take bytes a second time.
unsigned int hashText(const char* text, unsigned int length)
{
    constexpr uint64_t Factor = 0x9E3779B97F4A7C15;
    uint64_t hash = length;
    for (unsigned int i = 0; i + 8 < length; i += 8)
        hash = (hash ^ load(text + i, 8)) * Factor;

    uint64_t last = 0;
    if (length >= 8)
        last = load(text + length - 8, 8);
    else if (length >= 4)
        last = load(text, 4) | load(text + length - 4, 4) << 32;
    else if (length)
        last = load(text, 1) | load(text + length / 2, 1) << 8 | load(text + length - 1, 1) << 16;
    hash = (hash ^ last) * Factor;
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
    const unsigned int hash = hashText(text, length);
    if (mSize * 2 >= mCapacity && !grow())
        return nullptr;
    unsigned int place = hash & (mCapacity - 1);
    for (; sText* entry = mpTable[place]; place = (place + 1) & (mCapacity - 1))
        if (entry->hash == hash && entry->length == length && std::memcmp(entry->c_str(), text, length) == 0)
            return entry;
    sText* entry = add(text, length, hash);
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

XmlTextPool::sText* XmlTextPool::add(const char* text, unsigned int length, unsigned int hash)
{
    void* block = mArena.allocate(sizeof(sText) + length + 1);
    if (!block)
        return nullptr;
    sText* entry = new (block)
        sText{hash, length, XmlGrammar::isAll(text, XmlGrammar::Word), XmlGrammar::isAll(text, XmlGrammar::Value), {}};
    std::memcpy(static_cast<char*>(block) + sizeof(sText), text, length + 1);
    return entry;
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
