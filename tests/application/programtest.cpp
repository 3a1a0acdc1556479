#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

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
    ProgramTest() : mRoot(fs::temp_directory_path() / ("program" + std::to_string(getpid())))
    {
        fs::create_directories(mRoot / "intermediate");
        setenv("XDG_DATA_HOME", mRoot.c_str(), 1);
    }

    ~ProgramTest() override { fs::remove_all(mRoot); }

    // Returns the exit status; what came on the standard error stream is kept.
    int run(const std::string& arguments)
    {
        const fs::path log = mRoot / "log";
        const int status = std::system((CELLWRIGHT_PROGRAM " " + arguments + " >/dev/null 2>" + log.string()).c_str());
        mErrors = read(log);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    static std::string read(const fs::path& path)
    {
        std::ostringstream text;
        text << std::ifstream(path).rdbuf();
        return text.str();
    }

    void write(const char* name, const char* text) const { std::ofstream(mRoot / "intermediate" / name) << text; }
    std::string file(const char* name) const { return (mRoot / "intermediate" / name).string(); }

    void expectRefused(const std::string& arguments, const std::string& reason)
    {
        EXPECT_EQ(run(arguments), 2) << arguments;
        EXPECT_NE(mErrors.find(reason), std::string::npos) << mErrors;
        EXPECT_EQ(std::count(mErrors.begin(), mErrors.end(), '\n'), 1) << mErrors;
    }

    fs::path mRoot;
    std::string mErrors;
};

TEST_F(ProgramTest, RefusesWhatItCannotDoInOneLine)
{
    const std::string root = "--root " + mRoot.string();
    write("cut.asq.xml", "<AnimResource typeinfo=\"AnimResource\" ");
    write("other.asq.xml", "<Texture typeinfo=\"Texture\" />");
    fs::create_directories(file("folder.asq.xml"));

    expectRefused("--fast", "unknown option --fast");
    expectRefused(root + " --play gone", "gone.asq.xml: No such file");
    expectRefused("--play " + file("cut.asq.xml"), "cut.asq.xml: ");
    expectRefused("--play " + file("other.asq.xml"), "other.asq.xml: not an animation");
    expectRefused(root + " --play folder", "folder.asq.xml: not a file");
    expectRefused("--play " + mRoot.string() + "/walk.asq.xml", "does not lie in a directory \"intermediate\"");
    expectRefused("--root /proc/none --headless", "there is no directory for the data: /proc/none");
}

TEST_F(ProgramTest, PlaysSoManyFramesAndSavesItsState)
{
    write("empty.asq.xml", EmptyAnimation);
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_EQ(run("--headless --frames 20 --play " + file("empty.asq.xml")), 0) << mErrors;
        EXPECT_EQ(mErrors.find("eak"), std::string::npos) << mErrors;
        EXPECT_NE(read(file("test.xml")).find("<RenderSystem "), std::string::npos);
    }
}

TEST_F(ProgramTest, StartsWithADamagedStateAndPutsItAside)
{
    write("test.xml", "<TestApp <<");
    EXPECT_EQ(run("--headless --frames 2 --root " + mRoot.string()), 0) << mErrors;
    EXPECT_EQ(read(file("test.xml.bad")), "<TestApp <<");
    EXPECT_NE(read(file("test.xml")).find("<TestApp "), std::string::npos);

    write("test.xml", "");
    EXPECT_EQ(run("--headless --frames 2 --root " + mRoot.string()), 0) << "an empty file does no harm";
}

TEST_F(ProgramTest, EndsOnASignalWithItsStateSaved)
{
    const std::string program = CELLWRIGHT_PROGRAM " --headless --root " + mRoot.string();
    EXPECT_EQ(WEXITSTATUS(std::system(("timeout -s INT 1 " + program + " 2>/dev/null").c_str())), 124);
    EXPECT_NE(read(file("test.xml")).find("</TestApp>"), std::string::npos);
}
