#pragma once

#include "io/xmlcursor.h"

#include <cstring>

// The grammar of documents, once for reading and for asking beforehand. What it finds goes to a sink:
//     bool openTag(const char* name)                           a tag begins; false when there is no memory
//     bool addAttribute(const char* name, const char* value)   of that tag; the same
//     void completeTag(bool isOpen)                            it is complete; an open one is the next tag's parent
//     void closeTag()                                          the end tag of the open one
// The text must end as XmlCursor asks for. A zero is written behind each word once the scan has passed it, so a name
// handed to openTag() or addAttribute() is a text of its own only from the next call on.
template <typename Sink>
class XmlScanner
{
public:
    XmlScanner(char* text, Sink& sink) : mCursor(text), mSink(sink) {}

    // Null when the text keeps to the grammar, else the fault.
    const char* scan();

    // Where the scan has come to.
    const char* getPlace() const { return mCursor.getPlace(); }

private:
    struct sName
    {
        const char* text;
        std::size_t length;
    };

    // The helpers follow the same rule: null, or the fault.
    const char* scanTag();
    const char* scanAttribute(char* name, char* nameEnd);
    const char* scanTagEnd(sName name);
    const char* scanEndTag();

    // Steps to the next of these two characters; false at the end.
    bool skipTo(char a, char b)
    {
        while (*mCursor != a && *mCursor != b && *mCursor != XmlGrammar::End)
            mCursor.step();
        return *mCursor != XmlGrammar::End;
    }

    XmlCursor mCursor;
    Sink& mSink;
    sName mOpen[XmlGrammar::MaximumDepth];
    unsigned int mDepth = 0;
};

template <typename Sink>
const char* XmlScanner<Sink>::scan()
{
    while (*mCursor.skipToTag() != XmlGrammar::End)
    {
        mCursor.step();
        const char* fault = nullptr;
        if (*mCursor == '?')
            skipTo('>', '>');
        else if (mCursor.take('/'))
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
    mCursor.skipSpace();
    char* const name = mCursor.getPlace();
    char* const nameEnd = mCursor.skipWord();
    if (name == nameEnd)
        return "Invalid tag.";
    if (!mSink.openTag(name))
        return "Not enough memory.";

    for (;;)
    {
        mCursor.skipSpace();
        char* const attribute = mCursor.getPlace();
        char* const attributeEnd = mCursor.skipWord();
        if (attribute == attributeEnd)
            break;
        if (const char* fault = scanAttribute(attribute, attributeEnd))
            return fault;
    }
    const char* fault = scanTagEnd({name, static_cast<std::size_t>(nameEnd - name)});
    *nameEnd = 0;
    return fault;
}

template <typename Sink>
const char* XmlScanner<Sink>::scanAttribute(char* name, char* nameEnd)
{
    mCursor.skipSpace();
    if (!mCursor.take('='))
        return "Invalid attribute format.";
    mCursor.skipSpace();
    if (!mCursor.take('"'))
        return "Invalid attribute format.";

    mCursor.skipSpace();
    char* const value = mCursor.getPlace();
    char* const valueEnd = mCursor.skipValue();
    if (value == valueEnd)
        return "Invalid attribute value.";
    // On purpose: one blank may stand before the closing quote.
    if (XmlGrammar::is(*mCursor, XmlGrammar::Blank))
        mCursor.step();
    if (!mCursor.take('"'))
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
    const bool isOpen = !mCursor.take('/');
    if (!mCursor.take('>') || mDepth == XmlGrammar::MaximumDepth)
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
    mCursor.skipSpace();
    const char* name = mCursor.getPlace();
    const std::size_t length = static_cast<std::size_t>(mCursor.skipWord() - name);
    if (length == 0)
        return "Invalid tag.";
    if (mDepth == 0 || mOpen[mDepth - 1].length != length || std::memcmp(mOpen[mDepth - 1].text, name, length) != 0)
        return "Invalid end tag.";
    --mDepth;
    mSink.closeTag();
    return nullptr;
}
