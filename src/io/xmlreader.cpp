#include "io/xmlreader.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/linknode.h"
#include "io/stream.h"
#include "io/xmlscanner.h"
#include "reflection/objectbase.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace
{
// The last four bytes in one number; elements of a list differ there.
unsigned int getTail(const char* text, std::size_t length)
{
    unsigned int tail = 0;
    for (std::size_t i = length < sizeof(tail) ? 0 : length - sizeof(tail); i < length; ++i)
        tail = tail << 8 | static_cast<unsigned char>(text[i]);
    return tail;
}

bool isSame(const char* a, const char* b)
{
    return *a == *b && std::strcmp(a, b) == 0;
}
}

// Hangs what the scanner finds into the reader's tree. The attributes of a tag are gathered first, so that they follow
// it in one block.
class XmlReader::TreeBuilder
{
public:
    explicit TreeBuilder(XmlReader& reader) : mReader(reader) {}
    ~TreeBuilder() { delete[] mpGathered; }

    TreeBuilder(const TreeBuilder&) = delete;
    TreeBuilder& operator=(const TreeBuilder&) = delete;

    void openTag(const char* name, std::size_t length)
    {
        mpName = name;
        mNameTail = getTail(name, length);
        mAttributeNum = 0;
    }

    bool addAttribute(const char* name, const char* value)
    {
        if (mAttributeNum == mCapacity && !grow())
            return false;
        mpGathered[mAttributeNum++] = {static_cast<unsigned int>(name - mpName),
                                       static_cast<unsigned int>(value - mpName)};
        return true;
    }

    bool completeTag(bool isOpen)
    {
        void* block = mReader.mArena.allocate(sizeof(sTag) + mAttributeNum * sizeof(sAttribute));
        if (!block)
            return false;
        sTag* tag = new (block) sTag{mpName, mpParent, nullptr, nullptr, mAttributeNum, mNameTail};
        std::copy_n(mpGathered, mAttributeNum, tag->getAttributes());

        sTag*& first = mpParent ? mpParent->firstChild : mReader.mpFirstRoot;
        sTag*& last = mLast[mDepth];
        (last ? last->next : first) = tag;
        last = tag;
        if (isOpen)
        {
            mpParent = tag;
            mLast[++mDepth] = nullptr;
        }
        return true;
    }

    void closeTag()
    {
        mpParent = mpParent->parent;
        --mDepth;
    }

private:
    bool grow()
    {
        const unsigned int capacity = mCapacity ? mCapacity * 2 : 64;
        sAttribute* gathered = new (std::nothrow) sAttribute[capacity];
        if (!gathered)
            return false;
        std::copy_n(mpGathered, mAttributeNum, gathered);
        delete[] mpGathered;
        mpGathered = gathered;
        mCapacity = capacity;
        return true;
    }

    XmlReader& mReader;
    const char* mpName = nullptr;
    unsigned int mNameTail = 0;
    sAttribute* mpGathered = nullptr;
    unsigned int mAttributeNum = 0;
    unsigned int mCapacity = 0;
    sTag* mpParent = nullptr;
    sTag* mLast[XmlGrammar::MaximumDepth + 1] = {}; // the newest tag of each depth
    unsigned int mDepth = 0;
};

