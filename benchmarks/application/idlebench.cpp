#include "benchmarks/harness.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

// The whole program with a driver that does nothing, left alone at its own pace.
namespace
{
constexpr auto StartTime = std::chrono::milliseconds(2000);
constexpr auto RoundTime = std::chrono::milliseconds(200);

class IdleProgram
{
public:
    IdleProgram() : mRoot(std::filesystem::temp_directory_path() / "idleXXXXXX")
    {
        if (!mkdtemp(mRoot.data()))
            return;
        mProcess = fork();
        if (mProcess == 0)
        {
            setenv("GALLIUM_NOOP", "1", 1);
            const std::string command =
                std::string("exec ") + CELLWRIGHT_PROGRAM + " --gallery --root " + mRoot + " > /dev/null 2>&1";
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        std::this_thread::sleep_for(StartTime);
    }

    ~IdleProgram()
    {
        if (mProcess > 0)
        {
            kill(mProcess, SIGTERM);
            waitpid(mProcess, nullptr, 0);
        }
        std::error_code error;
        std::filesystem::remove_all(mRoot, error);
    }

    IdleProgram(const IdleProgram&) = delete;
    IdleProgram& operator=(const IdleProgram&) = delete;

    // The seconds of a processor that the program takes while some time passes.
    double round()
    {
        const double before = getProcessorTime();
        mPassed = bench::measure([] { std::this_thread::sleep_for(RoundTime); });
        return getProcessorTime() - before;
    }

    double getPassed() const { return mPassed; }

private:
    // Far beyond any time where there is no such program, and growing.
    double getProcessorTime()
    {
        clockid_t clock;
        timespec time;
        if (mProcess > 0 && waitpid(mProcess, nullptr, WNOHANG) != 0)
            mProcess = -1;
        if (mProcess <= 0 || clock_getcpuclockid(mProcess, &clock) != 0 || clock_gettime(clock, &time) != 0)
            return mMissing += 1e9;
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    }

    std::string mRoot;
    pid_t mProcess = -1;
    double mPassed = 1.0;
    double mMissing = 0.0;
};

const bench::Goal idle(14, "the idle gallery at its own pace, of a processor", 0.20,
                       []
                       {
                           const auto program = std::make_shared<IdleProgram>();
                           return bench::Candidates{{"processor",
                                                     [program]
                                                     {
                                                         return program->round();
                                                     }},
                                                    {"the clock", [program]
                                                     {
                                                         return program->getPassed();
                                                     }}};
                       });
}
