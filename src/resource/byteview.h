#pragma once

// Little-endian reading of bytes that somebody else owns. Whatever lies beyond the end reads as 0, and all sizes are
// computed in 64 bits, so that no value found in a file leads outside.
class ByteView
{
public:
    using Offset = unsigned long long;

    ByteView() = default;
    ByteView(const unsigned char* bytes, Offset size) : mpBytes(bytes), mSize(size) {}

    Offset size() const { return mSize; }
    bool contains(Offset offset, Offset count) const { return offset <= mSize && count <= mSize - offset; }

    // Only for ranges that contains() confirms.
    const unsigned char* at(Offset offset) const { return mpBytes + offset; }

    unsigned char getByte(Offset offset) const { return contains(offset, 1) ? mpBytes[offset] : 0; }
    unsigned int getWord(Offset offset) const { return getByte(offset) | getByte(offset + 1) << 8; }
    unsigned int getLong(Offset offset) const { return getWord(offset) | getWord(offset + 2) << 16; }

private:
    const unsigned char* mpBytes = nullptr;
    Offset mSize = 0;
};
