#include "io/xmlreader.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "io/xmlscanner.h"
#include "reflection/objectbase.h"

#include <memory>
#include <new>

// Hangs what the scanner finds into the reader's tree.
class XmlReader::TreeBuilder
{
public:
    explicit TreeBuilder(XmlReader& reader) : mReader(reader) {}

    bool openTag(const char* name)
    {
        mpTag = mReader.mArena.make<sTag>();
        if (!mpTag)
            return false;
        mpTag->name = name;
        mpTag->parent = mpParent;
        mpLink = &mpTag->firstAttribute;
        return true;
    }

    bool addAttribute(const char* name, const char* value)
    {
        sAttribute* attribute = mReader.mArena.make<sAttribute>();
        if (!attribute)
            return false;
        attribute->name = static_cast<unsigned int>(name - mpTag->name);
        attribute->value = static_cast<unsigned int>(value - mpTag->name);
        *mpLink = attribute;
        mpLink = &attribute->next;
        return true;
    }

    void completeTag(bool isOpen)
    {
        sTag*& first = mpParent ? mpParent->firstChild : mReader.mpFirstRoot;
        sTag*& last = mpParent ? mpParent->lastChild : mReader.mpLastRoot;
        (last ? last->next : first) = mpTag;
        last = mpTag;
        if (isOpen)
            mpParent = mpTag;
    }

    void closeTag() { mpParent = mpParent->parent; }

private:
    XmlReader& mReader;
    sTag* mpParent = nullptr;
    sTag* mpTag = nullptr;
    sAttribute** mpLink = nullptr;
};

namespace
{
// Adds up what a tree would take.
struct sTreeSize
{
    bool openTag(const char*) { return ++tags; }
    bool addAttribute(const char*, const char*) { return ++attributes; }
    void completeTag(bool) {}
    void closeTag() {}

    std::size_t tags = 0;
    std::size_t attributes = 0;
};

using Block = std::unique_ptr<char[]>;

// Null when the heap is full.
Block allocate(std::size_t size)
{
    return Block(new (std::nothrow) char[size]);
}
}

bool XmlReader::isValue(const char* text)
{
    return text && XmlGrammar::isAll(text, XmlGrammar::Value);
}

const char* XmlReader::findFault(TextStream* stream, unsigned int& place)
{
    place = 0;
    const unsigned int size = stream->getRest();
    const Block text = allocate(std::size_t{size} + 1 + XmlCursor::Padding);
    if (!text)
        return "Not enough memory.";
    text[stream->peek(text.get(), size)] = XmlGrammar::End;

    sTreeSize tree;
    XmlScanner scanner(text.get(), tree);
    const char* fault = scanner.scan();
    place = static_cast<unsigned int>(scanner.getPlace() - text.get());
    // parse() takes its memory in pages; a page or two of slack makes up for their ends.
    constexpr std::size_t Slack = 1024 * 1024;
    if (!fault && !allocate(tree.tags * sizeof(sTag) + tree.attributes * sizeof(sAttribute) + Slack))
        fault = "Not enough memory.";
    return fault;
}

bool XmlReader::isWellFormed(TextStream* stream)
{
    unsigned int place = 0;
    const char* fault = findFault(stream, place);
    if (fault)
        DEV_TRACE("XmlReader : %s At byte %u.\n", fault, place);
    return !fault;
}

void XmlReader::parse(TextStream* stream)
{
    const unsigned int size = stream->getRest();
    char* text = static_cast<char*>(mArena.allocate(std::size_t{size} + 1 + XmlCursor::Padding));
    if (!text)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    text[size ? stream->read(text, size) : 0] = XmlGrammar::End;
    // Only a read that finds nothing tells the stream that it is at its end.
    for (char rest; stream->read(&rest, 1) != 0;)
        ;

    TreeBuilder builder(*this);
    XmlScanner scanner(text, builder);
    if (const char* fault = scanner.scan())
        dev_assert(fault, __FILE__, __LINE__);
}

bool XmlReader::load(TextStream* stream)
{
    if (!isWellFormed(stream))
        return false;
    parse(stream);
    return true;
}

ObjectBase* XmlReader::read(ObjectBase* object, const char* tagName)
{
    if (!openTag(tagName))
        return object;
    if (!object)
        object = makeObject(tagName);
    if (object)
        object->deserialize(this);
    closeTag();
    return object;
}

ObjectBase* XmlReader::makeObject(const char* tagName) const
{
    const char* name = mpTag->findAttribute("typeinfo");
    if (!name)
    {
        DEV_TRACE("%s typeinfo not found.\n", tagName);
        return nullptr;
    }
    const TypeInfo* type = TypeInfo::findForeign(name);
    if (!type)
        DEV_TRACE("%s undefined typeinfo \"%s\".\n", tagName, name);
    return type ? type->newInstance() : nullptr;
}

bool XmlReader::openTag(const char* name)
{
    const sTag* tag = getFirstChild();
    while (tag && !AutoString::isEqual(tag->name, name))
        tag = tag->next;
    if (tag)
        mpTag = tag;
    return tag != nullptr;
}

void XmlReader::closeTag()
{
    if (!mpTag)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    mpTag = mpTag->parent;
}

AutoString XmlReader::getAttribute(const char* name) const
{
    if (!mpTag)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    const char* value = mpTag->findAttribute(name);
    return value ? mTexts.getString(value) : AutoString::Null;
}

AutoString XmlReader::findTag(const char* attributeName, const char* attributeValue) const
{
    for (const sTag* child = getFirstChild(); mpTag && child; child = child->next)
    {
        const char* value = mpTag->findAttribute(attributeName);
        if (value && AutoString::isEqual(value, attributeValue))
            return mTexts.getString(child->name);
    }
    return AutoString::Null;
}

const char* XmlReader::sTag::findAttribute(const char* attributeName) const
{
    const sAttribute* attribute = firstAttribute;
    while (attribute && !AutoString::isEqual(name + attribute->name, attributeName))
        attribute = attribute->next;
    return attribute ? name + attribute->value : nullptr;
}
