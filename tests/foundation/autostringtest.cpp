#include "foundation/autostring.h"

#include "foundation/gpallocator.h"

#include <gtest/gtest.h>

#include <string>

// Runs each test once on a heap of its own, and counts what the strings of the test leave behind.
class AutoStringTest : public testing::Test
{
protected:
    AutoStringTest() { AutoString::setAllocator(&mHeap); }
    ~AutoStringTest() override
    {
        EXPECT_EQ(mHeap.getUsedSize(), mUsedAtStart);
        AutoString::deleteAllocator();
    }

    GPAllocator mHeap{0x10000, "Strings", nullptr, 32, false};
    const unsigned int mUsedAtStart = mHeap.getUsedSize();
};

TEST_F(AutoStringTest, TellsTheEmptyStringFromAnEmptyText)
{
    const AutoString empty(static_cast<const char*>(nullptr));
    EXPECT_TRUE(empty.c_str() == nullptr && empty.empty() && !empty && empty.size() == 0);
    EXPECT_TRUE(empty == AutoString::Null && empty == static_cast<const char*>(nullptr));
    EXPECT_EQ(empty.hash(), 0xFFFFFFFFu);

    const AutoString text("");
    EXPECT_STREQ(text.c_str(), "");
    EXPECT_TRUE(!text.empty() && text && text == "");
    EXPECT_FALSE(text == empty);
}

TEST_F(AutoStringTest, SharesOneBufferUntilOneSideIsWritten)
{
    AutoString text("walk");
    const AutoString copy = text;
    AutoString appended;
    appended += text;
    EXPECT_EQ(copy.c_str(), text.c_str());
    EXPECT_EQ(appended.c_str(), text.c_str()) << "an empty string takes what is added as it is";
    text[0] = 't';
    EXPECT_STREQ(text.c_str(), "talk");
    EXPECT_STREQ(copy.c_str(), "walk");

    const char* former = text.c_str();
    text[0] = 'b';
    EXPECT_NE(text.c_str(), former) << "a sole owner gets a new buffer too";

    former = text.c_str();
    text = "balk";
    EXPECT_EQ(text.c_str(), former) << "an equal text changes nothing";
    const AutoString& self = text;
    text = self;
    EXPECT_STREQ(text.c_str(), "balk");
    text = AutoString::Null;
    EXPECT_TRUE(text.empty());
}

TEST_F(AutoStringTest, InsertsAndRemoves)
{
    const std::tuple<const char*, void (*)(AutoString&), const char*> cases[] = {
        {"abcd", [](AutoString& s) { s.remove(1, 2); }, "ad"},
        {"abcd", [](AutoString& s) { s.remove(3, 2); }, "abc"},
        {"abcd", [](AutoString& s) { s.remove(4, 2); }, "abcd"},
        {"abc", [](AutoString& s) { s.remove(1, 3); }, nullptr},
        {"abc", [](AutoString& s) { s.remove(7, 3); }, nullptr},
        {"abc", [](AutoString& s) { s.insert(1, 'x'); }, "axbc"},
        {"abc", [](AutoString& s) { s.insert(0, AutoString("xy")); }, "xyabc"},
        {"abc", [](AutoString& s) { s.insert(90, AutoString("xy")); }, "abcxy"},
        {"abc", [](AutoString& s) { s.insert(1, s); }, "aabcbc"},
        {"abc", [](AutoString& s) { s += s; }, "abcabc"},
        {"abc", [](AutoString& s) { s += s.c_str() + 1; }, "abcbc"},
        {"abc", [](AutoString& s) { s += AutoString(); }, "abc"},
        {"abc", [](AutoString& s) { s.indent(2); }, "\t\tabc"},
        {nullptr, [](AutoString& s) { s.indent(2); }, "\t\t"},
        {nullptr, [](AutoString& s) { s.insert(5, 'x'); }, "x"},
        {"abc", [](AutoString& s) { s.format("%s-%d%%", s.c_str(), 7); }, "abc-7%"},
    };
    for (const auto& [before, edit, after] : cases)
    {
        AutoString text(before);
        edit(text);
        EXPECT_STREQ(text.c_str(), after) << (before ? before : "(null)");
    }
    AutoString cut;
    cut.format("%s", std::string(5000, 'x').c_str());
    EXPECT_EQ(cut.size(), 1023u);
    EXPECT_STREQ(("<" + AutoString("b") + "/" + '>').c_str(), "<b/>");
}

TEST_F(AutoStringTest, FallsBackOnTheGeneralHeapWhenItsOwnIsFull)
{
    AutoString text("inside");
    const AutoString outside(std::string(0x10000, 'x').c_str());
    EXPECT_EQ(outside.size(), 0x10000u);

    // Each goes back to where it came from, the sanitizers and the size in use being the witnesses.
    text = outside;
    EXPECT_EQ(mHeap.getUsedSize(), mUsedAtStart);
}
