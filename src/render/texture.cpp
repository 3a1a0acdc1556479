#include "render/texture.h"

#include "foundation/dev.h"
#include "render/rendersystem.h"

#include <cstring>
#include <new>

REFLECT(Texture, eTypeAttribute::None, "ObjectBase");

namespace
{
constexpr unsigned int TexelSize = 4;
}

Texture::Texture()
{
    RenderSystem::getInstance()->registTexture(this);
}

Texture::Texture(unsigned int width, unsigned int height, bool renderTarget, const void* pixels)
    : mWidth(width), mHeight(height), mRenderTarget(renderTarget), mDirty(true)
{
    if (width > MaximumSize || height > MaximumSize)
        dev_assert("Requesed texture size is greater than 1024.", __FILE__, __LINE__);

    RenderSystem* system = RenderSystem::getInstance();
    if (RenderDevice* device = system->getCurrentDevice())
        mHandle = device->createTexture(width, height, renderTarget, pixels);
    else
        keepPixels(pixels);
    system->registTexture(this);
}

Texture::~Texture()
{
    delete[] mpPixels;
}

void Texture::bind(RenderDevice& device)
{
    device.bindTexture(*this);
    mDirty = false;
}

bool Texture::changeFiltering(eTextureFiltering filtering)
{
    if (mFiltered && mFiltering == filtering)
        return false;
    mFiltered = true;
    mFiltering = filtering;
    return true;
}

void Texture::realize(RenderDevice& device)
{
    if (!mPending)
        return;
    mHandle = device.createTexture(mWidth, mHeight, mRenderTarget, mpPixels);
    mPending = false;
    delete[] mpPixels;
    mpPixels = nullptr;
}

void Texture::discard(RenderDevice& device)
{
    device.deleteTexture(mHandle);
    mHandle = {};
}

void Texture::keepPixels(const void* pixels)
{
    mPending = true;
    if (!pixels || mRenderTarget)
        return;
    const std::size_t size = std::size_t{mWidth} * mHeight * TexelSize;
    mpPixels = new (std::nothrow) unsigned char[size];
    if (!mpPixels)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    std::memcpy(mpPixels, pixels, size);
}
