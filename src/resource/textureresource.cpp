#include "resource/textureresource.h"

#include "foundation/dev.h"
#include "io/stream.h"
#include "render/texture.h"
#include "resource/fileblock.h"
#include "resource/nativetexture.h"
#include "resource/textureresourcebmp.h"
#include "resource/textureresourcetga.h"

REFLECT(TextureResource, eTypeAttribute::None, "ResourceBase");

namespace
{
constexpr long long MaximumSize = 1024;
}

TextureResource::TextureResource()
{
    setAttribute(Native);
}

TextureResource::~TextureResource()
{
    if (mpTexture)
        mpTexture->release();
}

bool TextureResource::load(Stream& stream)
{
    const FileBlock file(stream);
    const ByteView& view = file.getView();
    if (view.getLong(NativeTexture::MagicOffset) != NativeTexture::Magic ||
        view.getLong(NativeTexture::VersionOffset) != NativeTexture::Version)
        return false;

    const unsigned int width = view.getWord(NativeTexture::WidthOffset);
    const unsigned int height = view.getWord(NativeTexture::HeightOffset);
    if (!isPictureSize(width, height))
        return false;
    if (!view.contains(NativeTexture::HeaderSize, NativeTexture::getPixelSize(width, height)))
    {
        DEV_TRACE("Texture : Pixels are missing.\n");
        return false;
    }
    // On purpose: the pixels are taken from the start of the file. The header shows as the first three of them and
    // the last three are not used.
    return finishLoad(width, height, view.at(0), stream);
}

const TypeInfo* TextureResource::getIntermediateType() const
{
    return TextureResourceTGA::getStaticTypeInfo();
}

const TypeInfo* TextureResource::getExtraIntermediateType(unsigned int index) const
{
    return index == 0 ? TextureResourceBMP::getStaticTypeInfo() : nullptr;
}

bool TextureResource::isPictureSize(long long width, long long height)
{
    if (width >= 1 && width <= MaximumSize && height >= 1 && height <= MaximumSize)
        return true;
    DEV_TRACE("Texture : Size is not within 1 to %d.\n", static_cast<int>(MaximumSize));
    return false;
}

bool TextureResource::finishLoad(unsigned int width, unsigned int height, const unsigned char* pixels,
                                 const Stream& stream)
{
    if (mpTexture)
        mpTexture->release();
    mpTexture = new Texture(width, height, false, pixels);
    if (!mpTexture)
    {
        DEV_TRACE("Texture : Not enough memory.\n");
        return false;
    }
    mWidth = width;
    mHeight = height;
    if (getPath().empty())
        setPath(static_cast<const FileStream&>(stream).getPath());
    return true;
}
