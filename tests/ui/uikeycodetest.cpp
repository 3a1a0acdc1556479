#include "ui/uikeycode.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

TEST(UIKeyCodeTest, KnowsTheKeysByTheirUsage)
{
    const std::pair<unsigned int, std::string> runs[] = {
        {0, std::string(4, 0) + "ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890\r\x1B\b\t -" + std::string(3, 0)},
        {49, {"\\\0;\0:,./\0", 9}},
        {58, "\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B"},
        {73, {"\xA8\xA6\xA4\x7F\xA7\xA5\xA2\xA0\xA3\xA1\0/*-+\r1234567890,]\0", 29}},
        {104, {"\x8C\x8D\x8E\0", 4}},
        {134, {"\0\\\0]\0", 5}},
        {224, std::string(8, 0)},
    };
    for (const auto& [first, codes] : runs)
        for (unsigned int i = 0; i < codes.size(); ++i)
            EXPECT_EQ(UIKeyCode::fromUsage(first + i), static_cast<unsigned char>(codes[i])) << first + i;
    EXPECT_EQ(UIKeyCode::fromUsage(UIKeyCode::NoUsage), 0u);
    EXPECT_DEATH(UIKeyCode::fromUsage(256), "Invalid key code.");
}

TEST(UIKeyCodeTest, NamesTheKeysThatHaveOne)
{
    const std::pair<unsigned int, const char*> names[] = {
        {8, "BackSpace"},  {13, "Return"}, {31, nullptr},   {' ', " "},     {'\\', "\\"},   {']', nullptr},
        {127, "Delete"},   {128, "F1"},    {142, "F15"},    {143, nullptr}, {159, nullptr}, {160, "Left Arrow"},
        {161, "Up Arrow"}, {167, "End"},   {168, "Insert"}, {169, nullptr},
    };
    for (const auto& [code, name] : names)
        EXPECT_STREQ(UIKeyCode::getName(code).c_str(), name) << code;
}
