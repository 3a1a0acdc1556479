#include "tools/samples/picture.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr unsigned int HeaderSize = 18;
constexpr unsigned char TrueColour = 2;
constexpr unsigned char BitsPerPixel = 32;
constexpr unsigned char TopRowFirstAndEightAlphaBits = 0x28;

// What lies within this of the lower right edge is drawn in the shaded paint.
constexpr sPlace ShadePixels{1.6f, 1.8f};
constexpr float ShadeScale = 0.8f;
constexpr float OutlineScale = 0.32f;

float dot(const sPlace& left, const sPlace& right)
{
    return left.x * right.x + left.y * right.y;
}

// Pixels from `point` to the edge of a capsule, negative inside.
float getDistance(const sPlace& point, const sCapsule& capsule)
{
    const sPlace axis = capsule.to - capsule.from;
    const sPlace toPoint = point - capsule.from;
    const float squareLength = dot(axis, axis);
    if (squareLength == 0.0f)
        return std::sqrt(dot(toPoint, toPoint)) - std::max(capsule.fromRadius, capsule.toRadius);

    const float along = std::clamp(dot(toPoint, axis) / squareLength, 0.0f, 1.0f);
    const sPlace aside = toPoint - axis * along;
    return std::sqrt(dot(aside, aside)) - (capsule.fromRadius + (capsule.toRadius - capsule.fromRadius) * along);
}

float getDistance(const sPlace& point, const Shape& shape)
{
    float nearest = 1.0e6f;
    for (const sCapsule& capsule : shape)
        nearest = std::min(nearest, getDistance(point, capsule));
    return nearest;
}

float getCoverage(float distance)
{
    return std::clamp(0.5f - distance, 0.0f, 1.0f);
}

sPaint scale(const sPaint& paint, float factor)
{
    return {paint.r * factor, paint.g * factor, paint.b * factor};
}

unsigned char toByte(float value)
{
    return static_cast<unsigned char>(std::clamp(value, 0.0f, 1.0f) * 255.0f + 0.5f);
}

void put16(std::vector<unsigned char>& bytes, unsigned int at, unsigned int value)
{
    bytes[at] = static_cast<unsigned char>(value & 0xFF);
    bytes[at + 1] = static_cast<unsigned char>(value >> 8 & 0xFF);
}
} // namespace

Picture::Picture(unsigned int width, unsigned int height)
    : mWidth(width), mHeight(height), mPixels(static_cast<std::size_t>(width) * height)
{
}

void Picture::draw(const Shape& shape, const sPlace& offset, const sPaint& paint, float outlinePixels)
{
    const sPaint outline = scale(paint, OutlineScale);
    const sPaint shade = scale(paint, ShadeScale);
    for (unsigned int y = 0; y < mHeight; ++y)
    {
        for (unsigned int x = 0; x < mWidth; ++x)
        {
            const sPlace point = sPlace{static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f} - offset;
            const float distance = getDistance(point, shape);
            if (distance > outlinePixels + 1.0f)
                continue;

            blend(x, y, outline, getCoverage(distance - outlinePixels));
            blend(x, y, shade, getCoverage(distance));
            blend(x, y, paint, getCoverage(std::max(distance, getDistance(point + ShadePixels, shape))));
        }
    }
}

void Picture::drawShadow(const sPlace& centre, float width, float height, float opacity)
{
    for (unsigned int y = 0; y < mHeight; ++y)
    {
        for (unsigned int x = 0; x < mWidth; ++x)
        {
            const sPlace point = sPlace{static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f} - centre;
            const sPlace part{point.x * 2.0f / width, point.y * 2.0f / height};
            const float inside = std::max(0.0f, 1.0f - dot(part, part));
            blend(x, y, {0.05f, 0.05f, 0.15f}, opacity * inside * (2.0f - inside));
        }
    }
}

void Picture::place(const Picture& picture, unsigned int x, unsigned int y)
{
    for (unsigned int row = 0; row < picture.mHeight; ++row)
    {
        const auto source = picture.mPixels.begin() + static_cast<std::ptrdiff_t>(row) * picture.mWidth;
        std::copy(source, source + picture.mWidth, mPixels.begin() + static_cast<std::ptrdiff_t>(y + row) * mWidth + x);
    }
}

std::vector<unsigned char> Picture::makeTGA() const
{
    std::vector<unsigned char> bytes(HeaderSize);
    bytes[2] = TrueColour;
    put16(bytes, 12, mWidth);
    put16(bytes, 14, mHeight);
    bytes[16] = BitsPerPixel;
    bytes[17] = TopRowFirstAndEightAlphaBits;

    for (const sPixel& pixel : mPixels)
    {
        const float whole = pixel.a > 0.0f ? 1.0f / pixel.a : 0.0f;
        for (const float part : {pixel.r * whole, pixel.g * whole, pixel.b * whole, pixel.a})
            bytes.push_back(toByte(part));
    }
    return bytes;
}

void Picture::blend(unsigned int x, unsigned int y, const sPaint& paint, float coverage)
{
    if (coverage == 0.0f)
        return;

    sPixel& pixel = mPixels[static_cast<std::size_t>(y) * mWidth + x];
    const float kept = 1.0f - coverage;
    pixel = {pixel.r * kept + paint.r * coverage, pixel.g * kept + paint.g * coverage,
             pixel.b * kept + paint.b * coverage, pixel.a * kept + coverage};
}
