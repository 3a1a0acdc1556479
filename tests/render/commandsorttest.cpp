#include "render/commandsort.h"

#include "foundation/jobsystem.h"
#include "render/command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{
constexpr unsigned int Capacity = 16384;

// Keys by their place: random ones, those of 48 levels, of windows in runs and of two threads, sorted, reversed, equal.
using Pattern = unsigned int (*)(std::mt19937& random, unsigned int place);
constexpr Pattern Patterns[] = {
    [](std::mt19937& random, unsigned int) { return static_cast<unsigned int>(random()); },
    [](std::mt19937& random, unsigned int) { return static_cast<unsigned int>(random() % 48) << 16; },
    [](std::mt19937&, unsigned int place) { return (place / 300 * 7 % 5 << 16) + place % 300; },
    [](std::mt19937&, unsigned int place) { return (place / 170 % 48 * 2 + place / 170 / 48) << 8 | place % 170 / 8; },
    [](std::mt19937&, unsigned int place) { return place / 3; },
    [](std::mt19937&, unsigned int place) { return 0xFFFFFFFF - place; },
    [](std::mt19937&, unsigned int) { return 7u; },
};

class CommandSortTest : public testing::TestWithParam<unsigned int>
{
protected:
    void SetUp() override { JobSystem::create(0x10000, GetParam()); }
    void TearDown() override { JobSystem::getInstance()->destroy(); }

    // Compares with the standard library's stable sort, of which the result is unique.
    void expectStable(const std::vector<unsigned int>& keys)
    {
        std::vector<sCommand> commands;
        for (unsigned int key : keys)
            commands.push_back({eCommand::Draw, key});
        std::vector<sCommand*> wanted;
        for (sCommand& command : commands)
            wanted.push_back(&command);
        std::vector<sCommand*> source = wanted;
        std::vector<sCommand*> found(wanted.size());

        mSort.sort(found.data(), source.data(), static_cast<unsigned int>(source.size()), JobSystem::getInstance());
        std::stable_sort(wanted.begin(), wanted.end(), [](auto* a, auto* b) { return a->key < b->key; });
        EXPECT_EQ(found, wanted);
    }

    CommandSort mSort{Capacity};
};
}

TEST_P(CommandSortTest, GivesTheOrderOfAStableSort)
{
    std::mt19937 random(1);
    for (const Pattern& pattern : Patterns)
    {
        for (unsigned int count : {1u, 2u, 3u, 4u, 5u, 7u, 1023u, 1024u, 1025u, 2049u, 5000u, 8193u, 12289u, Capacity})
        {
            SCOPED_TRACE(testing::Message() << &pattern - Patterns << ", " << count);
            std::vector<unsigned int> keys(count);
            for (unsigned int i = 0; i < count; ++i)
                keys[i] = pattern(random, i);
            expectStable(keys);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Threads, CommandSortTest, testing::Values(1u, 2u, 4u));
