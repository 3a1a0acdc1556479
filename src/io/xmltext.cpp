#include "io/xmltext.h"

#include "io/stream.h"

XmlText::Place XmlText::getPlace(std::size_t size) const
{
    Place place;
    place.mpRun = mpLast;
    place.mpText = mpEnd - size;
    return place;
}

char* XmlText::insert(Place& place, std::size_t size)
{
    sRun* const run = place.mpRun;
    char* const room = static_cast<char*>(mRuns.allocate(size));
    sRun* const inserted = room ? addRun(run, room, room + size) : nullptr;
    if (!inserted)
        return nullptr;

    // What stands behind the place becomes a run of its own.
    char* const end = run == mpLast ? mpEnd : run->end;
    if (place.mpText != end || run == mpLast)
    {
        sRun* const rest = addRun(inserted, place.mpText, end);
        if (!rest)
            return nullptr;
        if (run == mpLast)
            mpLast = rest;
        run->end = place.mpText;
    }
    place.mpRun = inserted;
    place.mpText = inserted->end;
    return room;
}

void XmlText::write(TextStream* stream) const
{
    for (const sRun* run = mpFirst; run; run = run->next)
    {
        const std::size_t length = static_cast<std::size_t>((run == mpLast ? mpEnd : run->end) - run->begin);
        if (length)
            stream->write(run->begin, static_cast<unsigned int>(length));
    }
}

void XmlText::clear()
{
    mPages.clear();
    mRuns.clear();
    mpFirst = mpLast = nullptr;
    mpEnd = mpPageEnd = nullptr;
}

bool XmlText::addPage(std::size_t size)
{
    char* const page = static_cast<char*>(mPages.allocateRest(size));
    sRun* const run = page ? addRun(mpLast, page, page + size) : nullptr;
    if (!run)
        return false;
    if (mpLast)
        mpLast->end = mpEnd;
    mpLast = run;
    mpEnd = page;
    mpPageEnd = run->end;
    return true;
}

// Puts a run behind another one; without one it becomes the first.
XmlText::sRun* XmlText::addRun(sRun* previous, char* begin, char* end)
{
    void* const block = mRuns.allocate(sizeof(sRun));
    if (!block)
        return nullptr;
    sRun*& link = previous ? previous->next : mpFirst;
    return link = new (block) sRun{begin, end, link};
}