namespace
{
// Children that are looked at one by one before an index of the others is made.
constexpr unsigned int NearTagNum = 64;

// Adds up what a tree would take.
struct sTreeSize
{
    void openTag(const char*, std::size_t) {}
    bool addAttribute(const char*, const char*) { return ++attributes; }
    bool completeTag(bool) { return ++tags; }
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

void traceFault(const char* fault, unsigned int place)
{
    DEV_TRACE("XmlReader : %s At byte %u.\n", fault, place);
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
    // parse() takes its memory in pages, whose ends the slack makes up for; while it gathers the attributes of a tag
    // they take up to four times their room.
    constexpr std::size_t Slack = 1024 * 1024 + XmlArena::Reserve;
    if (!fault && !allocate(tree.tags * sizeof(sTag) + tree.attributes * sizeof(sAttribute) * 4 + Slack))
        fault = "Not enough memory.";
    return fault;
}

bool XmlReader::isWellFormed(TextStream* stream)
{
    unsigned int place = 0;
    const char* fault = findFault(stream, place);
    if (fault)
        traceFault(fault, place);
    return !fault;
}

const char* XmlReader::build(TextStream* stream, unsigned int& place)
{
    place = 0;
    const unsigned int size = stream->getRest();
    char* text = static_cast<char*>(mArena.allocate(std::size_t{size} + 1 + XmlCursor::Padding));
    if (!text)
        return "Not enough memory.";
    text[size ? stream->read(text, size) : 0] = XmlGrammar::End;
    // Only a read that finds nothing tells the stream that it is at its end.
    for (char rest; stream->read(&rest, 1) != 0;)
        ;

    TreeBuilder builder(*this);
    XmlScanner scanner(text, builder);
    const char* fault = scanner.scan();
    place = static_cast<unsigned int>(scanner.getPlace() - text);
    return fault;
}

void XmlReader::parse(TextStream* stream)
{
    unsigned int place = 0;
    if (const char* fault = build(stream, place))
        dev_assert(fault, __FILE__, __LINE__);
}

bool XmlReader::load(TextStream* stream)
{
    unsigned int place = 0;
    const char* fault = build(stream, place);
    if (!fault)
        return true;
    traceFault(fault, place);
    mpFirstRoot = nullptr;
    mArena.clear();
    return false;
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
    const char* name = getAttributeText("typeinfo");
    if (!name)
    {
        DEV_TRACE("%s typeinfo not found.\n", tagName);
        return nullptr;
    }
    const TypeInfo* type = findTypeInfo();
    if (!type)
        DEV_TRACE("%s undefined typeinfo \"%s\".\n", tagName, name);
    return type ? type->newInstance() : nullptr;
}

bool XmlReader::openTag(const char* name)
{
    const sTag* tag = getFirstChild();
    const unsigned int tail = getTail(name, std::strlen(name));
    unsigned int look = 0;
    for (; tag && look < NearTagNum && !(tag->nameTail == tail && isSame(tag->name, name)); ++look)
        tag = tag->next;
    if (look == NearTagNum)
        tag = findFarTag(tag, name);
    if (tag)
        mpTag = tag;
    return tag != nullptr;
}

// A list asks for each of its elements by name: one walk for each would take for ever in a long list.
const XmlReader::sTag* XmlReader::findFarTag(const sTag* first, const char* name)
{
    const sIndex* index = mpIndex;
    while (index && index->first != first)
        index = index->next;
    if (!index && first)
        index = addIndex(first);
    if (!index)
        return nullptr;

    const sTag** const end = index->tags + index->num;
    const sTag** const found = std::lower_bound(
        index->tags, end, name, [](const sTag* tag, const char* wanted) { return std::strcmp(tag->name, wanted) < 0; });
    return found != end && AutoString::isEqual((*found)->name, name) ? *found : nullptr;
}

// Null when the heap is full.
XmlReader::sIndex* XmlReader::addIndex(const sTag* first)
{
    const unsigned int num = countTags(first);
    sIndex* index = mArena.make<sIndex>();
    void* tags = mArena.allocate(num * sizeof(const sTag*));
    if (!index || !tags)
        return nullptr;
    *index = {first, mpIndex, static_cast<const sTag**>(tags), num};
    mpIndex = index;
    for (unsigned int i = 0; i < num; ++i, first = first->next)
        index->tags[i] = first;
    std::stable_sort(index->tags, index->tags + num,
                     [](const sTag* a, const sTag* b) { return std::strcmp(a->name, b->name) < 0; });
    return index;
}

unsigned int XmlReader::countTags(const sTag* first)
{
    unsigned int num = 0;
    for (; first; first = first->next)
        ++num;
    return num;
}

bool XmlReader::claimPlaces(unsigned int num)
{
    const unsigned int tagNum = countTags(getFirstChild());
    const unsigned int missing = num > tagNum ? num - tagNum : 0;
    if (missing > mFreePlaceNum || !claimRoom(std::size_t{num} * sizeof(sLinkNode<ObjectBase>)))
        return false;
    mFreePlaceNum -= missing;
    return true;
}

bool XmlReader::claimRoom(std::size_t size) const
{
    // As long as the reserve is there, so is any small block.
    const bool hasRoom = AllocatorBase::getGlobalAllocator()->getFreeSize() > size + XmlArena::Reserve &&
                         (size < XmlArena::Reserve / 16 || allocate(size));
    if (mComplete && !hasRoom)
        DEV_TRACE("XmlReader : Not enough memory, document given up.\n");
    mComplete &= hasRoom;
    return mComplete;
}

void XmlReader::closeTag()
{
    if (!mpTag)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    mpTag = mpTag->parent;
}

AutoString XmlReader::getAttribute(const char* name) const
{
    const char* value = getAttributeText(name);
    return value && claimRoom(2 * std::strlen(value)) ? mTexts.getString(value) : AutoString::Null;
}

const char* XmlReader::getAttributeText(const char* name) const
{
    if (!mpTag)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    return mpTag->findAttribute(name);
}

const TypeInfo* XmlReader::findTypeInfo() const
{
    const char* name = getAttributeText("typeinfo");
    if (!name)
        return nullptr;
    if (!mpLastType || !isSame(mpLastType->getName(), name))
        mpLastType = TypeInfo::findForeign(name);
    return mpLastType;
}

void XmlReader::registerObject(ObjectBase* object, unsigned int id)
{
    if (mObjects.makeRoom())
        mObjects.add(object, id);
    else
        mComplete = false;
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
    const sAttribute* attributes = getAttributes();
    for (unsigned int i = 0; i < attributeNum; ++i)
        if (isSame(name + attributes[i].name, attributeName))
            return name + attributes[i].value;
    return nullptr;
}
