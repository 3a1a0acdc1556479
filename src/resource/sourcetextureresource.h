#pragma once

#include "foundation/ssize.h"
#include "resource/textureresource.h"

class ByteView;

// What the source forms of a picture share. The decoded pixels, four bytes each in rows from the top, stay with the
// resource because convert() writes them into the native file.
class SourceTextureResource : public TextureResource
{
public:
    SourceTextureResource();
    ~SourceTextureResource() override;

    bool load(Stream& stream) override;
    bool convert(Stream& stream) override;

protected:
    // Checks the file, takes a block with replacePixels() and fills it. False, with a trace, for a file that is not
    // of the form or lacks anything; then nothing has been read outside it.
    [[nodiscard]] virtual bool decode(const ByteView& file, sSize& size) = 0;

    // The zeroed block of a picture of that size in place of the former one; null, with a trace, without memory.
    unsigned char* replacePixels(const sSize& size);

private:
    void releasePixels();

    unsigned char* mpPixels = nullptr;
};
