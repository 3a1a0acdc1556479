#include "render/replay.h"

#include "render/command.h"
#include "render/renderdevice.h"
#include "render/texture.h"
#include "render/vertex.h"

namespace
{
// Equal to no value of a command, so that the first one is always handed on.
constexpr unsigned int Unset = 2;

// Sorted commands lie anywhere in more memory than a cache holds, so each is asked for some draws ahead.
constexpr unsigned int FetchDistance = 8;

void fetch(const sCommand* command)
{
    constexpr unsigned int LineSize = 64;
    for (unsigned int offset = 0; offset < sizeof(sDrawCommand); offset += LineSize)
        __builtin_prefetch(reinterpret_cast<const char*>(command) + offset);
}

template <typename T, typename Apply>
void applyChange(T& current, const T& wanted, Apply apply)
{
    if (current == wanted)
        return;
    apply(wanted);
    current = wanted;
}
}

Replay::Replay(RenderDevice& device, const sRect& window, const void* memory, const void* joined)
    : mDevice(device),
      mpMemory(static_cast<const unsigned char*>(memory)),
      mpJoined(static_cast<const unsigned char*>(joined)),
      mWindow(window),
      mTargetRect(window),
      mViewport(window),
      mScissor(window),
      mProjection(window),
      mCombineMode(static_cast<eTextureCombineMode>(Unset))
{
}

unsigned int Replay::execute(const sCommand* const* commands, unsigned int num)
{
    mDevice.setViewport(mViewport, mTargetRect);
    mDevice.setScissor(mScissor, mTargetRect);
    mDevice.setProjection(mProjection);

    unsigned int drawNum = 0;
    for (unsigned int i = 0; commands[i]->kind != eCommand::End; ++i)
    {
        if (i + FetchDistance < num)
            fetch(commands[i + FetchDistance]);
        if (commands[i]->kind == eCommand::Clear)
            clear(static_cast<const sClearCommand&>(*commands[i]));
        if (commands[i]->kind != eCommand::Draw && commands[i]->kind != eCommand::JoinedDraw)
            continue;
        draw(static_cast<const sDrawCommand&>(*commands[i]));
        ++drawNum;
    }
    return drawNum;
}

void Replay::clear(const sClearCommand& command)
{
    applyChange(mpTarget, command.target,
                [this](Texture* target)
                {
                    mDevice.setRenderTarget(target);
                    mTargetRect = target ? sRect(target->getWidth(), target->getHeight()) : mWindow;
                    mDevice.setViewport(mViewport, mTargetRect);
                    mDevice.setScissor(mScissor, mTargetRect);
                });
    mDevice.clear(command.color, command.rect, mTargetRect);
}

void Replay::draw(const sDrawCommand& command)
{
    // On purpose: only a clear changes the target rectangle, by which the rectangles of all draws are placed.
    applyChange(mpTarget, command.target, [this](Texture* target) { mDevice.setRenderTarget(target); });
    applyChange(mBlendMode, command.state.getBlendMode(),
                [this](eBlendMode mode) { mDevice.setBlendMode(mode, mBlendMode); });
    applyTexture(command);
    applyChange(mViewport, command.viewport, [this](const sRect& rect) { mDevice.setViewport(rect, mTargetRect); });
    applyChange(mScissor, command.scissor, [this](const sRect& rect) { mDevice.setScissor(rect, mTargetRect); });
    applyChange(mProjection, command.projection, [this](const sRect& rect) { mDevice.setProjection(rect); });
    drawVertices(command);
}

void Replay::applyTexture(const sDrawCommand& command)
{
    const bool textured = command.state.getVertexDecl() == eVertexDecl::Textured;
    applyChange(mpTexture, textured ? command.texture : nullptr,
                [this](Texture* texture) { mDevice.setTexture(texture, mpTarget); });
    if (!mpTexture)
        return;

    // The library keeps the filtering with the texture, beyond the frame.
    if (mpTexture->changeFiltering(command.state.getFiltering()))
        mDevice.setTextureFiltering(command.state.getFiltering());
    applyChange(mCombineMode, command.state.getCombineMode(),
                [this](eTextureCombineMode mode) { mDevice.setTextureCombineMode(mode); });
}

void Replay::drawVertices(const sDrawCommand& command)
{
    const bool joined = command.kind == eCommand::JoinedDraw;
    const eVertexDecl declaration = joined ? eVertexDecl::Joined : command.state.getVertexDecl();
    const auto offset = static_cast<const unsigned char*>(command.vertices) - (joined ? mpJoined : mpMemory);
    mDevice.drawVertices(command.state.getPrimitiveType(),
                         static_cast<unsigned int>(offset) / getDeviceStride(declaration), command.state.vertexNum,
                         declaration);
}
