#pragma once

#include "foundation/scolor.h"
#include "foundation/srect.h"
#include "render/drawstate.h"

class Texture;
struct sJoinedDeviceVertex;

// What the graphics library knows of a texture; 0 is nothing.
struct sTextureHandle
{
    unsigned int texture = 0;
    unsigned int framebuffer = 0;
};

// The seam between the replay of commands and the graphics library. Every operation is called on the main thread and
// with a changed value only; the replay keeps the state that is set. Rectangles run from the top left, a target
// rectangle from the origin. A device without a library has empty operations, so that all else runs without one.
class RenderDevice
{
public:
    // What one draw takes at most.
    static constexpr unsigned int MaximumQuadNum = 4096;

    virtual ~RenderDevice() = default;

    // Room for `num` vertices of joined draws, to be written only, and before the scene begins. Null where there is
    // none.
    virtual sJoinedDeviceVertex* makeJoinedRoom(unsigned int num) = 0;

    // Resets the state of the library, clears the window and receives the vertices of the frame: all of `memory`,
    // in which draws then find theirs by index, and what has been written to the room for joined ones.
    virtual void beginScene(const sRect& window, const void* memory, unsigned int size) = 0;
    virtual void endScene() = 0;

    virtual void clear(sColor color, const sRect& rect, const sRect& target) = 0;
    virtual void setProjection(const sRect& rect) = 0;
    virtual void setViewport(const sRect& rect, const sRect& target) = 0;
    virtual void setScissor(const sRect& rect, const sRect& target) = 0;
    virtual void setBlendMode(eBlendMode mode, eBlendMode previous) = 0;

    // Null is the window.
    virtual void setRenderTarget(Texture* target) = 0;

    // `target` is the one that is set; a texture is never drawn into itself. Null unbinds.
    virtual void setTexture(Texture* texture, Texture* target) = 0;
    virtual void setTextureFiltering(eTextureFiltering filtering) = 0;
    virtual void setTextureCombineMode(eTextureCombineMode mode) = 0;

    // `first` counts vertices of that declaration from the start of the frame's memory, or of the room for joined ones.
    virtual void drawVertices(ePrimitiveType type, unsigned int first, unsigned int count, eVertexDecl declaration) = 0;

    // `pixels` may be null. What the library refuses stops the program.
    virtual sTextureHandle createTexture(unsigned int width, unsigned int height, bool renderTarget,
                                         const void* pixels) = 0;
    virtual void deleteTexture(const sTextureHandle& handle) = 0;
    virtual void bindTexture(const Texture& texture) = 0;

    // The picture behind `rect` of the window, the top row first.
    virtual void readPixels(const sRect& rect, const sRect& window, sColor* pixels) = 0;
};
