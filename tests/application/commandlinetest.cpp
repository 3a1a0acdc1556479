#include "application/commandline.h"

#include "application/animationtarget.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
sCommandLine parse(std::vector<const char*> arguments)
{
    arguments.insert(arguments.begin(), "cellwright");
    return parseCommandLine(static_cast<int>(arguments.size()), arguments.data());
}
}

TEST(CommandLineTest, TakesTheOptionsInAnyOrder)
{
    const sCommandLine line = parse({"--frames", "20", "--headless", "--root", "data", "--play", "walk"});
    EXPECT_EQ(line.error, "");
    EXPECT_TRUE(line.frames == 20 && line.root == "data" && line.play == "walk" && line.headless);
    EXPECT_FALSE(line.help || line.version || line.gallery || !line.file.empty());
    EXPECT_EQ(parse({"--headless", "walk"}).file, "walk");
    EXPECT_TRUE(parse({"--help"}).help && parse({"--version"}).version && parse({"--gallery"}).gallery);
}

TEST(CommandLineTest, NamesWhatIsWrong)
{
    const std::pair<std::vector<const char*>, const char*> rows[] = {
        {{"--fast"}, "unknown option --fast"},
        {{"walk", "parade"}, "unexpected argument parade"},
        {{""}, "unexpected argument "},
        {{"walk", "--play", "walk"}, "a file to edit, --play and --gallery exclude each other"},
        {{"--headless", "--play"}, "--play needs the name of an animation"},
        {{"--root", ""}, "--root needs a directory"},
        {{"--frames", "0"}, "--frames needs a number of frames from 1 on"},
        {{"--frames", "12x"}, "--frames needs a number of frames from 1 on"},
        {{"--frames", "99999999999"}, "--frames needs a number of frames from 1 on"},
    };
    for (const auto& [arguments, error] : rows)
        EXPECT_EQ(parse(arguments).error, error);
}

TEST(AnimationTargetTest, TellsNamesFromFilesInsideIntermediate)
{
    const char* const rows[][3] = {
        {"walk", "", "walk"},
        {"sub/walk", "", "sub/walk"},
        {"/data/intermediate/walk.asq.xml", "/data", "walk"},
        {"/data/intermediate/sub/../cats/walk.asq.xml", "/data", "cats/walk"},
        {"/data/intermediate/old/intermediate/walk.asq.xml", "/data/intermediate/old", "walk"},
    };
    for (const auto& [text, root, name] : rows)
    {
        sAnimationTarget target;
        EXPECT_TRUE(findAnimationTarget(text, target)) << text;
        EXPECT_EQ(target.root, root) << text;
        EXPECT_EQ(target.name, name) << text;
    }

    sAnimationTarget target;
    EXPECT_FALSE(findAnimationTarget("/data/walk.asq.xml", target));
    EXPECT_FALSE(findAnimationTarget("/data/intermediate/.asq.xml", target));
}
