#include "platform/dataroot.h"

#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

class DataRootTest : public testing::Test
{
protected:
    DataRootTest()
    {
        mPlaces.program = make("bin");
        mPlaces.userData = mBase / "home/data";
        mPlaces.samples = make("share");
        make("share/intermediate/cats");
        mBase.write("share/intermediate/cats/walk.asq.xml", "sample");
    }

    std::string make(const char* name)
    {
        fs::create_directories(mBase / name);
        return mBase / name;
    }

    bool exists(const char* name) const { return fs::exists(mBase / name); }

    TemporaryDirectory mBase;
    sDataPlaces mPlaces;
};

TEST_F(DataRootTest, TheForcedDirectoryComesFirstAndIsMade)
{
    make("bin/intermediate");
    mPlaces.forced = mBase / "mine";
    EXPECT_EQ(findDataRoot(mPlaces), mPlaces.forced);
    EXPECT_TRUE(exists("mine/intermediate") && exists("mine/native"));
    EXPECT_FALSE(exists("mine/intermediate/cats")) << "samples are for the user's own directory";
}

TEST_F(DataRootTest, TheUsersDirectoryIsFilledOnce)
{
    EXPECT_EQ(findDataRoot(mPlaces), mPlaces.userData);
    EXPECT_FALSE(exists("bin/intermediate"));
    EXPECT_TRUE(exists("home/data/intermediate/cats/walk.asq.xml") && exists("home/data/native"));

    fs::remove(mBase / "home/data/intermediate/cats/walk.asq.xml");
    EXPECT_EQ(findDataRoot(mPlaces), mPlaces.userData);
    EXPECT_FALSE(exists("home/data/intermediate/cats/walk.asq.xml")) << "what the user deleted stays deleted";
}

TEST_F(DataRootTest, ThereIsNoneWhereNothingCanBeMadeAndNoneIsRelative)
{
    mPlaces.forced = mBase.write("file", "in the way");
    EXPECT_EQ(findDataRoot(mPlaces), "");
    EXPECT_EQ(findDataRoot({}), "");
    EXPECT_EQ(getDataPlaces("").forced, "");
    EXPECT_EQ(getDataPlaces("native").forced, fs::absolute("native"));
}
