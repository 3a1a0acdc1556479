#pragma once

#include "foundation/autostring.h"
#include "foundation/map.h"
#include "io/xmlarena.h"
#include "io/xmltextpool.h"

class ObjectBase;
class TextStream;
class TypeInfo;

// Reads a document into a tree and lets objects walk it by name. It knows what XmlWriter writes and no more: tags,
// attributes and nested tags; no text between tags, no comments, no entities, and a narrow set of characters in
// values. Text that breaks this grammar stops the program in parse(); isWellFormed() asks beforehand.
class XmlReader
{
public:
    XmlReader() = default;

    XmlReader(const XmlReader&) = delete;
    XmlReader& operator=(const XmlReader&) = delete;

    // Whether a text can stand between the quotes of an attribute: not empty, and made of letters, digits and
    // "_+-<>./" only. A null text cannot.
    static bool isValue(const char* text);
    static bool isValue(const AutoString& text) { return isValue(text.c_str()); }

    // What would stop parse() in the rest of the stream, in grammar or in memory, and how many bytes from here; null
    // when nothing would. Leaves the stream as it is.
    static const char* findFault(TextStream* stream, unsigned int& place);

    // Whether there is no such fault. Traces it if there is.
    [[nodiscard]] static bool isWellFormed(TextStream* stream);

    // Reads the rest of the stream, once for a reader, and leaves the stream at its end. Asserts on any fault of the
    // grammar.
    void parse(TextStream* stream);

    // parse() for a file that comes from outside: false, with a trace and without a tree, when it is not well-formed.
    [[nodiscard]] bool load(TextStream* stream);

    // Fills `object` from the tag of that name; a null object is made from the tag's "typeinfo" and is the caller's.
    // Returns the object: unchanged when there is no such tag, null when none could be made.
    ObjectBase* read(ObjectBase* object, const char* tagName);

    // Steps into the first tag of that name below the open one, or among the roots. False, and no step, without one.
    [[nodiscard]] bool openTag(const char* name);
    [[nodiscard]] bool openTag(const AutoString& name) { return openTag(name.c_str()); }
    void closeTag();

    // Whether the open tag has tags below it.
    bool hasTags() const { return getFirstChild() != nullptr; }

    // Whether a list with the open tag may be that long. A place without a tag of its own costs a document nothing,
    // so the number of such places in all its lists together is limited.
    [[nodiscard]] bool claimPlaces(unsigned int num);

    // Whether there is memory for one more object, or for `size` bytes, beside what must be left. Once there is not,
    // the document is incomplete: nothing that has been read of it may take the place of anything.
    [[nodiscard]] bool claimRoom(std::size_t size = 0) const;
    bool isComplete() const { return mComplete; }

    // An attribute of the open tag; the first of that name wins. AutoString::Null without one. Equal texts share one
    // buffer.
    AutoString getAttribute(const char* name) const;

    // The same as a text of the reader's, for what is only looked at; null without one.
    const char* getAttributeText(const char* name) const;

    // The class that the open tag names as its "typeinfo"; null without one, or when there is no such class.
    const TypeInfo* findTypeInfo() const;

    // On purpose: it tests the open tag in each round and yields the name of a child.
    AutoString findTag(const char* attributeName, const char* attributeValue) const;

    // The object registered under a number; null when there is none.
    ObjectBase* findObject(unsigned int id) const { return mObjects.find(id); }
    void registerObject(ObjectBase* object, unsigned int id);

private:
    // Names and values lie in the document's text, each ended by a zero: bytes behind the name of the tag.
    struct sAttribute
    {
        unsigned int name;
        unsigned int value;
    };

    // The attributes follow the tag.
    struct sTag
    {
        sAttribute* getAttributes() { return reinterpret_cast<sAttribute*>(this + 1); }
        const sAttribute* getAttributes() const { return reinterpret_cast<const sAttribute*>(this + 1); }

        // The value of the first attribute of that name, or null.
        const char* findAttribute(const char* attributeName) const;

        const char* name;
        sTag* parent;
        sTag* next;
        sTag* firstChild;
        unsigned int attributeNum;
        unsigned int nameTail; // tells most names apart
    };

    // Children of one tag from a certain one on, sorted by name; of equal names the first stands first.
    struct sIndex
    {
        const sTag* first;
        sIndex* next;
        const sTag** tags;
        unsigned int num;
    };

    class TreeBuilder;

    // Reads the rest of the stream into the tree. Null, or the fault and its place as findFault() tells them; what is
    // in the tree means nothing then.
    const char* build(TextStream* stream, unsigned int& place);

    static unsigned int countTags(const sTag* first);
    const sTag* findFarTag(const sTag* first, const char* name);
    sIndex* addIndex(const sTag* first);

    ObjectBase* makeObject(const char* tagName) const;

    const sTag* getFirstChild() const { return mpTag ? mpTag->firstChild : mpFirstRoot; }

    XmlArena mArena; // the text and the tree
    mutable XmlTextPool mTexts;
    sTag* mpFirstRoot = nullptr;
    const sTag* mpTag = nullptr;        // the open one, null outside the roots
    sIndex* mpIndex = nullptr;          // the newest one
    unsigned int mFreePlaceNum = 65535; // places of lists without a tag that are still granted
    Map<ObjectBase> mObjects;
    mutable bool mComplete = true;

    // The class found last: the elements of a list are of one class, and so is asking for it again and again.
    mutable const TypeInfo* mpLastType = nullptr;
};
