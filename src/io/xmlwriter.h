#pragma once

#include "foundation/autostring.h"
#include "foundation/map.h"
#include "io/xmlarena.h"
#include "io/xmltext.h"

#include <string_view>

class ObjectBase;
class TextStream;

// Collects the text of a document and writes it in one go; attributes and child tags may come in any order. It also
// numbers the objects of the document and knows which of them it has seen, so that each is written once. A document
// that outgrows the memory is given up with a trace: nothing more is collected or printed, and isReadable() says no.
class XmlWriter
{
public:
    // Opens the root tag.
    explicit XmlWriter(const char* rootName);

    // Asserts that no tag but the root is open. Prints nothing.
    ~XmlWriter();

    XmlWriter(const XmlWriter&) = delete;
    XmlWriter& operator=(const XmlWriter&) = delete;

    void openTag(const char* name);
    void openTag(const AutoString& name) { openTag(name.c_str()); }
    void closeTag();

    // To the open tag. Values are kept and printed as they are; null prints as nothing.
    void addAttribute(const char* name, const char* value);
    void addAttribute(const AutoString& name, const AutoString& value) { addAttribute(name.c_str(), value.c_str()); }

    // The number of an object in this document: 1, 2, 3, ... in the order of the first call for each; 0 once it is
    // given up.
    unsigned int getIdentity(const ObjectBase* object);

    // The object registered under a number; null when there is none.
    ObjectBase* findObject(unsigned int id) const { return mObjects.find(id); }

    // Asserts a number of 0 and one that is taken.
    void registerObject(ObjectBase* object, unsigned int id);

    // Whether it has not been given up. Objects need not be walked any further then.
    bool isComplete() const { return mComplete; }

    // Whether XmlReader takes what write() would print: complete, all names words, all values values, not nested
    // too deeply.
    bool isReadable() const;

    // Once at most, with only the root open; closes it.
    void write(TextStream* stream);

private:
    // An open tag. Its name lies in the text.
    struct sTag
    {
        sTag* parent;
        std::string_view name;
        bool hasChildren;            // then its own line has ended, and
        XmlText::Place attributeEnd; // is where attributes go
    };

    struct sIdentity
    {
        const ObjectBase* object;
        unsigned int id;
    };

    // The steps of openTag() and closeTag() in the text. False when there is no memory.
    bool beginChildren();
    bool beginTag(std::string_view name);
    bool endTag();

    void giveUp();

    // The place of an object in the table of identities, or the free place where it belongs.
    unsigned int findIdentity(const ObjectBase* object) const;
    bool growIdentities();

    XmlText mText;
    XmlArena mTags;
    sTag* mpTag = nullptr;   // the innermost open one
    sTag* mpSpare = nullptr; // closed ones, to be used again
    unsigned int mDepth = 0; // open tags
    bool mComplete = true;
    bool mReadable = true;
    Map<ObjectBase> mObjects;
    sIdentity* mpIdentity = nullptr;
    unsigned int mIdentityCapacity = 0; // a power of two
    unsigned int mIdentityNum = 0;
};
