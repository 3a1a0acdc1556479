#include "io/xmlwriter.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "io/xmlgrammar.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

namespace
{
constexpr unsigned int FirstIdentityCapacity = 64;

unsigned int hashAddress(const void* address)
{
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(address) * 0x9E3779B97F4A7C15 >> 32);
}
}

// Prints tags, gathering small pieces into large writes.
class XmlWriter::Printer
{
public:
    explicit Printer(TextStream* stream) : mpStream(stream) {}
    ~Printer() { write(mBuffer, mUsed); }

    void printTree(const sTag* tag);

    template <unsigned int Size>
    void put(const char (&text)[Size])
    {
        std::memcpy(reserve(Size - 1), text, Size - 1);
        mUsed += Size - 1;
    }

private:
    using sText = XmlTextPool::sText;

    void putStart(const sTag* tag);
    void putEnd(const sTag* tag);
    void putLong(const sText* text);

    void put(const sText* text)
    {
        if (text->length > sText::Block)
            return putLong(text);
        std::memcpy(reserve(sText::Block), text->c_str(), sText::Block);
        mUsed += text->length;
    }

    void putTabs()
    {
        for (unsigned int i = 0; i < mDepth; ++i)
            put("\t");
    }

    // The place for up to `size` bytes, which must fit the buffer.
    char* reserve(unsigned int size)
    {
        if (size > sizeof(mBuffer) - mUsed)
            flush();
        return mBuffer + mUsed;
    }

    // Writes whole pages only, so that the file's own buffer is passed by.
    void flush()
    {
        const unsigned int whole = mUsed / PageSize * PageSize;
        write(mBuffer, whole);
        mUsed -= whole;
        std::memcpy(mBuffer, mBuffer + whole, mUsed);
    }

    void write(const char* text, unsigned int length)
    {
        if (length)
            mpStream->write(text, length);
    }

    static constexpr unsigned int PageSize = 4096;

    TextStream* mpStream;
    unsigned int mDepth = 0;
    unsigned int mUsed = 0;
    char mBuffer[32 * PageSize];
};

// The tag, what lies below it and all that follow it. A tree may be deeper than a stack, so there is no recursion.
void XmlWriter::Printer::printTree(const sTag* tag)
{
    while (tag)
    {
        putStart(tag);
        if (tag->firstChild)
        {
            tag = tag->firstChild;
            ++mDepth;
            continue;
        }
        while (!tag->next && tag->parent)
        {
            tag = tag->parent;
            --mDepth;
            putEnd(tag);
        }
        tag = tag->next;
    }
}

// There is a blank behind the name and behind each attribute.
void XmlWriter::Printer::putStart(const sTag* tag)
{
    putTabs();
    put("<");
    put(tag->name);
    put(" ");
    for (const sAttribute* attribute = tag->firstAttribute; attribute; attribute = attribute->next)
    {
        put(attribute->name);
        put("=\"");
        put(attribute->value);
        put("\" ");
    }
    if (tag->firstChild)
        put(">\n");
    else
        put("/>\n");
}

void XmlWriter::Printer::putEnd(const sTag* tag)
{
    putTabs();
    put("</");
    put(tag->name);
    put(">\n");
}

void XmlWriter::Printer::putLong(const sText* text)
{
    for (unsigned int done = 0; done < text->length;)
    {
        const unsigned int part = std::min(text->length - done, PageSize);
        std::memcpy(reserve(part), text->c_str() + done, part);
        mUsed += part;
        done += part;
    }
}

XmlWriter::XmlWriter(const char* rootName)
{
    openTag(rootName);
}

XmlWriter::~XmlWriter()
{
    if (mDepth > 1)
        dev_assert("Unclosed tag found.", __FILE__, __LINE__);
    delete[] mpIdentity;
}

