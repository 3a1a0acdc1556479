#include "foundation/dev.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace
{
constexpr unsigned int TraceSize = 1024;
constexpr unsigned int AssertionSize = 512;

[[noreturn]] void stop(const char* title, const char* message, const char* lineEnd)
{
    if (dev::alert)
        dev::alert(title, message);
    DEV_TRACE("%s%s", message, lineEnd);
    std::abort();
}
}

dev::AlertFunction dev::alert = nullptr;

int DEV_TRACE(const char* format, ...)
{
    char message[TraceSize];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(message, sizeof(message), format, arguments);
    va_end(arguments);
    return std::fprintf(stderr, "%s", message);
}

void dev_assert(const char* message, const char* file, unsigned int line)
{
    char text[AssertionSize];
    std::snprintf(text, sizeof(text), "%s(%d) : %s", file, static_cast<int>(line), message);
    stop("Assertion", text, "\n");
}

void DEV_ERROR(const char* message)
{
    stop("Error", message, "");
}
