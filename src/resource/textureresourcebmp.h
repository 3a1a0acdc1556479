#pragma once

#include "resource/sourcetextureresource.h"

// An uncompressed bitmap of 1, 4, 8, 16, 24 or 32 bits a pixel. Other depths load as an empty picture.
class TextureResourceBMP : public SourceTextureResource
{
    REFLECTED(TextureResourceBMP)

public:
    const char* getExtension() const override { return "bmp"; }
    const char* getFilter() const override { return "bmp|Bitmap"; }

protected:
    bool decode(const ByteView& file, sSize& size) override;
};
