#include "render/extension.h"

#include <gtest/gtest.h>

#include <iterator>

TEST(Extension, IsAWholeWordOfTheList)
{
    const std::pair<const char*, bool> cases[] = {
        {nullptr, false},    {"", false},           {"GL_a", true},       {"GL_b  GL_a", true},
        {"GL_a GL_b", true}, {"GL_ab GL_b", false}, {"xGL_a GL_", false},
    };
    for (const auto& [list, found] : cases)
        EXPECT_EQ(checkExtention(list, "GL_a"), found) << (list ? list : "(null)");
    constexpr const char* names[] = {"GL_EXT_x", "GL_ARB_x"};
    EXPECT_TRUE(checkExtention("GL_ARB_x", names, std::size(names)));
}
