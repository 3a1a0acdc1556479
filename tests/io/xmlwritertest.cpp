#include "io/xmlwriter.h"

#include "io/xmlreader.h"
#include "reflection/objectbase.h"
#include "tests/support/memorytextstream.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{
std::string print(XmlWriter& writer)
{
    MemoryTextStream stream;
    writer.write(&stream);
    return stream.getText();
}

TEST(XmlWriterTest, PrintsTagsAtTheirDepthWithABlankBehindEachPart)
{
    XmlWriter writer("Root");
    writer.openTag("child");
    writer.addAttribute("type", "u32");
    writer.openTag(AutoString("leaf"));
    writer.addAttribute(AutoString("value"), AutoString("a \"b\" <c>"));
    writer.addAttribute("value", static_cast<const char*>(nullptr));
    writer.closeTag();
    writer.addAttribute("late", std::string(200000, 'x').c_str());
    writer.addAttribute("later", "1");
    writer.closeTag();
    writer.addAttribute("late", "2");
    writer.openTag("child");
    writer.closeTag();
    writer.addAttribute("later", "3");
    EXPECT_EQ(print(writer), "<?xml version=\"1.0\"?>\n\n"
                             "<Root late=\"2\" later=\"3\" >\n"
                             "\t<child type=\"u32\" late=\"" +
                                 std::string(200000, 'x') +
                                 "\" later=\"1\" >\n"
                                 "\t\t<leaf value=\"a \"b\" <c>\" value=\"\" />\n"
                                 "\t</child>\n"
                                 "\t<child />\n"
                                 "</Root>\n");
}

TEST(XmlWriterTest, KnowsWhetherTheReaderWillTakeTheDocument)
{
    const std::tuple<const char*, const char*, unsigned int> rows[] = {
        {"name_1", "Az09_+-<>./", 256}, {"name", "1", 257}, {"name", "", 2},
        {"name", nullptr, 2},           {"name", "a b", 2}, {"name", "a:b", 2},
        {"name", "\xC3\xA4", 2},        {"a-b", "1", 2},    {"", "1", 2}};
    for (const auto& [name, value, depth] : rows)
    {
        const bool readable = depth == 256;
        XmlWriter writer("Root");
        for (unsigned int i = 1; i < depth; ++i)
            writer.openTag("tag");
        writer.addAttribute(name, value);
        for (unsigned int i = 1; i < depth; ++i)
            writer.closeTag();
        EXPECT_EQ(writer.isReadable(), readable) << name << " " << depth;
        MemoryTextStream stream(print(writer));
        EXPECT_TRUE(XmlReader::isWellFormed(&stream) == readable || !*name);
    }
    XmlWriter writer("no name");
    EXPECT_FALSE(writer.isReadable());
}

}
