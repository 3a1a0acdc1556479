#include "platform/posix.h"

#include <cerrno>
#include <csignal>
#include <ctime>

#include <unistd.h>

namespace
{
constexpr std::uint64_t SecondInNanoseconds = 1000000000;

volatile std::sig_atomic_t gEndRequested = 0;

void requestEnd(int)
{
    gEndRequested = 1;
}
}

std::uint64_t Posix::getMonotonicCount()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * SecondInNanoseconds + static_cast<std::uint64_t>(now.tv_nsec);
}

void Posix::sleepFor(std::uint64_t nanoseconds)
{
    timespec rest = {static_cast<time_t>(nanoseconds / SecondInNanoseconds),
                     static_cast<long>(nanoseconds % SecondInNanoseconds)};
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &rest, &rest) == EINTR && !gEndRequested)
    {
    }
}

unsigned int Posix::getProcessorNum()
{
    const long number = sysconf(_SC_NPROCESSORS_ONLN);
    return number > 0 ? static_cast<unsigned int>(number) : 1;
}

void Posix::catchEndSignals()
{
    gEndRequested = 0;
    struct sigaction action = {};
    action.sa_handler = requestEnd;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

bool Posix::isEndRequested()
{
    return gEndRequested != 0;
}
