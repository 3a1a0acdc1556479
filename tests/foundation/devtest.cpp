#include "foundation/dev.h"

#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace
{
void showOnStandardError(const char* title, const char* message)
{
    std::fprintf(stderr, "[%s] %s\n", title, message);
}
}

TEST(DevTest, TracesWhatItIsGivenAndNothingTwice)
{
    const std::string percent = "100%n%s.tga";
    const std::string full(1023, 'x');
    for (const auto& [text, traced] :
         {std::pair(percent, percent), std::pair(full, full), std::pair(full + "yz", full)})
    {
        TraceCapture trace;
        EXPECT_EQ(DEV_TRACE("%s", text.c_str()), static_cast<int>(traced.size()));
        EXPECT_EQ(trace.take(), traced);
    }
}

TEST(DevTest, ShowsAndTracesWhyItStops)
{
    dev::alert = showOnStandardError;
    EXPECT_DEATH(dev_assert("100%n", "some/file.cpp", 7),
                 "^\\[Assertion\\] some/file.cpp\\(7\\) : 100%n\nsome/file.cpp\\(7\\) : 100%n\n$");
    EXPECT_DEATH(dev_assert(std::string(600, 'x').c_str(), "f", 1), "\nf\\(1\\) : x{504}\n$")
        << "cut at 511 characters";
    EXPECT_DEATH(DEV_ERROR("100%n"), "^\\[Error\\] 100%n\n100%n$");
    dev::alert = nullptr;
    EXPECT_DEATH(DEV_ERROR("quiet"), "^quiet$");
}
