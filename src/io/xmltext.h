#pragma once

#include "io/xmlarena.h"

#include <cstddef>

class TextStream;

// The text of a document that is being written. It grows at its end, and in its midst at places that were kept; what
// was written once never moves in memory.
class XmlText
{
    struct sRun;

public:
    class Place
    {
        friend class XmlText;
        sRun* mpRun = nullptr;
        char* mpText = nullptr;
    };

    XmlText() = default;
    XmlText(const XmlText&) = delete;
    XmlText& operator=(const XmlText&) = delete;

    // Room for `size` bytes at the end, all of which have to be filled. Null when the heap is full.
    char* append(std::size_t size)
    {
        if (size > static_cast<std::size_t>(mpPageEnd - mpEnd) && !addPage(size))
            return nullptr;
        char* room = mpEnd;
        mpEnd += size;
        return room;
    }

    // The place of what was appended last, before its last `size` bytes.
    Place getPlace(std::size_t size) const;

    // The same room at a place, which moves behind it. Other places have to lie before this one.
    char* insert(Place& place, std::size_t size);

    void write(TextStream* stream) const;
    void clear();

private:
    // Runs follow each other in the order of the text.
    struct sRun
    {
        char* begin;
        char* end; // of the last run mpEnd counts
        sRun* next;
    };

    bool addPage(std::size_t size);
    sRun* addRun(sRun* previous, char* begin, char* end);

    XmlArena mPages;
    XmlArena mRuns;
    sRun* mpFirst = nullptr;
    sRun* mpLast = nullptr;
    char* mpEnd = nullptr;
    char* mpPageEnd = nullptr;
};
