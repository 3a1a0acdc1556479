#include "tools/samples/samples.h"
#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "resource/resourcesystem.h"
#include "tests/support/headlesssystems.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
std::string read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
} // namespace

TEST(SamplesTest, AreWhatTheToolWrites)
{
    const fs::path written = fs::path(testing::TempDir()) / ("samples" + std::to_string(getpid()));
    fs::create_directory(written);
    EXPECT_TRUE(Samples::write((written.string() + "/").c_str()));
    for (const char* name : {"walk.tga", "walk.asq.xml", "parade.asq.xml"})
    {
        EXPECT_GT(read(written / name).size(), 10000u);
        EXPECT_TRUE(read(written / name) == read(fs::path(SAMPLE_DIRECTORY) / name)) << name;
    }
    fs::remove_all(written);
    EXPECT_FALSE(Samples::write((written.string() + "/").c_str())) << "there is no such directory any more";
}

class SamplesPlayTest : public testing::Test
{
protected:
    SamplesPlayTest()
    {
        fs::copy(SAMPLE_DIRECTORY, mSystems.getRoot() + "/intermediate",
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }

    template <typename T>
    static const T& getTrack(const Sequencer& sequencer, unsigned int track)
    {
        return *sequencer.getTrackArray()[track].object->cast<T>();
    }

    HeadlessSystems mSystems;
};

TEST_F(SamplesPlayTest, EveryChildOfTheParadeWalksFromTheFirstFrameToTheLast)
{
    AnimResource* parade = ResourceSystem::getInstance()->createResource<AnimResource>("parade");
    ASSERT_TRUE(parade);
    AnimSequencer sequencer;
    sequencer.setResource(parade);
    parade->release();
    ASSERT_EQ(sequencer.getTrackNum(), 6u);

    std::set<unsigned int> cells;
    const sPoint start = getTrack<AnimSequencer>(sequencer, 3).getPosition();
    sequencer.play();
    for (int frame = 0; frame < 239; ++frame)
    {
        sequencer.update(sFixed::One);
        for (unsigned int track = 2; track < 6; ++track)
            ASSERT_TRUE(getTrack<AnimSequencer>(sequencer, track).isPlaying()) << "track " << track << " " << frame;
        const auto& cell = getTrack<AnimCell>(getTrack<AnimSequencer>(sequencer, 2), 2);
        cells.insert(cell.getUV().y * 1024u + cell.getUV().x);
    }
    EXPECT_EQ(cells.size(), 12u) << "every moment of the walk is shown";

    const sPoint way = getTrack<AnimSequencer>(sequencer, 3).getPosition();
    EXPECT_NEAR(way.x - start.x, 192, 2) << "four turns of 48 pixels";
    EXPECT_TRUE(static_cast<AnimResource*>(getTrack<AnimSequencer>(sequencer, 2).getResource())->getTexture());
}
