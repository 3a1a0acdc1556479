// monkey STAGE EVENTS SEED THREADS: lets the monkey of that seed at the "gallery" or the "program", with so many
// threads for jobs.

#include "tests/support/monkey.h"
#include "tests/support/monkeystage.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int argumentNum, char** arguments)
{
    if (argumentNum != 5)
        return EXIT_FAILURE;
    const auto number = [arguments](int i)
    {
        return static_cast<unsigned int>(std::strtoul(arguments[i], nullptr, 10));
    };
    HeadlessInterface interface(number(4));
    const bool isGallery = sMonkeyStage::Gallery.name == std::string_view(arguments[1]);
    Monkey monkey(interface, isGallery ? sMonkeyStage::Gallery : sMonkeyStage::Program, number(3));
    const bool sound = monkey.run(number(2));
    monkey.print();
    return sound ? EXIT_SUCCESS : EXIT_FAILURE;
}
