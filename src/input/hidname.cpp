#include "input/hidname.h"

#include <span>

namespace
{
// Names of usages that follow one another.
struct sUsageRun
{
    int first;
    std::span<const char* const> names;
};

struct sUsagePage
{
    int first;
    int last;
    const char* name;
    const char* countedName; // Of pages that count their usages.
    std::span<const sUsageRun> runs;
};

// Rows of names, not columns.
// clang-format off
constexpr const char* PointerNames[] = {"Pointer", "Mouse"};
constexpr const char* ControllerNames[] = {"Joystick", "Game Pad", "Keyboard", "Keypad", "Multi-axis Controller"};
constexpr const char* AxisNames[] = {
    "X", "Y", "Z", "Rx", "Ry", "Rz", "Slider", "Dial", "Wheel", "Hat Switch", "Counted Buffer", "Byte Count",
    "Motion Wakeup", "Start", "Select",
};
constexpr const char* VectorNames[] = {"Vx", "Vy", "Vz", "Vbrx", "Vbry", "Vbrz", "Vno"};
constexpr const char* ControlNames[] = {
    "System Control", "System Power Down", "System Sleep", "System Wake Up", "System Context Menu",
    "System Main Menu", "System App Menu", "System Menu Help", "System Menu Exit", "System Menu Select",
    "System Menu Right", "System Menu Left", "System Menu Up", "System Menu Down",
};
constexpr const char* PadNames[] = {"D-pad Up", "D-pad Down", "D-pad Right", "D-pad Left"};
constexpr sUsageRun DesktopRuns[] = {
    {0x01, PointerNames}, {0x04, ControllerNames}, {0x30, AxisNames},
    {0x40, VectorNames}, {0x80, ControlNames}, {0x90, PadNames},
};

constexpr const char* KeyNames[] = {
    "ErrorRollOver", "POSTFail", "ErrorUndefined", "A", "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L", "M",
    "N", "O", "P", "Q", "R", "S", "T", "U", "V", "W", "X", "Y", "Z", "1", "2", "3", "4", "5", "6", "7", "8", "9", "0",
    "Return", "Escape", "Delete (Backspace)", "Tab", "Spacebar", "-", "=", "[", "]", "\\", "Non-US #", ";", "'", "`",
    ",", ".", "/", "Caps Lock", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9", "F10", "F11", "F12",
    "Print Screen", "Scroll Lock", "Pause", "Insert", "Home", "Page Up", "Delete Forward", "End", "Page Down",
    "Right Arrow", "Left Arrow", "Down Arrow", "Up Arrow", "Keypad Num Lock", "Keypad /", "Keypad *", "Keypad -",
    "Keypad +", "Keypad Enter", "Keypad 1", "Keypad 2", "Keypad 3", "Keypad 4", "Keypad 5", "Keypad 6", "Keypad 7",
    "Keypad 8", "Keypad 9", "Keypad 0", "Keypad .", "Non-US \\", "Application", "Power", "Keypad =", "F13", "F14",
    "F15", "F16", "F17", "F18", "F19", "F20", "F21", "F22", "F23", "F24", "Execute", "Help", "Menu", "Select", "Stop",
    "Again", "Undo", "Cut", "Copy", "Paste", "Find", "Mute", "Volume Up", "Volume Down",
};
constexpr const char* ModifierNames[] = {
    "Left Control", "Left Shift", "Left Alt", "Left GUI", "Right Control", "Right Shift", "Right Alt", "Right GUI",
};
constexpr sUsageRun KeyRuns[] = {{0x01, KeyNames}, {0xE0, ModifierNames}};

constexpr const char* LEDNames[] = {"Num Lock", "Caps Lock", "Scroll Lock", "Compose", "Kana"};
constexpr sUsageRun LEDRuns[] = {{0x01, LEDNames}};
// clang-format on

constexpr sUsagePage Pages[] = {
    {0x01, 0x01, "Generic Desktop", nullptr, DesktopRuns},
    {0x02, 0x02, "Simulation", nullptr, {}},
    {0x03, 0x03, "VR", nullptr, {}},
    {0x04, 0x04, "Sport", nullptr, {}},
    {0x05, 0x05, "Game", nullptr, {}},
    {0x07, 0x07, "Keyboard", nullptr, KeyRuns},
    {0x08, 0x08, "LED", nullptr, LEDRuns},
    {0x09, 0x09, "Button", "Button #", {}},
    {0x0A, 0x0A, "Ordinal", "Ordinal #", {}},
    {0x0B, 0x0B, "Telephony", nullptr, {}},
    {0x0C, 0x0C, "Consumer", nullptr, {}},
    {0x0D, 0x0D, "Digitizer", nullptr, {}},
    {0xFF00, 0xFFFF, "Vendor Defined", nullptr, {}},
};

const sUsagePage* findPage(int usagePage)
{
    for (const sUsagePage& page : Pages)
        if (page.first <= usagePage && usagePage <= page.last)
            return &page;
    return nullptr;
}

const char* findName(const sUsagePage& page, int usage)
{
    if (usage == 0)
        return page.name;
    for (const sUsageRun& run : page.runs)
        if (usage >= run.first && usage - run.first < static_cast<int>(run.names.size()))
            return run.names[static_cast<std::size_t>(usage - run.first)];
    return nullptr;
}
}

const char* HIDGetTypeName(eHIDElement type)
{
    switch (type)
    {
    case eHIDElement::InputMisc: return "Miscellaneous Input";
    case eHIDElement::InputButton: return "Button Input";
    case eHIDElement::InputAxis: return "Axis Input";
    case eHIDElement::InputScanCodes: return "Scan Code Input";
    case eHIDElement::Output: return "Output";
    case eHIDElement::Feature: return "Feature";
    case eHIDElement::Collection: return "Collection";
    }
    return "Unknown Type";
}

AutoString HIDGetUsageName(int usagePage, int usage)
{
    AutoString name;
    const sUsagePage* page = findPage(usagePage);
    const unsigned int number = static_cast<unsigned int>(usage);
    if (!page)
        name.format("Page: 0x%x, Usage: 0x%x", static_cast<unsigned int>(usagePage), number);
    else if (const char* known = findName(*page, usage))
        name = known;
    else if (page->countedName)
        name.format("%s%d", page->countedName, usage);
    else
        name.format("%s Usage 0x%x", page->name, number);
    return name;
}
