#pragma once

#include "foundation/instantallocator.h"
#include "foundation/scolor.h"
#include "foundation/srect.h"
#include "render/command.h"
#include "render/vertex.h"

#include <cstddef>

class RenderSystem;
class Texture;

// One recorder of drawing, owned by RenderSystem and used by one thread at a time. The caller sets state, asks for
// vertices and writes them; runs of equal state become draw commands on their own.
class DrawContext
{
public:
    using eBlendMode = ::eBlendMode;
    using ePrimitiveType = ::ePrimitiveType;
    using eVertexDecl = ::eVertexDecl;
    using eTextureFiltering = ::eTextureFiltering;
    using eTextureCombineMode = ::eTextureCombineMode;

    static constexpr unsigned int MaximumView = 6;

    struct Context
    {
        unsigned int view;
        unsigned int key;
        eBlendMode blendMode;
        ePrimitiveType primitiveType;
        eVertexDecl vertexDecl;
        Texture* texture;
        Texture* renderTarget;
        eTextureFiltering filtering;
        eTextureCombineMode combineMode;
        sRect viewport;
        sRect scissor;
        sRect projection;
    };

    explicit DrawContext(RenderSystem& system);

    DrawContext(const DrawContext&) = delete;
    DrawContext& operator=(const DrawContext&) = delete;

    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block);

    // Each setter does nothing if the value is unchanged; otherwise the next vertices begin a new batch, even if the
    // former value comes back before them.

    // 0 to 6; the lower view is painted first.
    void setView(unsigned int view);

    // The lower level, then the lower sub-level, is painted first. `level` counts to 4095, `subLevel` to 65535.
    void setDrawLevel(unsigned int level, unsigned int subLevel);
    void setBlendMode(eBlendMode mode) { change(mCurrent.blendMode, mode); }
    void setVertexDecl(eVertexDecl declaration) { change(mCurrent.vertexDecl, declaration); }

    // A texture and a target must live until the frame is recorded; null is no texture, and the window.
    void setTexture(Texture* texture);
    void setRenderTarget(Texture* target);
    void setTextureFiltering(eTextureFiltering filtering) { change(mCurrent.filtering, filtering); }
    void setTextureCombineMode(eTextureCombineMode mode) { change(mCurrent.combineMode, mode); }

    // All three in pixels from the top left of the target.
    void setViewport(const sRect& rect) { change(mCurrent.viewport, rect); }
    void setScissorRect(const sRect& rect) { change(mCurrent.scissor, rect); }
    void setProjectionRect(const sRect& rect) { change(mCurrent.projection, rect); }

    // Memory for `count` vertices, sPlainVertex or sTexturedVertex by the declaration that is set, to be written
    // before the next call. At most 1365 plain or 1024 textured ones at once.
    void* allocateVertices(ePrimitiveType type, unsigned int count)
    {
        return allocate(false, type, count * getSourceStride(mCurrent.vertexDecl), count);
    }

    // The same for who writes sPlainDeviceVertex or sTexturedDeviceVertex, in their place for good: z is 0, and plain
    // points and lines run through the centres of pixels. A batch has vertices of one of the two kinds.
    void* allocateDeviceVertices(ePrimitiveType type, unsigned int count)
    {
        return allocate(true, type, count * getDeviceStride(mCurrent.vertexDecl), count);
    }

    // On purpose: enters the system at once, ahead of this context's earlier draws, and so precedes those of its key.
    void clear(const sRect& rect, sColor color);

    // Makes a command of the vertices that are pending.
    void flushVertices();

    const Context& getState() const { return mCurrent; }

    // Commands that the system does not know of yet.
    unsigned int getPendingEntryNum() const { return mEntryNum; }

    // Whether a caller that draws as much as a document holds may go on. Half of the frame is for all others.
    bool hasRoom() const;

    // Called by RenderSystem only: at the start of a frame, at each popContext(), and at the end of the recording.
    void init();
    void setup();
    void final();

private:
    // False if the value is there already.
    template <typename T>
    bool change(T& member, const T& value)
    {
        if (member == value)
            return false;
        member = value;
        mDirty = true;
        return true;
    }

    void* allocate(bool device, ePrimitiveType type, unsigned int size, unsigned int count)
    {
        change(mCurrent.primitiveType, type);
        change(mDevice, device);
        if (mDirty || size == 0 || mVertexFree < size)
            makeRoom(size);
        void* vertices = mpVertexWrite;
        mpVertexWrite += size;
        mVertexFree -= size;
        mVertexNum += count;
        return vertices;
    }

    void makeRoom(unsigned int size);
    void startBatch(unsigned int size);
    void startDeviceBatch(unsigned int size);
    bool moveDeviceBatch(unsigned int size);
    void finishBatch();
    void finishDeviceBatch();
    void fillHead(sDrawCommand& head) const;
    void initCommandBuffer();
    void* allocateCommandBuffer(unsigned int size);
    sDrawCommand* placeCommand(eVertexDecl declaration, unsigned int vertexSize);
    void entryCommand(sCommand* command);
    void flushCommand();
    static void formatVertex(void* destination, const void* source, const sDrawState& state);

    RenderSystem& mSystem;
    unsigned char* mpBlockBegin = nullptr;
    unsigned char* mpBlockEnd = nullptr;
    unsigned char* mpBlockWrite = nullptr;
    Context mCurrent;

    // Of the batch at work, whose vertices either wait for being formatted, or lie behind their command.
    sDrawCommand mHead = {};
    sDrawCommand* mpDeviceBatch = nullptr;
    unsigned char* mpVertexWrite = nullptr;
    unsigned int mVertexFree = 0;
    unsigned int mVertexNum = 0;
    bool mDirty = true;
    bool mDevice = false;
    sCommand** mpEntry = nullptr;
    unsigned int mEntryNum = 0;
    InstantAllocator mVertexAllocator;
    InstantAllocator mEntryAllocator;
};
