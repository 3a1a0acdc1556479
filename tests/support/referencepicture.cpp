#include "tests/support/referencepicture.h"

#include "tests/support/bytes.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <map>

namespace
{
constexpr int Linear = 1;
constexpr int Hermite = 2;

struct sKey
{
    unsigned int frame = 0;
    int type = 0;
    std::array<float, 4> value = {};
};
using Lane = std::vector<sKey>;
using Track = std::map<std::string, Lane>;

// Empty if the tag of that line has no such attribute.
std::string getAttribute(const std::string& line, const std::string& name)
{
    const std::size_t begin = line.find(" " + name + "=\"");
    if (begin == std::string::npos)
        return "";
    const std::size_t value = begin + name.size() + 3;
    return line.substr(value, line.find('"', value) - value);
}

int getNumber(const std::string& line)
{
    return std::atoi(getAttribute(line, "value").c_str());
}

bool isTag(const std::string& line, const std::string& name)
{
    return line.find("<" + name + " ") != std::string::npos;
}

void readParameter(sKey& key, const std::string& line)
{
    unsigned int component = 0;
    for (const char* name : {"value", "x", "y", "u", "v", "width", "height", "red", "green", "blue", "alpha"})
        if (const std::string text = getAttribute(line, name); !text.empty())
            key.value.at(component++) = std::strtof(text.c_str(), nullptr);
}

// The slope with which a segment meets the key between `before` and `after`; its neighbour's type decides.
float getTangent(int type, float slope, float before, float after)
{
    return type == Linear ? slope : type == Hermite ? 0.5f * (after - before) : 0.0f;
}

float evaluate(const Lane& lane, unsigned int component, unsigned int frame)
{
    std::size_t i = lane.size() - 1;
    while (i > 0 && lane[i].frame > frame)
        --i;
    const auto p = [&](std::size_t key)
    {
        return lane[key].value[component];
    };
    if (i + 1 == lane.size() || (lane[i].type != Linear && lane[i].type != Hermite))
        return p(i);

    const float d = p(i + 1) - p(i);
    const float t =
        static_cast<float>(frame - lane[i].frame) * (1.0f / static_cast<float>(lane[i + 1].frame - lane[i].frame));
    if (lane[i].type == Linear)
        return d * t + p(i);
    const float m0 = i > 0 ? getTangent(lane[i - 1].type, p(i) - p(i - 1), p(i - 1), p(i + 1)) : 0.0f;
    const float m1 = i + 2 < lane.size() ? getTangent(lane[i + 1].type, p(i + 2) - p(i + 1), p(i), p(i + 2)) : 0.0f;
    return (-2 * d + m0 + m1) * t * t * t + (-2 * m0 + 3 * d - m1) * t * t + m0 * t + p(i);
}

std::vector<Track> readTracks(const std::string& path, std::string& texture)
{
    std::vector<Track> tracks;
    std::ifstream file(path);
    Lane* lane = nullptr;
    for (std::string line; std::getline(file, line);)
    {
        if (isTag(line, "track_name"))
            tracks.emplace_back();
        else if (isTag(line, "control_name"))
            lane = &tracks.back()[getAttribute(line, "value")];
        else if (isTag(line, "frame"))
            lane->emplace_back().frame = static_cast<unsigned int>(getNumber(line));
        else if (isTag(line, "interpolate_type"))
            lane->back().type = getNumber(line);
        else if (isTag(line, "parameter"))
            readParameter(lane->back(), line);
        else if (isTag(line, "texture"))
            texture = getAttribute(line, "path");
    }
    return tracks;
}
}

ReferencePicture::ReferencePicture(const std::string& directory, const std::string& name, unsigned int frame)
    : mPixels(Width * Height, Background)
{
    std::string texture;
    const std::vector<Track> tracks = readTracks(directory + name + ".asq.xml", texture);
    mSheet = readBytes(directory + texture + ".tga");
    for (const Track& track : tracks)
    {
        const auto get = [&](const char* lane, unsigned int component, int initial)
        {
            const auto found = track.find(lane);
            return found == track.end() ? initial : static_cast<int>(evaluate(found->second, component, frame));
        };
        const sPoint size(get("Size", 0, 0), get("Size", 1, 0));
        const sPoint corner(Width / 2 + get("Position", 0, 0) - size.x / 2,
                            Height / 2 + get("Position", 1, 0) - size.y / 2);
        const sPoint texel(get("UV", 0, 0), get("UV", 1, 0));
        std::array<int, 4> color;
        for (unsigned int i = 0; i < 4; ++i)
            color[i] = get("Color", i, 255);
        for (int y = 0; y < size.y; ++y)
            for (int x = 0; x < size.x; ++x)
                blend(corner + sPoint(x, y), texel + sPoint(x, y), color);
    }
}

// Only for what the samples are: 32 bits a pixel, from the top.
void ReferencePicture::blend(const sPoint& place, const sPoint& texel, const std::array<int, 4>& color)
{
    const int sheetWidth = mSheet.at(12) | mSheet.at(13) << 8;
    const unsigned char* source = &mSheet.at(static_cast<std::size_t>(18 + (texel.y * sheetWidth + texel.x) * 4));
    sColor& pixel = mPixels.at(static_cast<std::size_t>(place.y * Width + place.x));
    const double alpha = source[3] * color[3] / (255.0 * 255.0);
    for (unsigned int i = 0; i < 3; ++i)
        pixel[static_cast<int>(i)] = static_cast<unsigned char>(
            std::lround(source[i] * color[i] / 255.0 * alpha + pixel[static_cast<int>(i)] * (1 - alpha)));
}
