#include "foundation/map.h"
#include "foundation/queue.h"
#include "foundation/stack.h"
#include "foundation/vector.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace
{
int numbers[100];
}

TEST(VectorTest, GrowsBySixteenKeepsAndFinds)
{
    Vector<int> vector;
    unsigned int arrayNum = 0;
    for (int& number : numbers)
    {
        int** former = vector.empty() ? nullptr : &vector[0];
        vector.addLast(&number);
        arrayNum += &vector[0] != former;
    }
    EXPECT_EQ(arrayNum, 7u);
    EXPECT_EQ(vector.size(), 100u);
    EXPECT_TRUE(vector[99] == &numbers[99] && *vector.find(&numbers[17]) == &numbers[17]);
    int** array = &vector[0];
    vector.clear();
    EXPECT_TRUE(vector.find(&numbers[17]) == vector.end());
    vector.addLast(&numbers[1]);
    EXPECT_EQ(&vector[0], array) << "clearing keeps the memory";
}

TEST(StackTest, DoublesWhenItIsFull)
{
    Stack<int> stack;
    for (int i = 0; i < 17; ++i)
        stack.push(&numbers[i]);
    EXPECT_EQ(stack.getCapacity(), 32u);
    for (int i = 16; i >= 0; --i)
        EXPECT_EQ(stack.pop(), &numbers[i]);

    stack.push(&numbers[3]);
    stack.reserve(0);
    EXPECT_EQ(stack.getCapacity(), 1u) << "no room at all counts as room for one";
    stack.push(&numbers[4]);
    EXPECT_EQ(stack.pop(), &numbers[4]);
    EXPECT_EQ(stack.pop(), &numbers[3]);
}

TEST(QueueTest, GivesBackInOrderAroundTheRing)
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
}

TEST(QueueTest, LosesAllAtTheSixteenthPush)
{
    Queue<int> queue;
    for (int i = 0; i < 16; ++i)
        queue.push(&numbers[i]);
    EXPECT_EQ(queue.size(), 0u);
    EXPECT_TRUE(queue.empty());
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

TEST(MapTest, NamesThePlaceWhereAKeyWouldStand)
{
    Map<int> map;
    EXPECT_EQ(map.findNearest(5), 0u);
    for (unsigned int key = 10; key <= 70; key += 10)
        map.add(&numbers[key], key);
    for (unsigned int key = 10; key <= 70; ++key)
        EXPECT_EQ(map.findNearest(key), (key - 1) / 10) << key;
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(map.add(&numbers[0], 0), "ID number 0 is reserved.");
    EXPECT_DEATH(map.add(&numbers[2], 20), "ID number conflict.");
}
