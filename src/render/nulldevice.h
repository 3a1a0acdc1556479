#pragma once

#include "render/renderdevice.h"

// The device where there is no graphics library: textures stay nameless and nothing is drawn.
class NullDevice : public RenderDevice
{
public:
    sJoinedDeviceVertex* makeJoinedRoom(unsigned int) override { return nullptr; }
    void beginScene(const sRect&, const void*, unsigned int) override {}
    void endScene() override {}
    void clear(sColor, const sRect&, const sRect&) override {}
    void setProjection(const sRect&) override {}
    void setViewport(const sRect&, const sRect&) override {}
    void setScissor(const sRect&, const sRect&) override {}
    void setBlendMode(eBlendMode, eBlendMode) override {}
    void setRenderTarget(Texture*) override {}
    void setTexture(Texture*, Texture*) override {}
    void setTextureFiltering(eTextureFiltering) override {}
    void setTextureCombineMode(eTextureCombineMode) override {}
    void drawVertices(ePrimitiveType, unsigned int, unsigned int, eVertexDecl) override {}
    sTextureHandle createTexture(unsigned int, unsigned int, bool, const void*) override { return {}; }
    void deleteTexture(const sTextureHandle&) override {}
    void bindTexture(const Texture&) override {}
    void readPixels(const sRect&, const sRect&, sColor*) override {}
};
