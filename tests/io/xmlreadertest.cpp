#include "io/xmlreader.h"

#include "io/stream.h"
#include "reflection/objectbase.h"
#include "tests/support/memorytextstream.h"
#include "tests/support/temporarydirectory.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <map>

namespace
{
void parse(const std::string& text)
{
    MemoryTextStream stream(text);
    XmlReader reader;
    reader.parse(&stream);
}

// Texts, each with its fault.
const std::pair<std::string, std::string> Grammar[] = {
    {"", ""},
    {"no tag at all", ""},
    {"<a\tx=\" +-<>./_9 \"\n>text</ a junk>", ""},
    {"<?anything <a ?>b ?><a/><?x", ""},
    {"<a></a<b></b", ""},
    {std::string("<a\0x\0=\0\"\0v\"/>", 14), ""},
    {"<a !junk \"here\" ></a>", ""},
    {"<a x=\"1\"y=\"2\"/>", ""},
    {"<a/>\xFF<broken", ""},
    {"<!-- c -->", "Invalid tag."},
    {"<", "Invalid tag."},
    {"<a b=\"1\"", "Invalid tag."},
    {"<a / >", "Invalid tag."},
    {"</>", "Invalid tag."},
    {"<a x>", "Invalid attribute format."},
    {"<a x=1>", "Invalid attribute format."},
    {"<a x=\"1 2\"/>", "Invalid attribute format."},
    {std::string("<a x=\"1\0\"/>", 11), "Invalid attribute format."},
    {"<a x=\"a:b\"/>", "Invalid attribute format."},
    {"<a x=\"\"/>", "Invalid attribute value."},
    {"<a x=\"\xC3\xA4\"/>", "Invalid attribute value."},
    {"<a></b>", "Invalid end tag."},
    {"</a>", "Invalid end tag."},
    {"<a><b/>", "Unclosed tag exists."},
    {"<a>\xFF</a>", "Unclosed tag exists."},
};

TEST(XmlReaderTest, KeepsToItsGrammar)
{
    std::map<std::string, std::string> faults;
    for (const auto& [text, fault] : Grammar)
    {
        TraceCapture traces;
        MemoryTextStream stream(text);
        EXPECT_EQ(XmlReader::isWellFormed(&stream), fault.empty()) << text;
        EXPECT_EQ(stream.getRest(), text.size()) << "the stream stays where it was";
        const std::string trace = traces.take();
        EXPECT_EQ(trace.substr(0, trace.find(" At byte")), fault.empty() ? "" : "XmlReader : " + fault);
        faults[fault] = text;
        if (fault.empty())
            parse(text);
    }
    faults.erase("");
    EXPECT_EQ(faults.size(), 5u);
    for (const auto& [fault, text] : faults)
        EXPECT_DEATH(parse(text), fault);
}

TEST(XmlReaderTest, RefusesADocumentThatIsCutAnywhere)
{
    const std::string name = "a_name_that_crosses_a_block_of_sixty_four_characters_for_sure";
    const std::string document =
        "<?xml version=\"1.0\"?>\n\n<Root typeinfo=\"SequencerUniqueKey<sPoint>\" id=\"1\" >\n\t<" + name +
        " x=\"-1.5\" >\n\t\t<b />\n\t</" + name + ">\n</Root>\n";
    TraceCapture silence;
    for (std::size_t length = document.find("<Root") + 1; length <= document.rfind("</Root") + 6; ++length)
    {
        MemoryTextStream stream(document.substr(0, length));
        XmlReader reader;
        EXPECT_EQ(reader.load(&stream), length == document.rfind("</Root") + 6) << length;
    }
}

TEST(XmlReaderTest, WalksTheTreeByName)
{
    MemoryTextStream stream("<a x=\"1\" x=\"2\"><b y=\"first\"/><b y=\"second\"/><c><d/></c></a><e z=\"1\"/>");
    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream));
    EXPECT_FALSE(reader.openTag("b")) << "not a root";
    ASSERT_TRUE(reader.openTag("a"));
    const AutoString first = reader.getAttribute("x");
    EXPECT_EQ(first, "1") << "the first of a name wins";
    EXPECT_TRUE(reader.getAttribute("y").empty());
    EXPECT_EQ(reader.findTag("x", "1"), "b");
    EXPECT_TRUE(reader.findTag("y", "first").empty());
    ASSERT_TRUE(reader.openTag(AutoString("b")));
    EXPECT_EQ(reader.getAttribute("y"), "first");
    reader.closeTag();
    ASSERT_TRUE(reader.openTag("c"));
    EXPECT_FALSE(reader.openTag("b"));
    reader.closeTag();
    reader.closeTag();
    EXPECT_TRUE(reader.openTag("e"));
    EXPECT_EQ(reader.getAttribute("z").c_str(), first.c_str()) << "equal texts share a buffer";
    reader.closeTag();
    EXPECT_TRUE(reader.findTag("z", "1").empty());
    EXPECT_DEATH(reader.closeTag(), "No tag is opened.");
}

}
