#pragma once

#include "io/xmlgrammar.h"

#include <cstring>

// The grammar of documents, once for reading and for asking beforehand. What it finds goes to a sink:
//     bool openTag(const char* name)                           a tag begins; false when there is no memory
//     bool addAttribute(const char* name, const char* value)   of that tag; the same
//     void completeTag(bool isOpen)                            it is complete; an open one is the next tag's parent
//     void closeTag()                                          the end tag of the open one
// The text must end in XmlGrammar::End. A zero is written behind each word once the scan has passed it, so a name
// handed to openTag() or addAttribute() is a text of its own only from the next call on.
template <typename Sink>
class XmlScanner
{
public:
    XmlScanner(char* text, Sink& sink) : mpNext(text), mSink(sink) {}

    // Null when the text keeps to the grammar, else the fault.
    const char* scan();

    // Where the scan has come to.
    const char* getPlace() const { return mpNext; }

private:
    struct sName
    {
        const char* text;
        std::size_t length;
    };

    // The helpers follow the same rule: null, or the fault.
    const char* scanTag();
    const char* scanAttribute(char* name);
    const char* scanTagEnd(sName name);
    const char* scanEndTag();

    // Steps to the next of these two characters or to the end.
    bool skipTo(char a, char b)
    {
        while (*mpNext != a && *mpNext != b && *mpNext != XmlGrammar::End)
            ++mpNext;
        return *mpNext != XmlGrammar::End;
    }

    void skip(unsigned char kind)
    {
        while (XmlGrammar::is(*mpNext, kind))
            ++mpNext;
    }

    bool take(char c)
    {
        if (*mpNext != c)
            return false;
        ++mpNext;
        return true;
    }

    char* mpNext;
    Sink& mSink;
    sName mOpen[XmlGrammar::MaximumDepth];
    unsigned int mDepth = 0;
};

template <typename Sink>
const char* XmlScanner<Sink>::scan()
{
    while (skipTo('<', '<'))
    {
        ++mpNext;
        const char* fault = nullptr;
        if (*mpNext == '?')
            skipTo('>', '>');
        else if (take('/'))
            fault = scanEndTag();
        else
            fault = scanTag();
        if (fault)
            return fault;
    }
    return mDepth ? "Unclosed tag exists." : nullptr;
}

template <typename Sink>
const char* XmlScanner<Sink>::scanTag()
{
    skip(XmlGrammar::Space);
    char* const name = mpNext;
    skip(XmlGrammar::Word);
    char* const nameEnd = mpNext;
    if (name == nameEnd)
        return "Invalid tag.";
    if (!mSink.openTag(name))
        return "Not enough memory.";

    for (;;)
    {
        skip(XmlGrammar::Space);
        char* const attribute = mpNext;
        skip(XmlGrammar::Word);
        if (attribute == mpNext)
            break;
        if (const char* fault = scanAttribute(attribute))
            return fault;
    }
    const char* fault = scanTagEnd({name, static_cast<std::size_t>(nameEnd - name)});
    *nameEnd = 0;
    return fault;
}

// The name has just been passed.
template <typename Sink>
const char* XmlScanner<Sink>::scanAttribute(char* name)
{
    char* const nameEnd = mpNext;
    skip(XmlGrammar::Space);
    if (!take('='))
        return "Invalid attribute format.";
    skip(XmlGrammar::Space);
    if (!take('"'))
        return "Invalid attribute format.";

    skip(XmlGrammar::Space);
    char* const value = mpNext;
    skip(XmlGrammar::Value);
    char* const valueEnd = mpNext;
    if (value == valueEnd)
        return "Invalid attribute value.";
    // On purpose: one blank may stand before the closing quote.
    if (XmlGrammar::is(*mpNext, XmlGrammar::Blank))
        ++mpNext;
    if (!take('"'))
        return "Invalid attribute format.";

    *nameEnd = 0;
    *valueEnd = 0;
    return mSink.addAttribute(name, value) ? nullptr : "Not enough memory.";
}

template <typename Sink>
const char* XmlScanner<Sink>::scanTagEnd(sName name)
{
    if (!skipTo('/', '>'))
        return "Invalid tag.";
    const bool isOpen = !take('/');
    if (!take('>') || mDepth == XmlGrammar::MaximumDepth)
        return "Invalid tag.";
    if (isOpen)
        mOpen[mDepth++] = name;
    mSink.completeTag(isOpen);
    return nullptr;
}

// The end tag's own ">" is left to the search for the next tag.
template <typename Sink>
const char* XmlScanner<Sink>::scanEndTag()
{
    skip(XmlGrammar::Space);
    const char* name = mpNext;
    skip(XmlGrammar::Word);
    const std::size_t length = static_cast<std::size_t>(mpNext - name);
    if (length == 0)
        return "Invalid tag.";
    if (mDepth == 0 || mOpen[mDepth - 1].length != length || std::memcmp(mOpen[mDepth - 1].text, name, length) != 0)
        return "Invalid end tag.";
    --mDepth;
    mSink.closeTag();
    return nullptr;
}
