#include "tests/support/referencepicture.h"

#include "tests/support/bytes.h"

#include <algorithm>
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
    std::string path;
};
using Lane = std::vector<sKey>;

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
    key.path = getAttribute(line, "path");
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
}

struct ReferencePicture::sTrack
{
    int get(const std::string& lane, unsigned int component, unsigned int frame, int initial) const
    {
        const auto found = lanes.find(lane);
        return found == lanes.end() ? initial : static_cast<int>(evaluate(found->second, component, frame));
    }

    std::map<std::string, Lane> lanes;
};

struct ReferencePicture::sAnimation
{
    explicit sAnimation(const std::string& path)
    {
        std::ifstream file(path);
        Lane* lane = nullptr;
        for (std::string line; std::getline(file, line);)
        {
            if (isTag(line, "track_name"))
                tracks.emplace_back();
            else if (isTag(line, "control_name"))
                lane = &tracks.back().lanes[getAttribute(line, "value")];
            else if (isTag(line, "frame"))
                lane->emplace_back().frame = static_cast<unsigned int>(getNumber(line));
            else if (isTag(line, "interpolate_type"))
                lane->back().type = getNumber(line);
            else if (isTag(line, "parameter") || isTag(line, "resource"))
                readParameter(lane->back(), line);
            else if (isTag(line, "texture"))
                texture = getAttribute(line, "path");
        }
    }

    std::vector<sTrack> tracks;
    std::string texture;
};

ReferencePicture::ReferencePicture(int width, int height, sColor background)
    : mWidth(width),
      mHeight(height),
      mBackground(background),
      mPixels(static_cast<std::size_t>(width * height), background),
      mTurned(mPixels.size(), false)
{
}

void ReferencePicture::draw(const std::string& directory, const std::string& name, unsigned int frame)
{
    drawAnimation(directory, name, frame, {mWidth / 2.0, mHeight / 2.0, 0});
}

// An animation on a track was started on the frame of its first "Seek" key and has gone one frame a step since.
void ReferencePicture::drawAnimation(const std::string& directory, const std::string& name, unsigned int frame,
                                     const sPlace& place)
{
    const sAnimation animation(directory + name + ".asq.xml");
    const sSheet sheet = animation.texture.empty() ? sSheet() : readSheet(directory + animation.texture + ".tga");
    for (const sTrack& track : animation.tracks)
    {
        if (!track.lanes.contains("Resource"))
        {
            drawCell(track, frame, place, sheet);
            continue;
        }
        const double x = track.get("Position", 0, frame, 0);
        const double y = track.get("Position", 1, frame, 0);
        const double angle = track.get("Orientation", 0, frame, 0) * M_PI / 512;
        drawAnimation(directory, track.lanes.at("Resource").at(0).path,
                      frame + static_cast<unsigned int>(track.get("Seek", 0, 0, 0)),
                      {place.x + x * std::cos(place.angle) - y * std::sin(place.angle),
                       place.y + x * std::sin(place.angle) + y * std::cos(place.angle), place.angle + angle});
    }
}

void ReferencePicture::drawCell(const sTrack& track, unsigned int frame, const sPlace& place, const sSheet& sheet)
{
    constexpr int Visible = 1, HFlip = 2, VFlip = 4;
    const auto get = [&](const char* lane, unsigned int component, int initial)
    {
        return track.get(lane, component, frame, initial);
    };
    const int attribute = get("Attribute", 0, Visible);
    if (!(attribute & Visible) || sheet.texels.empty())
        return;

    const int width = get("Size", 0, 0), height = get("Size", 1, 0);
    const int left = get("Position", 0, 0) - width / 2, top = get("Position", 1, 0) - height / 2;
    const int u = get("UV", 0, 0), v = get("UV", 1, 0);
    const auto getByte = [&](unsigned int i)
    {
        return static_cast<unsigned char>(get("Color", i, 255));
    };
    const sColor color(getByte(0), getByte(1), getByte(2), getByte(3));

    // Corners in the order of a strip; they stand on whole pixels, and so make a turned cell a little uneven.
    std::array<sCorner, 4> corners;
    for (int i = 0; i < 4; ++i)
    {
        const double x = left + (i % 2 != (attribute & HFlip ? 1 : 0) ? width : 0);
        const double y = top + (i / 2 != (attribute & VFlip ? 1 : 0) ? height : 0);
        const double c = std::cos(place.angle), s = std::sin(place.angle);
        corners[static_cast<std::size_t>(i)] = {
            std::floor(place.x + x * c - y * s), std::floor(place.y + x * s + y * c),
            static_cast<double>(u + i % 2 * width), static_cast<double>(v + i / 2 * height)};
    }
    const auto [left0, right0] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top0, bottom0] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    for (int y = std::max(0, static_cast<int>(top0)); y < std::min<int>(mHeight, static_cast<int>(bottom0)); ++y)
        for (int x = std::max(0, static_cast<int>(left0)); x < std::min<int>(mWidth, static_cast<int>(right0)); ++x)
            if (const std::optional<sColor> texel = sample(corners, sheet, x + 0.5, y + 0.5))
                blend(x, y, *texel, color, place.angle != 0);
}

