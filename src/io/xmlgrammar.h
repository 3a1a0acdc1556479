#pragma once

#include <string_view>

// The characters and limits of the documents that XmlWriter writes and XmlReader reads.
namespace XmlGrammar
{
enum eCharacter : unsigned char
{
    Blank = 1, // consumed when it ends a word or a value
    Space = 2, // a blank, or the byte 0
    Word = 4,
    Value = 8,
};

struct sTable
{
    constexpr sTable()
    {
        add(" \t\n", Blank | Space);
        character[0] |= Space;
        add("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_", Word | Value);
        add("+-<>./", Value);
    }

    constexpr void add(const char* set, unsigned char kind)
    {
        for (; *set; ++set)
            character[static_cast<unsigned char>(*set)] |= kind;
    }

    unsigned char character[256] = {};
};

inline constexpr sTable Table;

// This byte ends a text, wherever it stands.
constexpr char End = static_cast<char>(0xFF);

// Tags inside each other; readers walk them by recursion.
constexpr unsigned int MaximumDepth = 256;

constexpr bool is(char c, unsigned char kind)
{
    return Table.character[static_cast<unsigned char>(c)] & kind;
}

// Whether a text is not empty and all of words or all of values.
constexpr bool isAll(std::string_view text, unsigned char kind)
{
    for (char c : text)
        if (!is(c, kind))
            return false;
    return !text.empty();
}
}
