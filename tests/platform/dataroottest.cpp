#include "platform/dataroot.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include <unistd.h>

namespace fs = std::filesystem;

class DataRootTest : public testing::Test
{
protected:
    DataRootTest() : mBase(fs::temp_directory_path() / ("dataroot" + std::to_string(getpid())))
    {
        mPlaces.program = make("bin");
        mPlaces.userData = (mBase / "home/data").string();
        mPlaces.samples = make("share");
        make("share/intermediate/cats");
        std::ofstream(mBase / "share/intermediate/cats/walk.asq.xml") << "sample";
    }

    ~DataRootTest() override { fs::remove_all(mBase); }

    std::string make(const char* name)
    {
        fs::create_directories(mBase / name);
        return (mBase / name).string();
    }

    bool exists(const char* name) const { return fs::exists(mBase / name); }

    fs::path mBase;
    sDataPlaces mPlaces;
};

TEST_F(DataRootTest, TheForcedDirectoryComesFirstAndIsMade)
{
    make("bin/intermediate");
    mPlaces.forced = (mBase / "mine").string();
    EXPECT_EQ(findDataRoot(mPlaces), mPlaces.forced);
    EXPECT_TRUE(exists("mine/intermediate") && exists("mine/native"));
    EXPECT_FALSE(exists("mine/intermediate/cats")) << "samples are for the user's own directory";
}

TEST_F(DataRootTest, TheProgramsDirectoryCountsWhenItHasData)
{
    make("bin/intermediate");
    EXPECT_EQ(findDataRoot(mPlaces), mPlaces.program);
    EXPECT_TRUE(exists("bin/native"));
    EXPECT_FALSE(exists("home"));
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

TEST_F(DataRootTest, ThereIsNoneWhereNothingCanBeMade)
{
    std::ofstream(mBase / "file") << "in the way";
    mPlaces.forced = (mBase / "file").string();
    EXPECT_EQ(findDataRoot(mPlaces), "");
    EXPECT_EQ(findDataRoot({}), "");
}
