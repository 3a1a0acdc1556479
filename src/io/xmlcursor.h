#pragma once

#include "io/xmlgrammar.h"

#include <cstdint>

#include <emmintrin.h>

// Walks through a text and steps over runs of characters of one kind. The kinds are found out for 64 characters at a
// time: words are short and their lengths vary, so a loop by character would spend most of its time on the branch
// that it guesses wrong at the end of each. The text must hold XmlGrammar::End and Padding more bytes behind it.
class XmlCursor
{
public:
    static constexpr unsigned int Padding = 64;

    explicit XmlCursor(char* text) : mpPlace(text), mpBlock(text) { classify(); }

    char* getPlace() const { return mpPlace; }
    char operator*() const { return *mpPlace; }
    void step() { ++mpPlace; }

    bool take(char c)
    {
        if (*mpPlace != c)
            return false;
        ++mpPlace;
        return true;
    }

    void skipSpace()
    {
        while (XmlGrammar::is(*mpPlace, XmlGrammar::Space))
            ++mpPlace;
    }

    // Returns where the run ends; each stops at the end of the text too.
    char* skipWord() { return skipTo(mWordEnds); }
    char* skipValue() { return skipTo(mValueEnds); }
    char* skipToTag() { return skipTo(mTagStarts); }

private:
    static __m128i fill(char c) { return _mm_set1_epi8(c); }
    static __m128i equals(__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, fill(c)); }
    static __m128i either(__m128i a, __m128i b) { return _mm_or_si128(a, b); }

    static __m128i between(__m128i bytes, char first, char last)
    {
        const __m128i offset = _mm_sub_epi8(bytes, fill(first));
        return _mm_cmpeq_epi8(_mm_min_epu8(offset, fill(static_cast<char>(last - first))), offset);
    }

    static uint64_t toBits(__m128i bytes) { return static_cast<unsigned int>(_mm_movemask_epi8(bytes)); }

    char* skipTo(const uint64_t& stops)
    {
        uint64_t ahead = 0;
        while (mpPlace >= mpBlock + 64 || !(ahead = stops >> (mpPlace - mpBlock)))
        {
            mpBlock += 64;
            mpPlace = mpPlace > mpBlock ? mpPlace : mpBlock;
            classify();
        }
        mpPlace += __builtin_ctzll(ahead);
        return mpPlace;
    }

    void classify();

    char* mpPlace;
    char* mpBlock;
    // One bit for each character of the block.
    uint64_t mWordEnds;
    uint64_t mValueEnds;
    uint64_t mTagStarts;
};

inline void XmlCursor::classify()
{
    uint64_t word = 0;
    uint64_t value = 0;
    uint64_t tag = 0;
    for (unsigned int i = 0; i < 64; i += 16)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(mpBlock + i));
        const __m128i letter = between(either(bytes, fill(0x20)), 'a', 'z');
        const __m128i isWord = either(either(letter, between(bytes, '0', '9')), equals(bytes, '_'));
        // "<" and ">" differ in one bit.
        const __m128i angle = equals(either(bytes, fill('<' ^ '>')), '>');
        const __m128i isValue = either(either(isWord, between(bytes, '-', '/')), either(angle, equals(bytes, '+')));
        const __m128i isTag = either(equals(bytes, '<'), equals(bytes, XmlGrammar::End));
        word |= toBits(isWord) << i;
        value |= toBits(isValue) << i;
        tag |= toBits(isTag) << i;
    }
    mWordEnds = ~word;
    mValueEnds = ~value;
    mTagStarts = tag;
}
