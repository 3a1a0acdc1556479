#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include <sys/wait.h>

namespace
{
struct sEnd
{
    std::string errors;
    int status;
};

sEnd runHeapProgram(const std::string& arguments)
{
    const TemporaryDirectory place;
    const std::string command = HEAP_PROGRAM " " + arguments + " 2>" + place / "errors" + "; exit $?";
    const int status = std::system(command.c_str());
    return {place.read("errors"), status};
}
}

TEST(HeapProgramTest, KeepsAllItsObjectsInTheGlobalHeapAndEndsWithoutALeak)
{
    const sEnd end = runHeapProgram("");
    EXPECT_TRUE(WIFEXITED(end.status) && WEXITSTATUS(end.status) == 0) << end.errors;
    EXPECT_EQ(end.errors.find("leak"), std::string::npos) << end.errors;
}

TEST(HeapProgramTest, ReportsALeakAtTheVeryEndAndAborts)
{
    const sEnd end = runHeapProgram("leak");
    EXPECT_EQ(WEXITSTATUS(end.status), 128 + SIGABRT);
    const std::size_t leak = end.errors.find("Global : leak detected(call no = ");
    ASSERT_NE(leak, std::string::npos) << end.errors;
    EXPECT_NE(end.errors.find(",size = 200).\n", leak), std::string::npos) << end.errors;
    EXPECT_NE(end.errors.find("Memory leak detected.\n", leak), std::string::npos) << end.errors;
    EXPECT_EQ(end.errors.find("Global : leak", leak + 1), std::string::npos) << "only one block leaks";
}
