#pragma once

#include "io/xmlcursor.h"

#include <cstring>

// The grammar of documents, once for reading and for asking beforehand. What it finds goes to a sink:
//     void openTag(const char* name, std::size_t length)       a tag begins
//     bool addAttribute(const char* name, const char* value)   of that tag; false when there is no memory
//     bool completeTag(bool isOpen)                            the same; an open one is the next tag's parent
//     void closeTag()                                          the end tag of the open one
// The text must end as XmlCursor asks for. A zero is written behind each word once the scan has passed it, so a name
// handed to openTag() or addAttribute() is a text of its own only from the next call on.
template <typename Sink>
class XmlScanner
{
public:
    XmlScanner(char* text, Sink& sink) : mpPlace(text), mSink(sink) {}

    // Null when the text keeps to the grammar, else the fault.
    const char* scan()
    {
        // A local cursor stays in registers whatever the sink writes.
        XmlCursor cursor(mpPlace);
        const char* fault = scanAll(cursor);
        mpPlace = cursor.getPlace();
        return fault;
    }

    // Where the scan has come to.
    const char* getPlace() const { return mpPlace; }

private:
    struct sName
    {
        const char* text;
        std::size_t length;
    };

    // The helpers follow the same rule: null, or the fault.
    [[gnu::always_inline]] const char* scanAll(XmlCursor& cursor);
    [[gnu::always_inline]] const char* scanTag(XmlCursor& cursor);
    [[gnu::always_inline]] const char* scanAttribute(XmlCursor& cursor, char* name, char* nameEnd);
    [[gnu::always_inline]] const char* scanTagEnd(XmlCursor& cursor, sName name);
    [[gnu::always_inline]] const char* scanEndTag(XmlCursor& cursor);

    // Steps to the next of these two characters; false at the end.
    [[gnu::always_inline]] static bool skipTo(XmlCursor& cursor, char a, char b)
    {
        while (*cursor != a && *cursor != b && *cursor != XmlGrammar::End)
            cursor.step();
        return *cursor != XmlGrammar::End;
    }

    char* mpPlace;
    Sink& mSink;
    sName mOpen[XmlGrammar::MaximumDepth];
    unsigned int mDepth = 0;
};

template <typename Sink>
inline const char* XmlScanner<Sink>::scanAll(XmlCursor& cursor)
{
    while (*cursor.skipToTag() != XmlGrammar::End)
    {
        cursor.step();
        const char* fault = nullptr;
        if (*cursor == '?')
            skipTo(cursor, '>', '>');
        else if (cursor.take('/'))
            fault = scanEndTag(cursor);
        else
            fault = scanTag(cursor);
        if (fault)
            return fault;
    }
    return mDepth ? "Unclosed tag exists." : nullptr;
}

template <typename Sink>
inline const char* XmlScanner<Sink>::scanTag(XmlCursor& cursor)
{
    cursor.skipSpace();
    char* const name = cursor.getPlace();
    char* const nameEnd = cursor.skipWord();
    if (name == nameEnd)
        return "Invalid tag.";
    mSink.openTag(name, static_cast<std::size_t>(nameEnd - name));

    for (;;)
    {
        cursor.skipSpace();
        char* const attribute = cursor.getPlace();
        char* const attributeEnd = cursor.skipWord();
        if (attribute == attributeEnd)
            break;
        if (const char* fault = scanAttribute(cursor, attribute, attributeEnd))
            return fault;
    }
    const char* fault = scanTagEnd(cursor, {name, static_cast<std::size_t>(nameEnd - name)});
    *nameEnd = 0;
    return fault;
}

template <typename Sink>
inline const char* XmlScanner<Sink>::scanAttribute(XmlCursor& cursor, char* name, char* nameEnd)
{
    cursor.skipSpace();
    if (!cursor.take('='))
        return "Invalid attribute format.";
    cursor.skipSpace();
    if (!cursor.take('"'))
        return "Invalid attribute format.";

    cursor.skipSpace();
    char* const value = cursor.getPlace();
    char* const valueEnd = cursor.skipValue();
    if (value == valueEnd)
        return "Invalid attribute value.";
    // On purpose: one blank may stand before the closing quote.
    if (XmlGrammar::is(*cursor, XmlGrammar::Blank))
        cursor.step();
    if (!cursor.take('"'))
        return "Invalid attribute format.";

    *nameEnd = 0;
    *valueEnd = 0;
    return mSink.addAttribute(name, value) ? nullptr : "Not enough memory.";
}

template <typename Sink>
inline const char* XmlScanner<Sink>::scanTagEnd(XmlCursor& cursor, sName name)
{
    if (!skipTo(cursor, '/', '>'))
        return "Invalid tag.";
    const bool isOpen = !cursor.take('/');
    if (!cursor.take('>') || mDepth == XmlGrammar::MaximumDepth)
        return "Invalid tag.";
    if (isOpen)
        mOpen[mDepth++] = name;
    return mSink.completeTag(isOpen) ? nullptr : "Not enough memory.";
}

// The end tag's own ">" is left to the search for the next tag.
template <typename Sink>
inline const char* XmlScanner<Sink>::scanEndTag(XmlCursor& cursor)
{
    cursor.skipSpace();
    const char* name = cursor.getPlace();
    const std::size_t length = static_cast<std::size_t>(cursor.skipWord() - name);
    if (length == 0)
        return "Invalid tag.";
    if (mDepth == 0 || mOpen[mDepth - 1].length != length || std::memcmp(mOpen[mDepth - 1].text, name, length) != 0)
        return "Invalid end tag.";
    --mDepth;
    mSink.closeTag();
    return nullptr;
}
