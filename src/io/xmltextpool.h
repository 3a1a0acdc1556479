#pragma once

#include "foundation/autostring.h"
#include "io/xmlarena.h"

#include <cstdint>

// The texts of one document, each kept once however often it occurs: a few names and values make up most of a
// document.
class XmlTextPool
{
public:
    struct sText
    {
        static constexpr unsigned int Block = 16;

        unsigned int hash;
        unsigned int length;
        AutoString string; // made when first asked for

        // Zero-terminated, in room for whole blocks, so that a short text can be copied by the block.
        const char* c_str() const { return reinterpret_cast<const char*>(this + 1); }
    };

    XmlTextPool() = default;
    ~XmlTextPool();

    XmlTextPool(const XmlTextPool&) = delete;
    XmlTextPool& operator=(const XmlTextPool&) = delete;

    // The one entry of that text; null counts as "". Null when the heap is full.
    sText* share(const char* text);

    // The text as a string that shares its buffer with all equal ones.
    AutoString getString(const char* text);

    void clear();

private:
    struct sSlot
    {
        std::uint64_t tail; // of the text, see getTail(); it tells most texts apart without a look at them
        sText* text;
    };

    sText* add(const char* text, unsigned int length, unsigned int hash);
    bool grow();

    XmlArena mArena;
    sSlot* mpTable = nullptr;
    unsigned int mCapacity = 0; // a power of two
    unsigned int mSize = 0;
    bool mHasStrings = false;
};
