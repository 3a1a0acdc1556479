#include "resource/textureresourcetga.h"

#include "foundation/dev.h"
#include "resource/byteview.h"
#include "resource/nativetexture.h"

#include <cstring>

REFLECT(TextureResourceTGA, eTypeAttribute::None, "TextureResource");

namespace
{
constexpr unsigned int TypeOffset = 2;
constexpr unsigned int WidthOffset = 12;
constexpr unsigned int HeightOffset = 14;
constexpr unsigned int DepthOffset = 16;
constexpr unsigned int DescriptorOffset = 17;
constexpr unsigned int HeaderSize = 18;

constexpr unsigned char TrueColor = 2;
constexpr unsigned char FromRight = 0x10;
constexpr unsigned char FromTop = 0x20;

void copyPixels(unsigned char* target, const unsigned char* source, const sSize& size, unsigned char descriptor)
{
    for (unsigned int y = 0; y < size.height; ++y)
    {
        const unsigned int row = descriptor & FromTop ? y : size.height - y - 1;
        for (unsigned int x = 0; x < size.width; ++x)
        {
            const unsigned int column = descriptor & FromRight ? size.width - x - 1 : x;
            const unsigned int place = (row * size.width + column) * NativeTexture::BytesPerPixel;
            std::memcpy(target, source + place, NativeTexture::BytesPerPixel);
            target += NativeTexture::BytesPerPixel;
        }
    }
}
}

bool TextureResourceTGA::decode(const ByteView& file, sSize& size)
{
    if (file.getByte(TypeOffset) != TrueColor)
    {
        DEV_TRACE("TextureTGA : No support format.\n");
        return false;
    }
    if (file.getByte(DepthOffset) != 32)
    {
        DEV_TRACE("TextureTGA : Only support 32bits.\n");
        return false;
    }
    size = {file.getWord(WidthOffset), file.getWord(HeightOffset)};
    if (!isPictureSize(size.width, size.height))
        return false;
    // On purpose: the pixels start behind the header, whatever it says of a name field and a colour map.
    if (!file.contains(HeaderSize, NativeTexture::getPixelSize(size.width, size.height)))
    {
        DEV_TRACE("TextureTGA : Pixels are missing.\n");
        return false;
    }
    unsigned char* pixels = replacePixels(size);
    if (pixels)
        copyPixels(pixels, file.at(HeaderSize), size, file.getByte(DescriptorOffset));
    return pixels != nullptr;
}
