#pragma once

#include <bit>
#include <cstdint>

// A set of keys by their usage, 0 to 255.
class KeySet
{
public:
    static constexpr unsigned int KeyNum = 256;
    static constexpr unsigned int WordBits = 32;
    static constexpr unsigned int WordNum = KeyNum / WordBits;

    // `key` is not checked.
    void add(unsigned int key) { mWord[key / WordBits] |= 1u << key % WordBits; }
    bool contains(unsigned int key) const { return mWord[key / WordBits] >> key % WordBits & 1; }

    // The lowest key, or -1 for the empty set.
    int getFirst() const
    {
        for (unsigned int i = 0; i < WordNum; ++i)
            if (mWord[i])
                return static_cast<int>(i * WordBits) + std::countr_zero(mWord[i]);
        return -1;
    }

    // The keys that are missing in the other set.
    KeySet operator-(const KeySet& other) const
    {
        KeySet difference;
        for (unsigned int i = 0; i < WordNum; ++i)
            difference.mWord[i] = mWord[i] & ~other.mWord[i];
        return difference;
    }

    // Key k is bit k % 32 of word k / 32.
    std::uint32_t* getWords() { return mWord; }

private:
    std::uint32_t mWord[WordNum] = {};
};
