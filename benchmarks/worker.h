#pragma once

#include "benchmarks/harness.h"

#include <cstdio>
#include <initializer_list>
#include <string>

#include <sys/types.h>

namespace bench
{
enum class eDriver
{
    // Does nothing, so that recording and handing over remain.
    Null,
    Software
};

// A candidate that draws does so in a process of its own: all of them in one would share a graphics library and its
// settings. The process is told by a pipe when to draw, and answers with the seconds of a frame.
class Worker
{
public:
    // `program` is the name of a program beside this one, `arguments` go to it.
    Worker(const std::string& program, const std::string& arguments, eDriver driver);
    ~Worker();

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    static bool isThere(const std::string& program);

    // A worker that does not answer counts as endlessly slow.
    double round();

private:
    pid_t mProcess = -1;
    std::FILE* mpIn = nullptr;
    std::FILE* mpOut = nullptr;
};

struct sWorkerRow
{
    const char* name;
    const char* program;
    const char* arguments;
};

// One candidate for each row, told the same scene ahead of its own arguments. One that could not be built is left out.
Candidates makeWorkers(const std::string& scene, eDriver driver, std::initializer_list<sWorkerRow> rows);
}
