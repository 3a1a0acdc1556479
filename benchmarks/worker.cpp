#include "benchmarks/worker.h"

#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
std::string getPath(const std::string& program)
{
    char path[1024];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
    path[length < 0 ? 0 : length] = '\0';
    const std::string text = path;
    return text.substr(0, text.rfind('/')) + "/draw_" + program;
}

// Runs in the child.
[[noreturn]] void become(const std::string& command, bench::eDriver driver)
{
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    if (driver == bench::eDriver::Null)
        setenv("GALLIUM_NOOP", "1", 1);
    execl("/bin/sh", "sh", "-c", ("exec " + command + " 2> /dev/null").c_str(), nullptr);
    _exit(127);
}
}

bench::Worker::Worker(const std::string& program, const std::string& arguments, eDriver driver)
{
    int in[2];
    int out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0)
        return;
    mProcess = fork();
    if (mProcess == 0)
    {
        dup2(in[0], STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        become(getPath(program) + " " + arguments, driver);
    }
    close(in[0]);
    close(out[1]);
    mpIn = fdopen(in[1], "w");
    mpOut = fdopen(out[0], "r");
}

bench::Worker::~Worker()
{
    if (mpIn)
        std::fclose(mpIn);
    if (mpOut)
        std::fclose(mpOut);
    waitpid(mProcess, nullptr, 0);
}

bool bench::Worker::isThere(const std::string& program)
{
    return access(getPath(program).c_str(), X_OK) == 0;
}

double bench::Worker::round()
{
    char line[256];
    std::fputs("round\n", mpIn);
    std::fflush(mpIn);
    while (std::fgets(line, sizeof(line), mpOut))
    {
        if (line[0] == '=')
            return std::atof(line + 1);
    }
    return 1e9;
}

bench::Candidates bench::makeWorkers(const std::string& scene, eDriver driver, std::initializer_list<sWorkerRow> rows)
{
    signal(SIGPIPE, SIG_IGN);
    Candidates candidates;
    for (const sWorkerRow& row : rows)
    {
        if (!Worker::isThere(row.program))
            continue;
        const auto worker = std::make_shared<Worker>(row.program, scene + " " + row.arguments, driver);
        candidates.push_back({row.name, [worker]
                              {
                                  return worker->round();
                              }});
    }
    return candidates;
}
