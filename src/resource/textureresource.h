#pragma once

#include "resource/resourcebase.h"

class FileStream;
class Texture;

// A picture in the native "tex" form: a header of 12 bytes, then four bytes a pixel, rows from the top. The texture
// exists from a successful load on; without one the resource stands for a picture that could not be had.
class TextureResource : public ResourceBase
{
    REFLECTED(TextureResource)

public:
    TextureResource();
    ~TextureResource() override;

    bool load(Stream& stream) override;

    const char* getExtension() const override { return "tex"; }
    const TypeInfo* getIntermediateType() const override;
    const TypeInfo* getExtraIntermediateType(unsigned int index) const override;
    const char* getFilter() const override { return "tex|Texture"; }

    Texture* getTexture() const { return mpTexture; }
    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }

protected:
    // Whether a texture of that size can be made; traced if not.
    [[nodiscard]] static bool isPictureSize(long long width, long long height);

    // The end of every load: the texture takes the place of the former one, the path is set unless there is one.
    [[nodiscard]] bool finishLoad(unsigned int width, unsigned int height, const unsigned char* pixels,
                                  const Stream& stream);

private:
    Texture* mpTexture = nullptr;
    unsigned int mWidth = 0;
    unsigned int mHeight = 0;
};
