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

struct sPattern
{
    const char* name;
    unsigned int (*key)(std::mt19937& random, unsigned int place);
};

constexpr sPattern PatternTable[] = {
    {"random",
     [](std::mt19937& random, unsigned int)
     {
         return static_cast<unsigned int>(random());
     }},
    {"48 levels",
     [](std::mt19937& random, unsigned int)
     {
         return static_cast<unsigned int>(random() % 48) << 16;
     }},
    {"runs of windows",
     [](std::mt19937&, unsigned int place)
     {
         return (place / 300 * 7 % 5 << 16) + place % 300;
     }},
    {"windows of two threads",
     [](std::mt19937&, unsigned int place)
     {
         return (place / 170 % 48 * 2 + place / 170 / 48) << 8 | place % 170 / 8;
     }},
    {"sorted",
     [](std::mt19937&, unsigned int place)
     {
         return place / 3;
     }},
    {"reversed",
     [](std::mt19937&, unsigned int place)
     {
         return 0xFFFFFFFF - place;
     }},
    {"equal",
     [](std::mt19937&, unsigned int)
     {
         return 7u;
     }},
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
    for (const sPattern& pattern : PatternTable)
    {
        for (unsigned int count : {1u, 2u, 3u, 4u, 5u, 7u, 1023u, 1024u, 1025u, 2049u, 5000u, 8193u, 12289u, Capacity})
        {
            SCOPED_TRACE(testing::Message() << pattern.name << ", " << count);
            std::vector<unsigned int> keys(count);
            for (unsigned int i = 0; i < count; ++i)
                keys[i] = pattern.key(random, i);
            expectStable(keys);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Threads, CommandSortTest, testing::Values(1u, 2u, 4u));
