#include "tests/support/display.h"

#include <csignal>
#include <cstdlib>
#include <string>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef CELLWRIGHT_SANITIZED
// The report of leaks knows a block of the driver by the driver's name, which would be gone with the driver.
extern "C" int dlclose(void*)
{
    return 0;
}
#endif

namespace
{
// Runs in the child. The server ends with its parent, however that ends.
[[noreturn]] void runServer(int answer)
{
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const std::string number = std::to_string(answer);
    execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1280x1024x24", "-nolisten", "tcp", nullptr);
    _exit(127);
}

// The number of the display, once the server is ready; empty if it does not start.
std::string readAnswer(int answer)
{
    std::string number;
    for (char c = 0; read(answer, &c, 1) == 1 && c != '\n';)
        number += c;
    return number;
}
}

void Display::SetUp()
{
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 0);
    if (std::getenv("DISPLAY"))
        return;

    int answer[2];
    ASSERT_EQ(pipe(answer), 0);
    mServer = fork();
    ASSERT_GE(mServer, 0);
    if (mServer == 0)
        runServer(answer[1]);
    close(answer[1]);
    const std::string number = readAnswer(answer[0]);
    close(answer[0]);
    ASSERT_FALSE(number.empty()) << "There is no display, and Xvfb does not start.";
    setenv("DISPLAY", (":" + number).c_str(), 1);
}

void Display::TearDown()
{
    if (mServer == 0)
        return;
    kill(mServer, SIGTERM);
    waitpid(mServer, nullptr, 0);
}
