#include "foundation/utils.h"
#include "tests/support/temporarydirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include <sys/wait.h>

namespace
{
constexpr const char* EmptyAnimation = "<AnimResource typeinfo=\"AnimResource\" id=\"1\" stable=\"true\" >\n"
                                       "<start_frame type=\"u32\" count=\"0\" index=\"0\" value=\"0\" />\n"
                                       "<end_frame type=\"u32\" count=\"0\" index=\"0\" value=\"3\" />\n"
                                       "</AnimResource>\n";
}

// Starts the program as a user would, with a data directory of the test's own.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        std::filesystem::create_directories(mRoot / "intermediate");
        setenv("XDG_DATA_HOME", mRoot.getPath().c_str(), 1);
    }

    // Returns the exit status; what came on the standard error stream is kept.
    int run(const std::string& arguments)
    {
        const std::string program = CELLWRIGHT_PROGRAM " " + arguments + " >/dev/null 2>" + mRoot / "log";
        const int status = std::system(program.c_str());
        mErrors = mRoot.read("log");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string read(const char* name) const { return mRoot.read(std::string("intermediate/") + name); }
    std::string write(const char* name, const char* text) const
    {
        return mRoot.write(std::string("intermediate/") + name, text);
    }

    void expectRefused(const std::string& arguments, const std::string& reason)
    {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_NE(mErrors.find(reason), std::string::npos) << mErrors;
        EXPECT_EQ(std::count(mErrors.begin(), mErrors.end(), '\n'), 1) << mErrors;
    }

    TemporaryDirectory mRoot;
    std::string mErrors;
};

TEST_F(ProgramTest, RefusesWhatItCannotDoInOneLine)
{
    const std::string root = "--root " + mRoot.getPath();
    const std::string cut = write("cut.asq.xml", "<AnimResource typeinfo=\"AnimResource\" ");
    const std::string other = write("other.asq.xml", "<Texture typeinfo=\"Texture\" />");
    std::filesystem::create_directories(mRoot / "intermediate/folder.asq.xml");

    expectRefused("--fast", "unknown option --fast");
    expectRefused(root + " --play gone", "gone.asq.xml: No such file");
    expectRefused(root + " gone", "gone.asq.xml: No such file");
    expectRefused(cut, "cut.asq.xml: ");
    expectRefused("--play " + other, "other.asq.xml: not an animation");
    expectRefused(mRoot / "log", "log is not an animation, whose name ends in");
    expectRefused(root + " --play folder", "folder.asq.xml: not a file");
    expectRefused("--play " + mRoot.getPath() + "/walk.asq.xml", "does not lie in a directory \"intermediate\"");
    expectRefused("--root /proc/none --headless", "there is no directory for the data: /proc/none");
}

TEST_F(ProgramTest, RefusesToRunWhereNobodySeesIt)
{
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(run("--frames 20 --root " + mRoot.getPath()), 2);
    EXPECT_NE(mErrors.find("there is no desktop"), std::string::npos) << mErrors;
}

TEST_F(ProgramTest, PlaysSoManyFramesAndSavesItsState)
{
    const std::string animation = write("empty.asq.xml", EmptyAnimation);
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_EQ(run("--headless --frames 20 --play " + animation), 0) << mErrors;
        EXPECT_EQ(mErrors.find("eak"), std::string::npos) << mErrors;
        EXPECT_NE(read("test.xml").find("<RenderSystem "), std::string::npos);
    }
}

TEST_F(ProgramTest, OpensTheFileThatItIsGiven)
{
    write("empty.asq.xml", EmptyAnimation);
    for (const char* file : {"", " empty"})
        EXPECT_EQ(run("--headless --frames 20 --root " + mRoot.getPath() + file), 0) << mErrors;
    EXPECT_EQ(mErrors.find("eak"), std::string::npos) << mErrors;
}

TEST_F(ProgramTest, StartsWhateverTheStateFileHoldsAndPutsADamagedOneAside)
{
    struct sState
    {
        const char* text;
        bool damaged;
    };
    for (const sState& state : {sState{"", false},
                                {"<Texture typeinfo=\"Texture\" />", false},
                                {"<TestApp <<", true},
                                {"<TestApp typeinfo=\"TestApp\" ><UISystem ", true},
                                {"\177ELF", false}})
    {
        write("test.xml", state.text);
        std::filesystem::remove(mRoot / "intermediate/test.xml.bad");
        EXPECT_EQ(run("--headless --frames 2 --root " + mRoot.getPath()), 0) << mErrors;
        EXPECT_EQ(read("test.xml.bad"), state.damaged ? state.text : "");
        EXPECT_NE(read("test.xml").find("</TestApp>"), std::string::npos);
    }
}

TEST_F(ProgramTest, OpensAnAnimationWhoseTextureIsGoneAndWhoseTracksHoldWindows)
{
    std::ifstream sample(SAMPLE_DIRECTORY "walk.asq.xml");
    std::string text{std::istreambuf_iterator<char>(sample), {}};
    const auto getType = [](const char* name)
    {
        return std::to_string(static_cast<int>(Utils::hash(name)));
    };
    for (const auto& [present, wanted] : {std::pair<std::string, std::string>("path=\"walk\"", "path=\"gone\""),
                                          {getType("AnimCell"), getType("AnimTool")}})
    {
        std::size_t place = text.find(present);
        ASSERT_NE(place, std::string::npos) << present;
        for (; place != std::string::npos; place = text.find(present, place))
            text.replace(place, present.size(), wanted);
    }
    write("strange.asq.xml", text.c_str());
    for (const char* mode : {" ", " --play "})
    {
        EXPECT_EQ(run("--headless --frames 20 --root " + mRoot.getPath() + mode + "strange"), 0);
        for (const char* trace : {"path=\"gone\" not found.", "No track may hold a AnimTool."})
            EXPECT_NE(mErrors.find(trace), std::string::npos) << mErrors;
        EXPECT_EQ(mErrors.find("eak"), std::string::npos) << mErrors;
    }
}

TEST_F(ProgramTest, EndsOnASignalWithItsStateSaved)
{
    const std::string program = " 1 " CELLWRIGHT_PROGRAM " --headless --root " + mRoot.getPath() + " 2>/dev/null";
    for (const std::string signal : {"INT", "TERM"})
    {
        write("test.xml", "");
        EXPECT_EQ(WEXITSTATUS(std::system(("timeout -s " + signal + program).c_str())), 124);
        EXPECT_NE(read("test.xml").find("</TestApp>"), std::string::npos) << signal;
    }
}
