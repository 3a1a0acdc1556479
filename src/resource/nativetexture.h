#pragma once

// The layout of a "tex" file, all numbers little-endian.
namespace NativeTexture
{
constexpr unsigned int Magic = 0x20584554; // "TEX "
constexpr unsigned int Version = 1;

constexpr unsigned int MagicOffset = 0;
constexpr unsigned int VersionOffset = 4;
constexpr unsigned int WidthOffset = 8;
constexpr unsigned int HeightOffset = 10;
constexpr unsigned int HeaderSize = 12;

constexpr unsigned int BytesPerPixel = 4;

// Bytes of the pixels, for sizes of at most 16 bits.
constexpr unsigned long long getPixelSize(unsigned long long width, unsigned long long height)
{
    return width * height * BytesPerPixel;
}
}
