#pragma once

#include "io/stream.h"

#include <algorithm>
#include <cstring>
#include <string>

// A text in memory in the place of a file.
class MemoryTextStream : public TextStream
{
public:
    explicit MemoryTextStream(std::string text = {}) : mText(std::move(text)) {}

    const std::string& getText() const { return mText; }

    unsigned int read(char* buffer, unsigned int size) override
    {
        const unsigned int length = peek(buffer, size);
        mPlace += length;
        return length;
    }

    unsigned int peek(char* buffer, unsigned int size) override
    {
        const unsigned int length = std::min(size, getRest());
        std::memcpy(buffer, mText.data() + mPlace, length);
        return length;
    }

    unsigned int write(const char* text, unsigned int size) override
    {
        const std::size_t length = size ? size : std::strlen(text);
        mText.append(text, length);
        return static_cast<unsigned int>(length);
    }

    int getChar() override { return mPlace < mText.size() ? static_cast<signed char>(mText[mPlace++]) : -1; }
    void putChar(char c) override { mText += c; }
    void putCR() override { putChar('\n'); }
    void putTab(unsigned int count) override { mText.append(count, '\t'); }
    void backforward() override { mPlace -= mPlace > 0; }
    unsigned int getRest() override { return static_cast<unsigned int>(mText.size() - mPlace); }

private:
    std::string mText;
    std::size_t mPlace = 0;
};
