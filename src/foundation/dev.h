#pragma once

// The whole error reporting: a log, a stop for broken contracts, a stop for a hostile environment.

// Writes one formatted message to the standard error stream. The message brings its own line end and is cut at
// 1023 bytes. Any thread may call it. Returns what the stream's write returns.
int DEV_TRACE(const char* format, ...) __attribute__((format(printf, 1, 2)));

// A contract of our own code is broken: shows and traces "file(line) : message" and aborts.
[[noreturn]] void dev_assert(const char* message, const char* file, unsigned int line);

// The environment lacks what the program cannot do without: shows and traces the message and aborts.
[[noreturn]] void DEV_ERROR(const char* message);

namespace dev
{
// Shows a modal message and returns when it is dismissed. The platform sets it at start; a test may record instead.
// Null shows nothing; the text is traced in every case.
using AlertFunction = void (*)(const char* title, const char* message);
extern AlertFunction alert;
}
