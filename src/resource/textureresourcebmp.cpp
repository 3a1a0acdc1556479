#include "resource/textureresourcebmp.h"

#include "foundation/dev.h"
#include "resource/byteview.h"
#include "resource/nativetexture.h"

REFLECT(TextureResourceBMP, eTypeAttribute::None, "TextureResource");

namespace
{
constexpr unsigned int Magic = 0x4D42; // "BM"
constexpr unsigned int PixelsOffset = 10;
constexpr unsigned int InformationOffset = 14;
constexpr unsigned int WidthOffset = InformationOffset + 4;
constexpr unsigned int HeightOffset = InformationOffset + 8;
constexpr unsigned int BitCountOffset = InformationOffset + 14;
constexpr unsigned int CompressionOffset = InformationOffset + 16;
constexpr unsigned int HeaderSize = InformationOffset + 40;

constexpr unsigned char Opaque = 255;

struct sPixel
{
    unsigned char bytes[NativeTexture::BytesPerPixel];
};

// The colours of a bitmap; those that the file does not hold are 0.
class Palette
{
public:
    explicit Palette(const ByteView& file)
        : mFile(file), mOffset(ByteView::Offset(InformationOffset) + file.getLong(InformationOffset))
    {
    }

    // On purpose: an entry is taken as it stands, blue in the place of red and the unused byte as alpha.
    sPixel get(unsigned int index) const
    {
        const ByteView::Offset entry = mOffset + index * NativeTexture::BytesPerPixel;
        return {{mFile.getByte(entry), mFile.getByte(entry + 1), mFile.getByte(entry + 2), mFile.getByte(entry + 3)}};
    }

private:
    const ByteView& mFile;
    ByteView::Offset mOffset;
};

sPixel convert1(const unsigned char* row, unsigned int x, const Palette& palette)
{
    sPixel pixel = palette.get(row[x / 8] >> (7 - x % 8) & 1);
    pixel.bytes[3] = Opaque;
    return pixel;
}

sPixel convert4(const unsigned char* row, unsigned int x, const Palette& palette)
{
    return palette.get(x % 2 ? row[x / 2] & 0xF : row[x / 2] >> 4);
}

sPixel convert8(const unsigned char* row, unsigned int x, const Palette& palette)
{
    return palette.get(row[x]);
}

// On purpose: these masks leave red at 0 and green at 0 or 8.
sPixel convert16(const unsigned char* row, unsigned int x, const Palette&)
{
    const unsigned int value = row[x * 2] | row[x * 2 + 1] << 8;
    return {{static_cast<unsigned char>((value & 0x7C) >> 10 << 3),
             static_cast<unsigned char>((value & 0x3E) >> 5 << 3), static_cast<unsigned char>((value & 0x1F) << 3),
             Opaque}};
}

sPixel convert24(const unsigned char* row, unsigned int x, const Palette&)
{
    const unsigned char* source = row + x * 3;
    return {{source[2], source[1], source[0], Opaque}};
}

// On purpose: a row of 32 bits a pixel is read in steps of three bytes.
sPixel convert32(const unsigned char* row, unsigned int x, const Palette& palette)
{
    return convert24(row, x, palette);
}

struct sConverter
{
    unsigned int bitCount;
    unsigned int (*getStride)(unsigned int width);
    sPixel (*convert)(const unsigned char* row, unsigned int x, const Palette& palette);
};

constexpr sConverter Converters[] = {
    {1, [](unsigned int width) { return ((width + 31) & ~31u) / 8; }, convert1},
    {4, [](unsigned int width) { return ((width + 7) & ~7u) / 2; }, convert4},
    {8, [](unsigned int width) { return (width + 3) & ~3u; }, convert8},
    {16, [](unsigned int width) { return width * 2; }, convert16},
    {24, [](unsigned int width) { return (width * 3 + 3) & ~3u; }, convert24},
    {32, [](unsigned int width) { return width * 4; }, convert32},
};

const sConverter* findConverter(unsigned int bitCount)
{
    for (const sConverter& converter : Converters)
        if (converter.bitCount == bitCount)
            return &converter;
    return nullptr;
}

void convertRows(const sConverter& converter, const ByteView& file, const sSize& size, bool fromTop,
                 unsigned char* target)
{
    const Palette palette(file);
    const unsigned char* pixels = file.at(file.getLong(PixelsOffset));
    const unsigned int stride = converter.getStride(size.width);
    for (unsigned int y = 0; y < size.height; ++y)
    {
        const unsigned char* row = pixels + stride * (fromTop ? y : size.height - y - 1);
        for (unsigned int x = 0; x < size.width; ++x)
        {
            const sPixel pixel = converter.convert(row, x, palette);
            for (unsigned char byte : pixel.bytes)
                *target++ = byte;
        }
    }
}

bool refuse(const char* reason)
{
    DEV_TRACE("TextureResourceBMP : %s\n", reason);
    return false;
}
}

bool TextureResourceBMP::decode(const ByteView& file, sSize& size)
{
    if (file.getWord(0) != Magic)
        return refuse("No bitmap.");
    if (!file.contains(0, HeaderSize))
        return refuse("Header is missing.");
    if (file.getLong(CompressionOffset) != 0)
        return refuse("Could not read compression bitmap.");

    const int width = static_cast<int>(file.getLong(WidthOffset));
    const int height = static_cast<int>(file.getLong(HeightOffset));
    const bool fromTop = height < 0;
    const long long rows = fromTop ? -static_cast<long long>(height) : height;
    if (!isPictureSize(width, rows))
        return false;
    size = {static_cast<unsigned int>(width), static_cast<unsigned int>(rows)};

    // On purpose: a bit count without a converter leaves the picture empty and is no failure.
    const sConverter* converter = findConverter(file.getWord(BitCountOffset));
    if (converter &&
        !file.contains(file.getLong(PixelsOffset), ByteView::Offset(converter->getStride(size.width)) * size.height))
        return refuse("Pixels are missing.");
    unsigned char* pixels = replacePixels(size);
    if (pixels && converter)
        convertRows(*converter, file, size, fromTop, pixels);
    return pixels != nullptr;
}
