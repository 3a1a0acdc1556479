#include "foundation/map.h"
#include "foundation/queue.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace
{
int numbers[100];
}

TEST(QueueTest, GivesBackInOrderAroundTheRingAndLosesAllAtTheSixteenthPush)
{
    Queue<int> queue;
    for (int round = 0; round < 5; ++round)
    {
        for (int i = 0; i < 15; ++i)
            queue.push(&numbers[i]);
        EXPECT_EQ(queue.size(), 15u);
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(queue.pop(), &numbers[i]);
        int next = 8;
        for (const int* value : queue)
            EXPECT_EQ(value, &numbers[next++]);
        EXPECT_EQ(next, 15);
        queue.reserve(16 + round);
        for (int i = 8; i < 15; ++i)
            EXPECT_EQ(queue.pop(), &numbers[i]);
        EXPECT_TRUE(queue.empty());
    }
    Queue<int> full;
    for (int i = 0; i < 16; ++i)
        full.push(&numbers[i]);
    EXPECT_TRUE(full.empty());
}

TEST(MapTest, AgreesWithAnOrderedMapThroughRandomEdits)
{
    Map<int> map;
    std::map<unsigned int, int*> expected;
    std::mt19937 random(7);
    for (int step = 0; step < 4000; ++step)
    {
        // Small keys meet often, and phases of removing empty the map again and again.
        const unsigned int key = random() % 40 + 1;
        const bool adding = random() % 100 < (step / 200 % 2 ? 10 : 80);
        if (adding && !expected.count(key))
        {
            map.add(&numbers[key], key);
            expected[key] = &numbers[key];
        }
        else if (!adding)
        {
            map.remove(key);
            expected.erase(key);
        }

        ASSERT_EQ(map.size(), expected.size());
        auto place = map.begin();
        for (const auto& [expectedKey, value] : expected)
        {
            ASSERT_EQ(place.getKey(), expectedKey);
            ASSERT_EQ(*place, value);
            ASSERT_EQ(map.find(expectedKey), value);
            ++place;
        }
        ASSERT_TRUE(place == map.end());
        ASSERT_EQ(map.find(key), expected.count(key) ? expected[key] : nullptr);
    }
}
