#pragma once

#include "reflection/reflect.h"
#include "render/renderdevice.h"
#include "render/renderobject.h"

// A rectangle of RGBA texels, or an offscreen target that can be used as one. Coordinates count texels from the top
// left. Any thread may make one; the graphics library sees it on the main thread, at the next replay if need be.
class Texture : public RenderObject
{
    REFLECTED(Texture)

public:
    static constexpr unsigned int MaximumSize = 1024;

    // Of no size, for what only a document names.
    Texture();

    // `pixels` holds width * height times four bytes, the top row first, and is read during the call only; it may be
    // null. A target ignores it.
    Texture(unsigned int width, unsigned int height, bool renderTarget, const void* pixels);

    unsigned int getWidth() const { return mWidth; }
    unsigned int getHeight() const { return mHeight; }
    bool isRenderTarget() const { return mRenderTarget; }

    // The library's name of it, 0 where there is none.
    unsigned int getName() const { return mHandle.texture; }

    // The handle of the offscreen target, 0 where there is none.
    unsigned int getRenderTargetContext() const { return mHandle.framebuffer; }

    // Whether the target was drawn into since it was last bound.
    bool isDirty() const { return mDirty; }
    void setDirty() { mDirty = true; }

    // Main thread only, like all that follows. Makes this the texture of the next draws.
    void bind(RenderDevice& device);

    // Notes how the texture is filtered from now on. False if it is so already.
    bool changeFiltering(eTextureFiltering filtering);

    // Makes the library's objects of a texture that came from another thread; does nothing for all others.
    void realize(RenderDevice& device);

    // Gives the library's objects back; RenderSystem deletes the texture next.
    void discard(RenderDevice& device);

private:
    ~Texture() override;

    friend class RenderSystem;

    void keepPixels(const void* pixels);

    unsigned int mWidth = 0;
    unsigned int mHeight = 0;
    bool mRenderTarget = false;
    bool mDirty = false;
    bool mPending = false;
    bool mFiltered = false;
    eTextureFiltering mFiltering = eTextureFiltering::Nearest;
    sTextureHandle mHandle;
    unsigned char* mpPixels = nullptr;
};
