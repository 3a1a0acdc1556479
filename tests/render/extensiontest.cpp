#include "render/extension.h"

#include <gtest/gtest.h>

#include <iterator>

TEST(Extension, IsAWholeWordOfTheList)
{
    struct sCase
    {
        const char* list;
        bool found;
    };
    constexpr sCase cases[] = {
        {nullptr, false},    {"", false},           {"GL_a", true},       {"GL_b  GL_a", true},
        {"GL_a GL_b", true}, {"GL_ab GL_b", false}, {"xGL_a GL_", false},
    };
    for (const sCase& row : cases)
    {
        testing::internal::CaptureStderr();
        EXPECT_EQ(checkExtention(row.list, "GL_a"), row.found) << row.list;
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  row.found ? "RenderSystem : OpenGL support GL_a.\n" : "RenderSystem : OpenGL unsupport GL_a.\n");
    }
    constexpr const char* names[] = {"GL_EXT_x", "GL_ARB_x"};
    EXPECT_TRUE(checkExtention("GL_ARB_x", names, std::size(names)));
}
