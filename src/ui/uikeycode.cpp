#include "ui/uikeycode.h"

#include "foundation/dev.h"

#include <array>

namespace
{
constexpr unsigned int UsageNum = 256;
constexpr unsigned int FirstModifier = 224;
constexpr unsigned int LastModifier = 231;

// Codes that have a character of their own. On purpose: "]", the next one, has no name.
constexpr unsigned int FirstCharacter = ' ';
constexpr unsigned int LastCharacter = '\\';

// Keys that lie side by side on both sides.
struct sKeyRun
{
    unsigned int usage;
    unsigned int code;
    unsigned int count = 1;
};

constexpr sKeyRun KeyRuns[] = {
    {4, 'A', 26},
    {30, '1', 9},
    {39, '0'},
    {40, UIKeyCode::Return},
    {41, UIKeyCode::Escape},
    {42, UIKeyCode::BackSpace},
    {43, UIKeyCode::Tab},
    {44, ' '},
    {45, '-'},
    {49, '\\'},
    {51, ';'},
    {53, ':'},
    {54, ','},
    {55, '.'},
    {56, '/'},
    {58, UIKeyCode::F1, 12},
    {73, UIKeyCode::Insert},
    {74, UIKeyCode::Home},
    {75, UIKeyCode::PageUp},
    {76, UIKeyCode::Delete},
    {77, UIKeyCode::End},
    {78, UIKeyCode::PageDown},
    {79, UIKeyCode::RightArrow},
    {80, UIKeyCode::LeftArrow},
    {81, UIKeyCode::DownArrow},
    {82, UIKeyCode::UpArrow},
    {84, '/'},
    {85, '*'},
    {86, '-'},
    {87, '+'},
    {88, UIKeyCode::Return},
    {89, '1', 9},
    {98, '0'},
    // On purpose: the point of the keypad is a comma.
    {99, ','},
    {100, ']'},
    {104, UIKeyCode::F1 + 12, 3},
    {135, '\\'},
    {137, ']'},
    {225, UIKeyCode::Shift},
    {226, UIKeyCode::Alt},
    {227, UIKeyCode::Command},
    {229, UIKeyCode::Shift},
    {230, UIKeyCode::Alt},
    {231, UIKeyCode::Command},
};

using KeyCodeTable = std::array<unsigned char, UsageNum>;

constexpr KeyCodeTable makeKeyCodeTable()
{
    KeyCodeTable table{};
    for (const sKeyRun& run : KeyRuns)
        for (unsigned int i = 0; i < run.count; ++i)
            table[run.usage + i] = static_cast<unsigned char>(run.code + i);
    return table;
}

constexpr KeyCodeTable Table = makeKeyCodeTable();

struct sKeyName
{
    unsigned int code;
    const char* name;
};

constexpr sKeyName KeyNames[] = {
    {UIKeyCode::BackSpace, "BackSpace"},
    {UIKeyCode::Tab, "Tab"},
    {UIKeyCode::Return, "Return"},
    {UIKeyCode::Escape, "ESC"},
    {UIKeyCode::Delete, "Delete"},
    {UIKeyCode::LeftArrow, "Left Arrow"},
    {UIKeyCode::UpArrow, "Up Arrow"},
    {UIKeyCode::RightArrow, "Right Arrow"},
    {UIKeyCode::DownArrow, "Down Arrow"},
    {UIKeyCode::PageUp, "Page Up"},
    {UIKeyCode::PageDown, "Page Down"},
    {UIKeyCode::Home, "Home"},
    {UIKeyCode::End, "End"},
    {UIKeyCode::Insert, "Insert"},
};

bool isBetween(unsigned int value, unsigned int first, unsigned int last)
{
    return first <= value && value <= last;
}
}

unsigned int UIKeyCode::fromUsage(unsigned int usage)
{
    if (usage == NoUsage || isBetween(usage, FirstModifier, LastModifier))
        return None;
    if (usage >= UsageNum)
        dev_assert("Invalid key code.", __FILE__, __LINE__);
    return Table[usage];
}

AutoString UIKeyCode::getName(unsigned int code)
{
    AutoString name;
    if (isBetween(code, FirstCharacter, LastCharacter))
        name = static_cast<char>(code);
    if (isBetween(code, F1, F15))
        name.format("F%u", code - F1 + 1);
    for (const sKeyName& row : KeyNames)
        if (row.code == code)
            name = row.name;
    return name;
}
