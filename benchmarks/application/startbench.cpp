#include "benchmarks/application/drawing/firstframe.h"
#include "benchmarks/harness.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

// From the start of a process to its first frame in the window.
namespace
{
// The program's timer fires for the first time after a tenth of a second, which is slept away.
constexpr double FirstFiring = 0.1;

class Directory
{
public:
    Directory() : mPath(bench::getMemoryDirectory() / "startXXXXXX")
    {
        if (!mkdtemp(mPath.data()))
            abort();
    }

    ~Directory()
    {
        std::error_code error;
        std::filesystem::remove_all(mPath, error);
    }

    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;

    const std::string& getPath() const { return mPath; }

private:
    std::string mPath;
};

// Runs in the child.
[[noreturn]] void become(const std::string& command, int pipe)
{
    setenv("LD_PRELOAD", CELLWRIGHT_FIRST_FRAME, 1);
    dup2(pipe, FirstFrameDescriptor);
    execl("/bin/sh", "sh", "-c", ("exec " + command + " > /dev/null 2>&1").c_str(), nullptr);
    _exit(127);
}

// A program that ends without a frame counts as endlessly slow.
double start(const std::string& command)
{
    int ends[2];
    if (pipe(ends) != 0)
        abort();
    for (int& end : ends)
        fcntl(end, F_SETFD, FD_CLOEXEC);

    bool isShown = false;
    pid_t process = -1;
    const double seconds = bench::measure(
        [&]
        {
            process = fork();
            if (process == 0)
                become(command, ends[1]);
            close(ends[1]);
            char told;
            isShown = read(ends[0], &told, 1) == 1;
        });
    close(ends[0]);
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
    return isShown ? seconds : 1e9;
}

const bench::Goal firstFrame(19, "start of the program to its first frame", 2.0,
                             []
                             {
                                 const auto root = std::make_shared<Directory>();
                                 return bench::Candidates{{"cellwright, without the wait for its timer",
                                                           [root]
                                                           {
                                                               return start(std::string(CELLWRIGHT_PROGRAM) +
                                                                            " --root " + root->getPath()) -
                                                                      FirstFiring;
                                                           }},
                                                          {"SDL, a cleared window", []
                                                           {
                                                               return start(CELLWRIGHT_CLEARED_WINDOW);
                                                           }}};
                             });
}
