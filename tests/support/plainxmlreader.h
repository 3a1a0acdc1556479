#pragma once

#include "tests/support/memorytextstream.h"

#include <cctype>
#include <string>
#include <vector>

// The grammar of documents once more, a character at a time, as a measure for the reader that has to be fast.
class PlainXmlReader
{
public:
    explicit PlainXmlReader(const std::string& text) : mStream(text) {}

    // Empty, or the fault.
    std::string readAll()
    {
        std::vector<std::string> open;
        while (next() != -1)
        {
            if (mLast != '<')
                continue;
            if (next() == '?')
            {
                while (next() != '>' && mLast != -1)
                    ;
                continue;
            }
            const bool isEnd = mLast == '/';
            if (!isEnd)
                back();
            const std::string name = getRun("");
            const std::string fault = name.empty() ? "Invalid tag." : isEnd ? "" : readTag();
            if (!fault.empty())
                return fault;
            if (isEnd && (open.empty() || open.back() != name))
                return "Invalid end tag.";
            if (isEnd)
                open.pop_back();
            else if (open.size() == 256)
                return "Invalid tag.";
            else if (!mEmpty)
                open.push_back(name);
        }
        return open.empty() ? "" : "Unclosed tag exists.";
    }

private:
    std::string readTag()
    {
        while (!getRun("").empty())
        {
            if (nextSolid() != '=' || nextSolid() != '"')
                return "Invalid attribute format.";
            if (getRun("+-<>./").empty())
                return "Invalid attribute value.";
            if (next() != '"')
                return "Invalid attribute format.";
        }
        while (next() != '/' && mLast != '>' && mLast != -1)
            ;
        mEmpty = mLast == '/';
        return (mEmpty ? next() : mLast) == '>' ? "" : "Invalid tag.";
    }

    std::string getRun(const std::string& more)
    {
        std::string run;
        for (nextSolid(); mLast > 0 && (isalnum(mLast) || ("_" + more).find(static_cast<char>(mLast)) < 9); next())
            run += static_cast<char>(mLast);
        if (mLast != ' ' && mLast != '\t' && mLast != '\n')
            back();
        return run;
    }

    int nextSolid()
    {
        while (next() == ' ' || mLast == '\t' || mLast == '\n' || mLast == 0)
            ;
        return mLast;
    }

    int next() { return mLast = mLast == -1 ? -1 : mStream.getChar(); }

    void back()
    {
        if (mLast != -1)
            mStream.backforward();
    }

    MemoryTextStream mStream;
    int mLast = 0;
    bool mEmpty = false;
};
