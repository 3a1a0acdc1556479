#include "application/commandline.h"

#include <charconv>
#include <string_view>

namespace
{
// A row sets either a text, a number or a flag. The value's description stands in the complaint about a missing one.
struct sOptionRow
{
    std::string_view name;
    const char* value;
    std::string sCommandLine::*text;
    unsigned int sCommandLine::*number;
    bool sCommandLine::*flag;
};

constexpr sOptionRow OptionTable[] = {
    {"--root", "a directory", &sCommandLine::root, nullptr, nullptr},
    {"--play", "the name of an animation", &sCommandLine::play, nullptr, nullptr},
    {"--frames", "a number of frames from 1 on", nullptr, &sCommandLine::frames, nullptr},
    {"--gallery", nullptr, nullptr, nullptr, &sCommandLine::gallery},
    {"--headless", nullptr, nullptr, nullptr, &sCommandLine::headless},
    {"--help", nullptr, nullptr, nullptr, &sCommandLine::help},
    {"--version", nullptr, nullptr, nullptr, &sCommandLine::version},
};

const sOptionRow* findOption(std::string_view name)
{
    for (const sOptionRow& row : OptionTable)
    {
        if (row.name == name)
            return &row;
    }
    return nullptr;
}

bool readNumber(std::string_view text, unsigned int& number)
{
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number > 0;
}

// The one argument that is no option.
bool readFile(std::string_view argument, sCommandLine& line)
{
    if (argument.starts_with('-'))
        line.error = "unknown option ";
    else if (argument.empty() || !line.file.empty())
        line.error = "unexpected argument ";
    (line.error.empty() ? line.file : line.error) += argument;
    return line.error.empty();
}

bool readValue(const sOptionRow& row, std::string_view value, sCommandLine& line)
{
    if (row.number)
        return readNumber(value, line.*row.number);
    line.*row.text = value;
    return !value.empty();
}
}

const char* sCommandLine::getHelpText()
{
    return "usage: cellwright [OPTION]... [FILE]\n"
           "\n"
           "Opens FILE in the animation editor: a name such as \"walk\", or a file that ends in \".asq.xml\".\n"
           "Without FILE the editor starts with a new animation.\n"
           "\n"
           "  --root DIR     keep the data in DIR\n"
           "  --play FILE    show an animation instead of editing one\n"
           "  --gallery      show every element of the interface instead\n"
           "  --frames N     end after N frames\n"
           "  --headless     run without a window\n"
           "  --help         show this text\n"
           "  --version      show the version\n";
}

sCommandLine parseCommandLine(int count, const char* const* arguments)
{
    sCommandLine line;
    for (int i = 1; i < count; ++i)
    {
        const sOptionRow* row = findOption(arguments[i]);
        if (!row)
        {
            if (!readFile(arguments[i], line))
                return line;
            continue;
        }
        if (row->flag)
        {
            line.*row->flag = true;
            continue;
        }
        if (++i >= count || !readValue(*row, arguments[i], line))
        {
            line.error = std::string(row->name) + " needs " + row->value;
            return line;
        }
    }
    if (!line.file.empty() + !line.play.empty() + line.gallery > 1)
        line.error = "a file to edit, --play and --gallery exclude each other";
    return line;
}
