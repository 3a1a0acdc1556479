#pragma once

#include "foundation/srect.h"
#include "render/drawstate.h"

class RenderDevice;
class Texture;
struct sClearCommand;
struct sCommand;
struct sDrawCommand;

// One walk over the sorted commands of a frame. It knows the state that the device is in and hands on only what
// changes. It allocates nothing.
class Replay
{
public:
    // `memory` is where the frame's commands and vertices start, `joined` where the vertices of joined draws do.
    Replay(RenderDevice& device, const sRect& window, const void* memory, const void* joined);

    // Walks up to the end command, passing over what is neither a clear nor a draw. Returns the number of draws. There
    // is room for `num` commands in the list, whatever stands behind its end.
    unsigned int execute(const sCommand* const* commands, unsigned int num);

private:
    void clear(const sClearCommand& command);
    void draw(const sDrawCommand& command);
    void applyTexture(const sDrawCommand& command);
    void drawVertices(const sDrawCommand& command);

    RenderDevice& mDevice;
    const unsigned char* mpMemory;
    const unsigned char* mpJoined;
    sRect mWindow;
    sRect mTargetRect;
    sRect mViewport;
    sRect mScissor;
    sRect mProjection;
    Texture* mpTarget = nullptr;
    Texture* mpTexture = nullptr;
    eBlendMode mBlendMode = eBlendMode::Opaque;
    eTextureCombineMode mCombineMode;
};
