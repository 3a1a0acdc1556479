#include "io/xmlreader.h"

#include "io/stream.h"
#include "io/xmlwriter.h"
#include "reflection/objectbase.h"
#include "tests/support/memorytextstream.h"
#include "tests/support/plainxmlreader.h"
#include "tests/support/temporarydirectory.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>
#include <vector>

namespace
{
// What a scan of the text traces; empty when it is well-formed.
std::string findFault(const std::string& text)
{
    TraceCapture traces;
    MemoryTextStream stream(text);
    const bool wellFormed = XmlReader::isWellFormed(&stream);
    EXPECT_EQ(stream.getRest(), text.size()) << "the stream stays where it was";
    const std::string trace = traces.take();
    EXPECT_EQ(wellFormed, trace.empty());
    return trace;
}

void parse(const std::string& text)
{
    MemoryTextStream stream(text);
    XmlReader reader;
    reader.parse(&stream);
}

struct sRow
{
    std::string text;
    std::string fault;
};

const sRow Grammar[] = {
    {"", ""},
    {"no tag at all", ""},
    {"<a />", ""},
    {"< a x = \"1\"/>", ""},
    {"<a\tx=\" +-<>./_9 \"\n>text</ a junk>", ""},
    {"<?anything <a ?>b ?><a/><?x", ""},
    {"<a></a<b></b", ""},
    {std::string("<a\0x\0=\0\"\0v\"/>", 14), ""},
    {"<a !junk \"here\" ></a>", ""},
    {"<a x=\"1\"y=\"2\"/>", ""},
    {"<a/>\xFF<broken", ""},
    {"<!-- c -->", "Invalid tag."},
    {"<a/", "Invalid tag."},
    {"<", "Invalid tag."},
    {"<a ", "Invalid tag."},
    {"<a b=\"1\"", "Invalid tag."},
    {"<a / >", "Invalid tag."},
    {"</>", "Invalid tag."},
    {"<a x>", "Invalid attribute format."},
    {"<a x=1>", "Invalid attribute format."},
    {"<a x=\"1 2\"/>", "Invalid attribute format."},
    {"<a x=\"1  \"/>", "Invalid attribute format."},
    {std::string("<a x=\"1\0\"/>", 11), "Invalid attribute format."},
    {"<a x=\"a:b\"/>", "Invalid attribute format."},
    {"<a x=\"1\r\"/>", "Invalid attribute format."},
    {"<a x=\"\"/>", "Invalid attribute value."},
    {"<a x=\"\xC3\xA4\"/>", "Invalid attribute value."},
    {"<a></b>", "Invalid end tag."},
    {"<a></aa>", "Invalid end tag."},
    {"</a>", "Invalid end tag."},
    {"<a/></a>", "Invalid end tag."},
    {"<a><b/>", "Unclosed tag exists."},
    {"<a>\xFF</a>", "Unclosed tag exists."},
};

TEST(XmlReaderTest, KeepsToItsGrammar)
{
    for (const sRow& row : Grammar)
    {
        EXPECT_EQ(PlainXmlReader(row.text).readAll(), row.fault) << row.text;
        const std::string trace = findFault(row.text);
        EXPECT_EQ(trace.substr(0, 12 + row.fault.size()), row.fault.empty() ? "" : "XmlReader : " + row.fault)
            << row.text;
        if (row.fault.empty())
            parse(row.text);
    }
}

TEST(XmlReaderTest, ParsingStopsOnEachFault)
{
    std::map<std::string, std::string> faults;
    for (const sRow& row : Grammar)
        faults[row.fault] = row.text;
    faults.erase("");
    EXPECT_EQ(faults.size(), 5u);
    for (const auto& [fault, text] : faults)
        EXPECT_DEATH(parse(text), fault);
}

TEST(XmlReaderTest, AgreesWithTheGrammarOnDamagedDocuments)
{
    const std::string document = "<?xml version=\"1.0\"?>\n\n<Root typeinfo=\"SequencerUniqueKey<sPoint>\" id=\"1\" >\n"
                                 "\t<frame type=\"u16\" count=\"0\" index=\"0\" value=\"640\" />\n"
                                 "\t<a_long_name_that_crosses_a_block_of_sixty_four_characters_for_sure x=\"-1.5\" >\n"
                                 "\t\t<b />\n\t</a_long_name_that_crosses_a_block_of_sixty_four_characters_for_sure>\n"
                                 "</Root>\n";
    const std::string spice("<>/=\"? \t\n\0\r\xFF:aZ9_+", 20);
    std::mt19937 random(1);
    unsigned int accepted = 0;
    for (unsigned int i = 0; i < 20000; ++i)
    {
        std::string text = document;
        for (unsigned int j = random() % 3 + 1; j > 0; --j)
        {
            const std::size_t place = random() % text.size();
            if (random() % 2)
                text[place] = spice[random() % spice.size()];
            else
                text.erase(place, random() % 40);
        }
        const std::string fault = PlainXmlReader(text).readAll();
        MemoryTextStream stream(text);
        TraceCapture silence;
        ASSERT_EQ(XmlReader::isWellFormed(&stream), fault.empty()) << text << fault;
        if (!fault.empty())
            continue;
        ++accepted;
        XmlReader reader;
        reader.parse(&stream);
    }
    EXPECT_GT(accepted, 1000u);
}

TEST(XmlReaderTest, WalksTheTreeByName)
{
    MemoryTextStream stream("<a x=\"1\" x=\"2\"><b y=\"first\"/><b y=\"second\"/><c><d/></c></a><e z=\"1\"/>");
    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream));
    EXPECT_FALSE(reader.openTag("b")) << "not a root";
    ASSERT_TRUE(reader.openTag("a"));
    EXPECT_EQ(reader.getAttribute("x"), "1") << "the first of a name wins";
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
    reader.closeTag();
    EXPECT_TRUE(reader.findTag("z", "1").empty());
    EXPECT_DEATH(reader.closeTag(), "No tag is opened.");
    EXPECT_DEATH(reader.getAttribute("x"), "No tag is opened.");
}

