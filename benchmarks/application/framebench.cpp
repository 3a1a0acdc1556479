#include "benchmarks/harness.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include <stdlib.h>

// The blocks that the frames of a second ask the general heaps for, beside one block: the program with its real heaps
// counts them after its first second.
namespace
{
// Far beyond any goal where there is no count.
constexpr double Unknown = 1e9;

double countBlocks(const std::string& scene)
{
    std::string root = std::filesystem::temp_directory_path() / "framesXXXXXX";
    if (!mkdtemp(root.data()))
        return Unknown;
    std::error_code error;
    std::filesystem::copy(CELLWRIGHT_SAMPLES, std::filesystem::path(root) / "intermediate",
                          std::filesystem::copy_options::recursive, error);

    unsigned int count = 0;
    bool counted = false;
    const std::string command = std::string(CELLWRIGHT_FRAMES) + " " + root + " " + scene + " 2> /dev/null";
    if (std::FILE* output = popen(command.c_str(), "r"))
    {
        counted = std::fscanf(output, "%*u to begin with, %u", &count) == 1;
        counted &= pclose(output) == 0;
    }
    std::filesystem::remove_all(root, error);
    return counted ? count : Unknown;
}

bench::Candidates makeCounts(const char* scene)
{
    const double count = countBlocks(scene);
    return {{"blocks",
             [count]
             {
                 return count;
             }},
            {"one block", []
             {
                 return 1.0;
             }}};
}

const bench::Goal interface(13, "blocks of the heaps in a second of the gallery, in which nothing changes", 0.0,
                            [] { return makeCounts("gallery"); });
const bench::Goal animation(13, "blocks of the heaps in a second of an animation that plays others", 0.0,
                            [] { return makeCounts("play parade"); });
}