// The texel that a quad shows at a place, through the first of its two triangles that covers it.
std::optional<sColor> ReferencePicture::sample(const std::array<sCorner, 4>& corners, const sSheet& sheet, double x,
                                               double y)
{
    for (const std::size_t first : {0, 1})
    {
        const sCorner &a = corners[first], &b = corners[first + 1], &c = corners[first + 2];
        const double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
        const double toB = ((x - a.x) * (c.y - a.y) - (c.x - a.x) * (y - a.y)) / area;
        const double toC = ((b.x - a.x) * (y - a.y) - (x - a.x) * (b.y - a.y)) / area;
        if (toB >= 0 && toC >= 0 && toB + toC <= 1)
            return sheet.get(a.s + toB * (b.s - a.s) + toC * (c.s - a.s), a.t + toB * (b.t - a.t) + toC * (c.t - a.t));
    }
    return std::nullopt;
}

void ReferencePicture::blend(int x, int y, sColor texel, sColor color, bool turned)
{
    const std::size_t place = static_cast<std::size_t>(y * mWidth + x);
    const double alpha = texel.a * color.a / (255.0 * 255.0);
    for (int i = 0; i < 3; ++i)
        mPixels[place][i] = static_cast<unsigned char>(
            std::lround(texel[i] * color[i] / 255.0 * alpha + mPixels[place][i] * (1 - alpha)));
    if (turned)
        mTurned[place] = true;
}

int ReferencePicture::countDifferences(const std::vector<sColor>& found) const
{
    int differences = 0;
    for (int y = 0; y < mHeight; ++y)
        for (int x = 0; x < mWidth; ++x)
            if (!isFoundNear(found, x, y, 0) && !(isTurnedNear(x, y) && isFoundNear(found, x, y, 1)))
                ++differences;
    return differences;
}

int ReferencePicture::countUpright() const
{
    int count = 0;
    for (int y = 0; y < mHeight; ++y)
        for (int x = 0; x < mWidth; ++x)
            count += mPixels[static_cast<std::size_t>(y * mWidth + x)] != mBackground && !isTurnedNear(x, y);
    return count;
}

int ReferencePicture::countTurned() const
{
    return static_cast<int>(std::count(mTurned.begin(), mTurned.end(), true));
}

bool ReferencePicture::isTurnedNear(int x, int y) const
{
    for (int row = std::max(0, y - 1); row <= std::min(mHeight - 1, y + 1); ++row)
        for (int column = std::max(0, x - 1); column <= std::min(mWidth - 1, x + 1); ++column)
            if (mTurned[static_cast<std::size_t>(row * mWidth + column)])
                return true;
    return false;
}

// Whether each component of the found pixel is one that occurs within that distance, or lies between two of them.
// Drivers may round each blend differently.
bool ReferencePicture::isFoundNear(const std::vector<sColor>& found, int x, int y, int distance) const
{
    constexpr int Rounding = 2;
    for (int i = 0; i < 3; ++i)
    {
        int lowest = 255, highest = 0;
        for (int row = std::max(0, y - distance); row <= std::min(mHeight - 1, y + distance); ++row)
            for (int column = std::max(0, x - distance); column <= std::min(mWidth - 1, x + distance); ++column)
            {
                const int wanted = mPixels[static_cast<std::size_t>(row * mWidth + column)][i];
                lowest = std::min(lowest, wanted);
                highest = std::max(highest, wanted);
            }
        const int value = found[static_cast<std::size_t>(y * mWidth + x)][i];
        if (value < lowest - Rounding || value > highest + Rounding)
            return false;
    }
    return true;
}

// Only what the samples are: 32 bits a pixel, not mirrored.
ReferencePicture::sSheet ReferencePicture::readSheet(const std::string& path)
{
    const Bytes file = readBytes(path);
    sSheet sheet;
    sheet.width = file.at(12) | file.at(13) << 8;
    sheet.height = file.at(14) | file.at(15) << 8;
    const bool fromTop = file.at(17) & 0x20;
    for (int y = 0; y < sheet.height; ++y)
        for (int x = 0; x < sheet.width; ++x)
        {
            const int row = fromTop ? y : sheet.height - 1 - y;
            const std::size_t place = static_cast<std::size_t>(18 + (row * sheet.width + x) * 4);
            sheet.texels.emplace_back(file.at(place), file.at(place + 1), file.at(place + 2), file.at(place + 3));
        }
    return sheet;
}

sColor ReferencePicture::sSheet::get(double s, double t) const
{
    const int column = std::clamp(static_cast<int>(s), 0, width - 1);
    const int row = std::clamp(static_cast<int>(t), 0, height - 1);
    return texels[static_cast<std::size_t>(row * width + column)];
}
