// monkey EVENTS SEED THREADS: lets the monkey of that seed at the gallery, with so many threads for jobs.

#include "tests/support/monkey.h"

#include <cstdio>
#include <cstdlib>

int main(int argumentNum, char** arguments)
{
    if (argumentNum != 4)
        return EXIT_FAILURE;
    const auto number = [arguments](int i)
    {
        return static_cast<unsigned int>(std::strtoul(arguments[i], nullptr, 10));
    };
    HeadlessInterface interface(number(3));
    Monkey monkey(interface, Monkey::GalleryStage, number(2));
    const bool sound = monkey.run(number(1));
    monkey.print();
    return sound ? EXIT_SUCCESS : EXIT_FAILURE;
}
