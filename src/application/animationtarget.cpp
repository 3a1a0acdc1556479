#include "application/animationtarget.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace
{
constexpr std::string_view Extension = ".asq.xml";
constexpr std::string_view Directory = "/intermediate/";
}

bool findAnimationTarget(const std::string& text, sAnimationTarget& target)
{
    if (!text.ends_with(Extension))
    {
        target = {std::string(), text};
        return true;
    }

    std::error_code error;
    const std::string path = std::filesystem::absolute(text, error).lexically_normal().string();
    const std::size_t place = path.rfind(Directory);
    if (error || place == std::string::npos)
        return false;

    const std::size_t nameStart = place + Directory.size();
    target.root = path.substr(0, place);
    target.name = path.substr(nameStart, path.size() - nameStart - Extension.size());
    return !target.name.empty();
}