TEST(XmlReaderTest, LeavesTheStreamAtItsEnd)
{
    TemporaryDirectory directory;
    TextFileStream stream(directory.write("file", "<a>\n</a>\n").c_str(), FileStream::Read);
    EXPECT_TRUE(XmlReader::isWellFormed(&stream));
    EXPECT_FALSE(stream.eof());
    XmlReader reader;
    reader.parse(&stream);
    EXPECT_TRUE(stream.eof());

    TraceCapture silence;
    TextFileStream missing((directory / "missing").c_str(), FileStream::Read);
    XmlReader nothing;
    EXPECT_TRUE(nothing.load(&missing));
    EXPECT_FALSE(nothing.openTag("a"));
}

TEST(XmlReaderTest, MakesWhatTheTagNames)
{
    MemoryTextStream stream("<a typeinfo=\"ObjectList\"/><b/><c typeinfo=\"Nothing\"/>");
    XmlReader reader;
    reader.parse(&stream);
    const std::unique_ptr<ObjectBase> made(reader.read(nullptr, "a"));
    EXPECT_NE(made, nullptr);
    EXPECT_EQ(reader.read(made.get(), "missing"), made.get());
    TraceCapture traces;
    EXPECT_EQ(reader.read(nullptr, "b"), nullptr);
    EXPECT_EQ(reader.read(nullptr, "c"), nullptr);
    EXPECT_EQ(traces.take(), "b typeinfo not found.\nc undefined typeinfo \"Nothing\".\n");
}

TEST(XmlReaderTest, ThreeThousandKeysShareTheirTexts)
{
    constexpr unsigned int KeyNum = 3000;
    const char* const names[] = {"typeinfo", "id", "stable", "frame"};
    const auto getValue = [](unsigned int key, unsigned int name) -> std::string
    {
        const std::string values[] = {"SequencerUniqueKey<sPoint>", std::to_string(key + 1), "false",
                                      std::to_string(key % 50)};
        return values[name];
    };

    XmlWriter writer("Root");
    for (unsigned int key = 0; key < KeyNum; ++key)
    {
        writer.openTag(("element" + std::to_string(key)).c_str());
        for (unsigned int name = 0; name < 4; ++name)
            writer.addAttribute(names[name], getValue(key, name).c_str());
        writer.closeTag();
    }
    MemoryTextStream stream;
    writer.write(&stream);

    XmlReader reader;
    ASSERT_TRUE(reader.load(&stream));
    ASSERT_TRUE(reader.openTag("Root"));
    std::set<std::string> texts;
    std::set<const char*> buffers;
    for (unsigned int key = 0; key < KeyNum; ++key)
    {
        ASSERT_TRUE(reader.openTag(("element" + std::to_string(key)).c_str()));
        for (unsigned int name = 0; name < 4; ++name)
        {
            const AutoString value = reader.getAttribute(names[name]);
            ASSERT_EQ(value, getValue(key, name).c_str());
            texts.insert(value.c_str());
            buffers.insert(value.c_str());
        }
        reader.closeTag();
    }
    EXPECT_EQ(buffers.size(), texts.size()) << "one buffer for each different text";
}
}
