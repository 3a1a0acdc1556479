#pragma once

#include "foundation/autostring.h"

// The keys as the interface names them: letters, digits and signs by their ASCII codes, letters as capitals, control
// keys by their ASCII control codes, and all others by values of our own from 128 up.
class UIKeyCode
{
public:
    enum eCode : unsigned int
    {
        None = 0,
        BackSpace = 8,
        Tab = 9,
        Return = 13,
        Escape = 27,
        Delete = 127,
        F1 = 128,
        F4 = 131,
        F15 = 142,
        Shift = 144,
        Alt = 145,
        Command = 146,
        LeftArrow = 160,
        UpArrow = 161,
        RightArrow = 162,
        DownArrow = 163,
        PageUp = 164,
        PageDown = 165,
        Home = 166,
        End = 167,
        Insert = 168,
    };

    // The modifiers that are down together with a key. Control and Command are the same.
    enum eCombination : unsigned int
    {
        WithShift = 1,
        WithAlt = 2,
        WithCommand = 4,
    };

    // The usage of no key, as the keyboard reports it.
    static constexpr unsigned int NoUsage = 0xFFFFFFFF;

    // The code of a keyboard usage, None for modifiers and for keys that the interface does not know. Asserts a usage
    // above 255 that is not NoUsage.
    static unsigned int fromUsage(unsigned int usage);

    // The combination of those modifiers of which `isDown(usage)` is true.
    template <typename IsDown>
    static unsigned int getCombination(IsDown&& isDown);

    // What a user calls the key; empty for those without a name.
    static AutoString getName(unsigned int code);

private:
    struct sModifier
    {
        unsigned int usage;
        unsigned int combination;
    };

    static constexpr sModifier Modifiers[] = {
        {224, WithCommand}, {225, WithShift}, {226, WithAlt}, {227, WithCommand},
        {228, WithCommand}, {229, WithShift}, {230, WithAlt}, {231, WithCommand},
    };
};

template <typename IsDown>
unsigned int UIKeyCode::getCombination(IsDown&& isDown)
{
    unsigned int combination = 0;
    for (const sModifier& modifier : Modifiers)
        if (isDown(modifier.usage))
            combination |= modifier.combination;
    return combination;
}
