#include "io/xmlwriter.h"

#include "foundation/dev.h"
#include "io/xmlgrammar.h"

#include <cstdint>
#include <cstring>
#include <new>

namespace
{
constexpr unsigned int FirstIdentityCapacity = 64;

// What stands between the names and values. There is a blank behind a tag's name and behind each attribute.
constexpr std::string_view Head = "<?xml version=\"1.0\"?>\n\n";
constexpr std::string_view TagStart = "<";
constexpr std::string_view TagBlank = " ";
constexpr std::string_view EqualSign = "=\"";
constexpr std::string_view AttributeEnd = "\" ";
constexpr std::string_view LeafEnd = "/>\n";
constexpr std::string_view LineEnd = ">\n";
constexpr std::string_view EndTagStart = "</";

std::string_view toView(const char* text)
{
    return text ? text : "";
}

// Both return where it goes on.
char* put(char* to, std::string_view text)
{
    return static_cast<char*>(std::memcpy(to, text.data(), text.size())) + text.size();
}

char* putTabs(char* to, unsigned int num)
{
    return static_cast<char*>(std::memset(to, '\t', num)) + num;
}

unsigned int hashAddress(const void* address)
{
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(address) * 0x9E3779B97F4A7C15 >> 32);
}
}

XmlWriter::XmlWriter(const char* rootName)
{
    if (char* text = mText.append(Head.size()))
        put(text, Head);
    else
        giveUp();
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
    if (mComplete && !(beginChildren() && beginTag(toView(name))))
        giveUp();
}

void XmlWriter::closeTag()
{
    if (mDepth == 0)
        dev_assert("Unclosed tag not found.", __FILE__, __LINE__);
    if (mComplete && !endTag())
        giveUp();
    --mDepth;
}

void XmlWriter::addAttribute(const char* name, const char* value)
{
    if (mDepth == 0)
        dev_assert("No tag is opened.", __FILE__, __LINE__);
    if (!mComplete)
        return;

    const std::string_view nameText = toView(name);
    const std::string_view valueText = toView(value);
    const std::size_t size = nameText.size() + EqualSign.size() + valueText.size() + AttributeEnd.size();
    char* text = mpTag->hasChildren ? mText.insert(mpTag->attributeEnd, size) : mText.append(size);
    if (!text)
        return giveUp();
    text = put(text, nameText);
    text = put(text, EqualSign);
    text = put(text, valueText);
    put(text, AttributeEnd);
    mReadable &= XmlGrammar::isAll(nameText, XmlGrammar::Word) && XmlGrammar::isAll(valueText, XmlGrammar::Value);
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
    mText.write(stream);
}

// The first child ends its parent's own line.
bool XmlWriter::beginChildren()
{
    if (!mpTag || mpTag->hasChildren)
        return true;
    char* text = mText.append(LineEnd.size());
    if (!text)
        return false;
    put(text, LineEnd);
    mpTag->hasChildren = true;
    mpTag->attributeEnd = mText.getPlace(LineEnd.size());
    return true;
}

bool XmlWriter::beginTag(std::string_view name)
{
    const unsigned int tabNum = mDepth - 1;
    sTag* tag = mpSpare ? mpSpare : mTags.make<sTag>();
    char* text = mText.append(tabNum + TagStart.size() + name.size() + TagBlank.size());
    if (!tag || !text)
        return false;
    if (mpSpare)
        mpSpare = mpSpare->parent;
    text = put(putTabs(text, tabNum), TagStart);
    *tag = {mpTag, {text, name.size()}, false, {}};
    mpTag = tag;
    put(put(text, name), TagBlank);
    mReadable &= XmlGrammar::isAll(name, XmlGrammar::Word);
    return true;
}

bool XmlWriter::endTag()
{
    sTag* tag = mpTag;
    const unsigned int tabNum = mDepth - 1;
    const std::size_t size =
        tag->hasChildren ? tabNum + EndTagStart.size() + tag->name.size() + LineEnd.size() : LeafEnd.size();
    char* text = mText.append(size);
    if (!text)
        return false;
    if (tag->hasChildren)
        put(put(put(putTabs(text, tabNum), EndTagStart), tag->name), LineEnd);
    else
        put(text, LeafEnd);
    mpTag = tag->parent;
    tag->parent = mpSpare;
    mpSpare = tag;
    return true;
}

// The memory of the text goes back at once, for whoever still walks the objects.
void XmlWriter::giveUp()
{
    if (!mComplete)
        return;
    DEV_TRACE("XmlWriter : Not enough memory, document given up.\n");
    mComplete = false;
    mpTag = nullptr;
    mpSpare = nullptr;
    mText.clear();
    mTags.clear();
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
