#include "application/statefile.h"
#include "application/testapp.h"
#include "tests/fuzz/support/fuzzfile.h"

#include <cstdio>

// The program with all its systems, in a data directory of its own.
namespace
{
constexpr Application::sInitializer Initializer = {"Fuzz", 1024, 768, 60, 20, 240};

struct sProgram
{
    sProgram() { application.setup(); }

    HeadlessPlace place;
    TestApp application{&Initializer};
};
}

// Whatever the file holds, the program runs, and the state that it saves is one that it restores.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static sProgram program;
    TestApp& application = program.application;
    const std::string path = program.place.getRoot() + "/intermediate/fuzz.xml";
    writeBytes(path, Bytes(data, data + size));
    StateFile::restore(application, path.c_str());
    std::remove((path + ".bad").c_str());
    application.update(1.0f);
    fuzz::require(StateFile::save(application, path.c_str()));
    StateFile::restore(application, path.c_str());
    fuzz::require(readBytes(path + ".bad").empty());
    return 0;
}
