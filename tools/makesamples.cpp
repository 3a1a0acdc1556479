#include "tools/samples/samples.h"

#include <cstdio>
#include <string>

// Writes the samples anew: cellwright_makesamples DIRECTORY
int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s DIRECTORY\n", argv[0]);
        return 2;
    }
    return Samples::write((std::string(argv[1]) + "/").c_str()) ? 0 : 1;
}
