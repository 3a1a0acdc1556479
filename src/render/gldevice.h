#pragma once

#include "render/renderdevice.h"

// The device on OpenGL, in the context that is current. Vertices of the whole frame go to one buffer, and those of
// joined draws are written to another where it lies; one array object for each declaration finds them there by index,
// so that a draw sets no pointers. Rectangles run from the top left, the library from the bottom left: this class turns
// them over. A picture drawn into a texture therefore lies in it with the bottom row first, and is turned over once
// more by the texture matrix where it is used.
class GLDevice : public RenderDevice
{
public:
    // Null when no library answers. One that lacks what is needed stops the program.
    static GLDevice* create(const sRect& window);
    ~GLDevice() override;

    GLDevice(const GLDevice&) = delete;
    GLDevice& operator=(const GLDevice&) = delete;

    sJoinedDeviceVertex* makeJoinedRoom(unsigned int num) override;
    void beginScene(const sRect& window, const void* memory, unsigned int size) override;
    void endScene() override;
    void clear(sColor color, const sRect& rect, const sRect& target) override;
    void setProjection(const sRect& rect) override;
    void setViewport(const sRect& rect, const sRect& target) override;
    void setScissor(const sRect& rect, const sRect& target) override;
    void setBlendMode(eBlendMode mode, eBlendMode previous) override;
    void setRenderTarget(Texture* target) override;
    void setTexture(Texture* texture, Texture* target) override;
    void setTextureFiltering(eTextureFiltering filtering) override;
    void setTextureCombineMode(eTextureCombineMode mode) override;
    void drawVertices(ePrimitiveType type, unsigned int first, unsigned int count, eVertexDecl declaration) override;
    sTextureHandle createTexture(unsigned int width, unsigned int height, bool renderTarget,
                                 const void* pixels) override;
    void deleteTexture(const sTextureHandle& handle) override;
    void bindTexture(const Texture& texture) override;
    void readPixels(const sRect& rect, const sRect& window, sColor* pixels) override;

private:
    static constexpr unsigned int DeclarationNum = 3;

    explicit GLDevice(const sRect& window);

    void makeQuadIndex();
    void makeArrays();
    void finishJoinedRoom();
    void drawQuads(unsigned int first, unsigned int quadNum);
    void setDeclaration(eVertexDecl declaration);
    void setTextureHeight(unsigned int height);

    unsigned int mVertexBuffer = 0;
    unsigned int mIndexBuffer = 0;
    unsigned int mArray[DeclarationNum] = {};

    // The room for joined vertices: its buffer, how many that has been made for, and whether they can be written now.
    unsigned int mJoinedBuffer = 0;
    unsigned int mJoinedNum = 0;
    bool mJoinedMapped = false;

    sRect mScissorBox = sRect::Zero;
    eVertexDecl mDeclaration = eVertexDecl::Plain;
    bool mTextureEnabled = false;

    // The height by which the texture matrix turns coordinates over, 0 where it leaves them alone.
    unsigned int mTextureHeight = 0;
};
