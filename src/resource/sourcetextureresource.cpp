#include "resource/sourcetextureresource.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "resource/fileblock.h"
#include "resource/nativetexture.h"

#include <cstring>

namespace
{
void putNumber(unsigned char* target, unsigned int value, unsigned int bytes)
{
    for (unsigned int i = 0; i < bytes; ++i)
        target[i] = static_cast<unsigned char>(value >> (8 * i));
}

unsigned int getBlockSize(const sSize& size)
{
    return static_cast<unsigned int>(NativeTexture::getPixelSize(size.width, size.height));
}
}

SourceTextureResource::SourceTextureResource()
{
    setAttribute(Intermediate | BinaryIntermediate);
}

SourceTextureResource::~SourceTextureResource()
{
    releasePixels();
}

bool SourceTextureResource::load(Stream& stream)
{
    const FileBlock file(stream);
    sSize size = sSize::Zero;
    return !file.empty() && decode(file.getView(), size) && finishLoad(size.width, size.height, mpPixels, stream);
}

bool SourceTextureResource::convert(Stream& stream)
{
    if (stream.getType() != Stream::BinaryFile || !getTexture() || !mpPixels)
        return false;

    unsigned char header[NativeTexture::HeaderSize];
    putNumber(header + NativeTexture::MagicOffset, NativeTexture::Magic, 4);
    putNumber(header + NativeTexture::VersionOffset, NativeTexture::Version, 4);
    putNumber(header + NativeTexture::WidthOffset, getWidth(), 2);
    putNumber(header + NativeTexture::HeightOffset, getHeight(), 2);

    BinaryFileStream& file = static_cast<BinaryFileStream&>(stream);
    const unsigned int size = getBlockSize({getWidth(), getHeight()});
    return file.write(header, sizeof(header)) == sizeof(header) && file.write(mpPixels, size) == size;
}

unsigned char* SourceTextureResource::replacePixels(const sSize& size)
{
    releasePixels();
    mpPixels = static_cast<unsigned char*>(allocate(getBlockSize(size)));
    if (mpPixels)
        std::memset(mpPixels, 0, getBlockSize(size));
    else
        DEV_TRACE("Texture : Not enough memory.\n");
    return mpPixels;
}

void SourceTextureResource::releasePixels()
{
    deallocate(mpPixels);
    mpPixels = nullptr;
}
