#pragma once

#include "resource/sourcetextureresource.h"

// An uncompressed true-colour picture of 32 bits a pixel. The bytes of a pixel stay in the order of the file.
class TextureResourceTGA : public SourceTextureResource
{
    REFLECTED(TextureResourceTGA)

public:
    const char* getExtension() const override { return "tga"; }
    const char* getFilter() const override { return "tga|Targa"; }

protected:
    bool decode(const ByteView& file, sSize& size) override;
};
