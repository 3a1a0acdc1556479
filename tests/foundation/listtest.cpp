#include "foundation/list.h"

#include <gtest/gtest.h>

#include <vector>

class ListTest : public testing::Test
{
protected:
    using Values = std::vector<int>;

    // The values in the direction of the walk, after a walk the other way has found the same ones.
    Values values()
    {
        Values forward;
        for (const int* value : mList)
            forward.push_back(*value);
        Values backward;
        for (auto place = mList.rbegin(); place != mList.rend(); ++place)
            backward.insert(backward.begin(), **place);
        EXPECT_EQ(forward, backward);
        EXPECT_EQ(forward.size(), mList.size());
        return forward;
    }

    void fill(int count)
    {
        for (int i = 0; i < count; ++i)
            mList.addLast(&mNumbers[i]);
    }

    ListTest()
    {
        for (int i = 0; i < Count; ++i)
            mNumbers[i] = i;
    }

    static constexpr int Count = 100;

    int mNumbers[Count];
    List<int> mList;
};

TEST_F(ListTest, KeepsItsOrderThroughEveryEdit)
{
    fill(3);
    mList.addFirst(&mNumbers[9]);
    EXPECT_EQ(values(), (Values{9, 0, 1, 2}));

    mList.insertFront(mList.find(&mNumbers[1]), &mNumbers[10]);
    mList.insertBackFront(mList.find(&mNumbers[1]), &mNumbers[11]);
    EXPECT_EQ(values(), (Values{9, 0, 10, 1, 11, 2}));

    mList.insertFront(mList.begin(), &mNumbers[12]);
    mList.insertBackFront(mList.begin() + 6, &mNumbers[13]);
    EXPECT_EQ(values(), (Values{12, 9, 0, 10, 1, 11, 2, 13}));

    EXPECT_EQ(*mList.remove(mList.begin()), &mNumbers[9]);
    EXPECT_TRUE(mList.remove(mList.find(&mNumbers[13])) == mList.end());
    EXPECT_EQ(*mList.remove(mList.rbegin()), &mNumbers[11]);
    mList.remove(&mNumbers[10]);
    mList.remove(&mNumbers[99]);
    EXPECT_EQ(values(), (Values{9, 0, 1, 11}));

    mList.clear();
    mList.clear();
    EXPECT_EQ(values(), Values());
    fill(5);
    EXPECT_TRUE(mList.begin() + -1 == mList.begin()) << "a negative offset does nothing";
    EXPECT_EQ(mList.getIndex(mList.rbegin() + 1), 1u);
}

TEST_F(ListTest, InsertsInTheSenseOfTheWalkAndAtItsEndWhateverTheSide)
{
    fill(3);
    auto one = mList.rbegin() + 1;
    mList.insertFront(one, &mNumbers[7]);
    mList.insertBackFront(one, &mNumbers[8]);
    mList.insertFront(mList.end(), &mNumbers[11]);
    mList.insertBackFront(mList.end(), &mNumbers[12]);
    mList.insertFront(mList.rend(), &mNumbers[13]);
    mList.insertBackFront(mList.rend(), &mNumbers[14]);
    EXPECT_EQ(values(), (Values{14, 13, 0, 8, 1, 7, 2, 11, 12}));
}

// Every place of a full pool: growing moves the nodes while one of them is the place of the insertion.
TEST_F(ListTest, InsertsAtTheRightPlaceWhileThePoolGrows)
{
    for (int place = 0; place < 16; ++place)
    {
        mList.clear();
        mList.reserve(0);
        fill(16);
        mList.insertFront(mList.begin() + place, &mNumbers[90]);
        EXPECT_EQ(values()[place], 90);
        mList.reserve(17);
        mList.insertBackFront(mList.begin() + place, &mNumbers[91]);
        EXPECT_EQ(values()[place + 1], 91);
    }
}