void XmlWriter::openTag(const char* name)
{
    if (++mDepth > XmlGrammar::MaximumDepth)
        mReadable = false;
    if (!mComplete)
        return;

    sTag* tag = mArena.make<sTag>();
    const XmlTextPool::sText* text = mTexts.share(name);
    if (!tag || !text)
        return giveUp();
    tag->name = text;
    tag->parent = mpTag;
    sTag*& first = mpTag ? mpTag->firstChild : mpFirstRoot;
    sTag*& last = mpTag ? mpTag->lastChild : mpLastRoot;
    (last ? last->next : first) = tag;
    last = tag;
    mpTag = tag;
    mReadable &= text->isWord;
}

void XmlWriter::closeTag()
{
    if (mDepth == 0)
        dev_assert("Unclosed tag not found.", __FILE__, __LINE__);
    --mDepth;
    if (mComplete)
        mpTag = mpTag->parent;
}

void XmlWriter::addAttribute(const char* name, const char* value)
{
    if (mDepth == 0)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    if (!mComplete)
        return;

    sAttribute* attribute = mArena.make<sAttribute>();
    const XmlTextPool::sText* nameText = mTexts.share(name);
    const XmlTextPool::sText* valueText = mTexts.share(value);
    if (!attribute || !nameText || !valueText)
        return giveUp();
    attribute->name = nameText;
    attribute->value = valueText;
    (mpTag->lastAttribute ? mpTag->lastAttribute->next : mpTag->firstAttribute) = attribute;
    mpTag->lastAttribute = attribute;
    mReadable &= nameText->isWord && valueText->isValue;
}

unsigned int XmlWriter::getIdentity(const ObjectBase* object)
{
    if (mComplete && mIdentityNum * 2 >= mIdentityCapacity && !growIdentities())
        giveUp();
    if (!mComplete)
        return 0;
    sIdentity& identity = mpIdentity[findIdentity(object)];
    if (!identity.object)
        identity = {object, ++mIdentityNum};
    return identity.id;
}

void XmlWriter::registerObject(ObjectBase* object, unsigned int id)
{
    if (mObjects.makeRoom())
        mObjects.add(object, id);
    else
        giveUp();
}

bool XmlWriter::isReadable() const
{
    return mComplete && mReadable;
}

void XmlWriter::write(TextStream* stream)
{
    if (mDepth > 1)
        dev_assert("Unclosed tag found.", __FILE__, __LINE__);
    if (mDepth == 0)
        dev_assert("Root has already closed.", __FILE__, __LINE__);
    closeTag();
    if (!mComplete)
        return;

    Printer printer(stream);
    printer.put("<?xml version=\"1.0\"?>\n\n");
    printer.printTree(mpFirstRoot);
}

// The tree's memory goes back at once, for whoever still walks the objects.
void XmlWriter::giveUp()
{
    if (!mComplete)
        return;
    DEV_TRACE("XmlWriter : Not enough memory, document given up.\n");
    mComplete = false;
    mpTag = nullptr;
    mpFirstRoot = nullptr;
    mpLastRoot = nullptr;
    mArena.clear();
    mTexts.clear();
}

unsigned int XmlWriter::findIdentity(const ObjectBase* object) const
{
    unsigned int place = hashAddress(object) & (mIdentityCapacity - 1);
    while (mpIdentity[place].object && mpIdentity[place].object != object)
        place = (place + 1) & (mIdentityCapacity - 1);
    return place;
}

bool XmlWriter::growIdentities()
{
    const unsigned int oldCapacity = mIdentityCapacity;
    const unsigned int capacity = oldCapacity ? oldCapacity * 2 : FirstIdentityCapacity;
    sIdentity* grown = new (std::nothrow) sIdentity[capacity]();
    if (!grown)
        return false;
    const sIdentity* old = mpIdentity;
    mpIdentity = grown;
    mIdentityCapacity = capacity;
    for (unsigned int i = 0; i < oldCapacity; ++i)
        if (old[i].object)
            mpIdentity[findIdentity(old[i].object)] = old[i];
    delete[] old;
    return true;
}
