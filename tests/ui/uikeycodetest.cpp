#include "ui/uikeycode.h"

#include <gtest/gtest.h>

#include <set>

TEST(UIKeyCodeTest, KnowsTheKeysByTheirUsage)
{
    const struct
    {
        unsigned int usage;
        unsigned int code;
    } cases[] = {
        {3, 0},     {4, 'A'},
        {29, 'Z'},  {30, '1'},
        {38, '9'},  {39, '0'},
        {40, 13},   {41, 27},
        {42, 8},    {43, 9},
        {44, ' '},  {45, '-'},
        {46, 0},    {48, 0},
        {49, '\\'}, {50, 0},
        {51, ';'},  {52, 0},
        {53, ':'},  {54, ','},
        {55, '.'},  {56, '/'},
        {57, 0},    {58, 128},
        {69, 139},  {70, 0},
        {73, 168},  {74, 166},
        {75, 164},  {76, 127},
        {77, 167},  {78, 165},
        {79, 162},  {80, 160},
        {81, 163},  {82, 161},
        {83, 0},    {84, '/'},
        {85, '*'},  {86, '-'},
        {87, '+'},  {88, 13},
        {89, '1'},  {97, '9'},
        {98, '0'},  {99, ','},
        {100, ']'}, {101, 0},
        {104, 140}, {106, 142},
        {107, 0},   {135, '\\'},
        {137, ']'}, {224, 0},
        {225, 0},   {231, 0},
        {255, 0},   {UIKeyCode::NoUsage, 0},
    };
    for (const auto& row : cases)
        EXPECT_EQ(UIKeyCode::fromUsage(row.usage), row.code) << row.usage;
    EXPECT_DEATH(UIKeyCode::fromUsage(256), "Invalid key code.");
}

TEST(UIKeyCodeTest, NamesTheKeysThatHaveOne)
{
    const struct
    {
        unsigned int code;
        const char* name;
    } cases[] = {
        {0, nullptr},        {8, "BackSpace"}, {9, "Tab"},          {13, "Return"},    {27, "ESC"},
        {31, nullptr},       {' ', " "},       {'A', "A"},          {'\\', "\\"},      {']', nullptr},
        {127, "Delete"},     {128, "F1"},      {136, "F9"},         {137, "F10"},      {142, "F15"},
        {143, nullptr},      {144, nullptr},   {160, "Left Arrow"}, {161, "Up Arrow"}, {162, "Right Arrow"},
        {163, "Down Arrow"}, {164, "Page Up"}, {165, "Page Down"},  {166, "Home"},     {167, "End"},
        {168, "Insert"},     {169, nullptr},
    };
    for (const auto& row : cases)
        EXPECT_STREQ(UIKeyCode::getName(row.code).c_str(), row.name) << row.code;
}

TEST(UIKeyCodeTest, ControlAndCommandAreOneModifier)
{
    std::set<unsigned int> down;
    const auto combination = [&down](std::initializer_list<unsigned int> usages)
    {
        down = usages;
        return UIKeyCode::getCombination([&down](unsigned int usage) { return down.contains(usage); });
    };
    EXPECT_EQ(combination({4, 40}), 0u);
    for (const unsigned int left : {0u, 4u})
    {
        EXPECT_EQ(combination({225 + left}), 1u);
        EXPECT_EQ(combination({226 + left}), 2u);
        EXPECT_EQ(combination({224 + left}), 4u);
        EXPECT_EQ(combination({227 + left}), 4u);
    }
    EXPECT_EQ(combination({224, 225, 230, 231}), 7u);
}
