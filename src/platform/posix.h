#pragma once

#include <cstdint>

// The services that both back ends take from the system below the desktop.
namespace Posix
{
std::uint64_t getMonotonicCount();
void sleepFor(std::uint64_t nanoseconds);
unsigned int getProcessorNum();

// From this call on SIGINT and SIGTERM only set a flag, which starts cleared.
void catchEndSignals();
bool isEndRequested();
}
