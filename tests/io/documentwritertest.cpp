#include "io/documentwriter.h"

#include "io/stream.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"
#include "tests/support/apart.h"
#include "tests/support/temporarydirectory.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include <sys/stat.h>

namespace
{
using ePrevious = DocumentWriter::ePrevious;
using eStep = DocumentWriter::eStep;

constexpr const char* NewText = "<?xml version=\"1.0\"?>\n\n<Root value=\"new\" />\n";

bool write(const std::string& path, ePrevious previous, const char* value = "new")
{
    XmlWriter writer("Root");
    writer.addAttribute("value", value);
    return DocumentWriter::write(writer, path.c_str(), previous);
}

class DocumentWriterTest : public testing::Test
{
protected:
    void TearDown() override { DocumentWriter::mpStepFunction = nullptr; }

    TemporaryDirectory mDirectory;
    std::string mTarget = mDirectory / "walk.asq.xml";
};

TEST_F(DocumentWriterTest, KeepsOneGenerationOfTheFileWhenAskedTo)
{
    EXPECT_TRUE(write(mTarget, ePrevious::Keep, "first"));
    EXPECT_TRUE(write(mTarget, ePrevious::Drop, "second"));
    EXPECT_EQ(mDirectory.countFiles(), 1u) << "there was nothing to keep, then nobody asked";

    chmod(mTarget.c_str(), 0640);
    const std::string second = mDirectory.read("walk.asq.xml");
    EXPECT_TRUE(write(mTarget, ePrevious::Keep, "third"));
    EXPECT_EQ(mDirectory.read("walk.asq.xml~"), second);
    EXPECT_TRUE(write(mTarget, ePrevious::Keep));
    EXPECT_NE(mDirectory.read("walk.asq.xml~"), second);
    EXPECT_EQ(mDirectory.read("walk.asq.xml"), NewText);
    EXPECT_EQ(mDirectory.countFiles(), 2u);
    EXPECT_EQ(std::filesystem::status(mTarget).permissions(), std::filesystem::perms(0640));
}

TEST_F(DocumentWriterTest, WritesAnObjectUnderTheNameOfItsTypeThroughALink)
{
    std::filesystem::create_symlink(mDirectory.write("real", "old"), mTarget);
    ObjectBase object;
    ASSERT_TRUE(DocumentWriter::write(&object, true, mTarget.c_str(), ePrevious::Drop));
    EXPECT_TRUE(std::filesystem::is_symlink(mTarget));

    TextFileStream stream((mDirectory / "real").c_str(), FileStream::Read);
    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream));
    ASSERT_TRUE(reader.openTag("ObjectBase"));
    EXPECT_EQ(reader.getAttribute("id"), "1");
}

TEST_F(DocumentWriterTest, LeavesTheFileAloneWhenTheDocumentCouldNotBeReadBackOrWritten)
{
    const auto refuses = [](const std::string& path, const char* value, const std::string& reason)
    {
        TraceCapture traces;
        EXPECT_FALSE(write(path, ePrevious::Keep, value)) << path;
        EXPECT_EQ(traces.take(), "DocumentWriter : \"" + path + "\" not written: " + reason + ".\n");
    };
    mDirectory.write("walk.asq.xml", "old");
    refuses(mTarget, "two words", "it could not be read back");
    refuses("", "new", "No such file or directory");
    refuses("/dev/null", "new", "Invalid argument");
    refuses(mDirectory.getPath(), "new", "Invalid argument");
    EXPECT_EQ(mDirectory.read("walk.asq.xml"), "old");
    EXPECT_EQ(mDirectory.countFiles(), 1u);

    TraceCapture silence;
    EXPECT_FALSE(write(mDirectory / "missing/walk.asq.xml", ePrevious::Keep));
}

TEST_F(DocumentWriterTest, AProcessKilledAtAnyStepLeavesACompleteFile)
{
    static eStep fatal;
    for (unsigned int step = 0; step <= static_cast<unsigned int>(eStep::Done); ++step)
    {
        fatal = static_cast<eStep>(step);
        mDirectory.write("walk.asq.xml~", "older");
        std::filesystem::remove(mTarget);
        mDirectory.write("walk.asq.xml", "old");
        const auto killAtStep = [this]
        {
            DocumentWriter::mpStepFunction = [](eStep next)
            {
                if (next == fatal)
                    kill(getpid(), SIGKILL);
            };
            return write(mTarget, ePrevious::Keep) ? 0 : 1;
        };
        // The second death finds what the first has left behind.
        for (unsigned int death = 0; death < 2; ++death)
        {
            const int status = runApart(killAtStep);
            ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << step;
            EXPECT_EQ(mDirectory.read("walk.asq.xml"), fatal == eStep::Done ? NewText : "old") << step;
            const char* previous = fatal < eStep::Replace ? "older" : "old";
            EXPECT_EQ(mDirectory.read("walk.asq.xml~"), death && fatal == eStep::Done ? NewText : previous) << step;
        }
        DocumentWriter::mpStepFunction = nullptr;
        EXPECT_TRUE(write(mTarget, ePrevious::Keep));
        EXPECT_EQ(mDirectory.read("walk.asq.xml"), NewText);
        EXPECT_EQ(mDirectory.countFiles(), 2u) << "what the dead left behind is gone";
    }
}

// Each case is a process with mounts of its own, since permission bits stop no root.
TEST_F(DocumentWriterTest, AFullOrRefusingDirectoryKeepsTheOldFile)
{
    const std::string& place = mDirectory.getPath();
    const auto bind = [&]
    {
        return mount(mDirectory.write("other", "old").c_str(), mTarget.c_str(), nullptr, MS_BIND, nullptr) == 0;
    };
    const auto keepsOld = [&](const std::string& value)
    {
        return !write(mTarget, ePrevious::Keep, value.c_str()) && mDirectory.read("walk.asq.xml") == "old";
    };

    const std::function<bool()> cases[] = {
        [&] {
            return keepsOld(std::string(100000, 'x')) && mDirectory.countFiles() == 1 &&
                   write(mTarget, ePrevious::Keep);
        },
        [&] { return remountReadOnly(place) && keepsOld("new") && mDirectory.countFiles() == 1; },
        // A target that is a mount of its own gets no second name but a copy, and nothing can take its place.
        [&] { return bind() && keepsOld("new") && mDirectory.read("walk.asq.xml~") == "old"; },
    };
    constexpr int NoMounts = 77;
    for (const std::function<bool()>& holds : cases)
    {
        const int status = runApart(
            [&]
            {
                if (!mountApart(place))
                    return NoMounts;
                mDirectory.write("walk.asq.xml", "old");
                return holds() ? 0 : 1;
            });
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == NoMounts)
            GTEST_SKIP() << "this user may not mount file systems, so none can be full or refuse";
        EXPECT_EQ(WEXITSTATUS(status), 0) << &holds - cases;
    }
}
}
