#include "render/commandjoin.h"

#include "render/command.h"
#include "render/quadwriter.h"
#include "render/renderdevice.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <numeric>

#include <emmintrin.h>

namespace
{
constexpr std::size_t MaximumVertexNum = RenderDevice::MaximumQuadNum * QuadWriter::VertexNum;

constexpr unsigned int StrideMultiple = std::lcm(sizeof(sPlainDeviceVertex), sizeof(sTexturedDeviceVertex));

// The commands of a run.
constexpr unsigned int CommandSize = 2 * sizeof(sDrawCommand);

// What stays where it is takes more of the memory than that, or is moved.
constexpr unsigned int KeptShare = 8;

// No primitive has fewer vertices.
constexpr unsigned int SmallestPrimitive = 2;

unsigned int getMaximumQuadNum(const sDrawCommand& command)
{
    return command.state.vertexNum / SmallestPrimitive;
}

unsigned int alignUp(unsigned int offset, unsigned int step)
{
    return (offset + step - 1) / step * step;
}

bool isPrimitiveJoinable(const sDrawState& state)
{
    const bool plain = state.getVertexDecl() == eVertexDecl::Plain;
    return state.getPrimitiveType() >= (plain ? ePrimitiveType::Lines : ePrimitiveType::Triangles);
}

unsigned int getVertexSize(const sDrawCommand& command)
{
    return command.state.vertexNum * getDeviceStride(command.state.getVertexDecl());
}

bool isOpaque(const sDrawCommand& command)
{
    const auto* vertices = static_cast<const sPlainDeviceVertex*>(command.vertices);
    return std::all_of(vertices, vertices + command.state.vertexNum,
                       [](const sPlainDeviceVertex& vertex) { return vertex.color.a == 255; });
}

// Whether a pixel of the target is a pixel of the projection.
bool isUnscaled(const sDrawCommand& command)
{
    return command.viewport.getWidth() == command.projection.getWidth() &&
           command.viewport.getHeight() == command.projection.getHeight();
}

__m128 toFloat(const sRect& rect)
{
    return _mm_cvtepi32_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(&rect)));
}

// The scissor inside the viewport, counted as the vertices are. Where the two do not meet it is turned around, and
// nothing lies inside.
QuadWriter::sBox getBox(const sDrawCommand& command)
{
    const __m128 scissor = toFloat(command.scissor);
    const __m128 viewport = toFloat(command.viewport);
    const __m128 common =
        _mm_shuffle_ps(_mm_max_ps(scissor, viewport), _mm_min_ps(scissor, viewport), _MM_SHUFFLE(3, 2, 1, 0));
    const __m128 offset = _mm_sub_ps(toFloat(command.projection), viewport);
    QuadWriter::sBox box;
    _mm_storeu_ps(&box.left, _mm_add_ps(common, _mm_movelh_ps(offset, offset)));
    return box;
}

template <typename Vertex>
bool writeAll(QuadWriter& writer, const sDrawCommand& command)
{
    const Vertex* vertices = static_cast<const Vertex*>(command.vertices);
    return command.state.getPrimitiveType() == ePrimitiveType::Quads
               ? writer.writeQuads(vertices, command.state.vertexNum)
               : writer.writeTriangles(vertices, command.state.vertexNum);
}

bool writeAll(QuadWriter& writer, const sDrawCommand& command)
{
    if (command.state.getPrimitiveType() == ePrimitiveType::Lines)
        return writer.writeLines(static_cast<const sPlainDeviceVertex*>(command.vertices), command.state.vertexNum);
    return command.state.getVertexDecl() == eVertexDecl::Plain ? writeAll<sPlainDeviceVertex>(writer, command)
                                                               : writeAll<sTexturedDeviceVertex>(writer, command);
}
}

CommandJoin::CommandJoin(unsigned int capacity) : mList(capacity)
{
}

void CommandJoin::setSolidTexel(Texture* texture, const sTexcoord& place)
{
    mpTexture = texture;
    mSolid = place;
}

const sCommand* const* CommandJoin::join(const sCommand* const* commands, const sRect& window, sCommandMemory& memory)
{
    mSavedNum = 0;
    if (!isActive() || !memory.joined)
        return commands;

    mWindow = window;
    mpMemory = &memory;
    mpJoinedEnd = memory.joined;
    mInWindow = true;
    mRun = {};
    mListNum = 0;
    mKeptSize = 0;
    const unsigned int recorded = memory.used;
    for (; (*commands)->kind != eCommand::End; ++commands)
    {
        if ((*commands)->kind == eCommand::Draw)
            addDraw(static_cast<const sDrawCommand&>(**commands));
        else if ((*commands)->kind == eCommand::Clear)
            addClear(static_cast<const sClearCommand&>(**commands));
    }
    finishRun();
    gatherKept(recorded);
    append(*commands);
    return mList.data();
}

void CommandJoin::addDraw(const sDrawCommand& command)
{
    if (isJoinable(command) && makeRoom(command) && write(command))
    {
        mRun.last = &command;
        ++mRun.drawNum;
        return;
    }
    finishRun();
    keep(command);
}

// The device clears inside the scissor that the last draw has left, so that what was joined leaves it as well.
void CommandJoin::addClear(const sClearCommand& command)
{
    const sRun run = mRun;
    finishRun();
    if (run.drawNum > 1)
    {
        sDrawCommand* silent = run.command + 1;
        *silent = *run.last;
        silent->state.vertexNum = 0;
        keep(*silent);
        --mSavedNum;
    }
    mInWindow = command.target == nullptr;
    append(&command);
}

// Mixing writes what overwriting writes, where the colour is opaque.
bool CommandJoin::isJoinable(const sDrawCommand& command) const
{
    const sDrawState& state = command.state;
    if (command.target || !mInWindow || !isPrimitiveJoinable(state))
        return false;
    if (state.getVertexDecl() == eVertexDecl::Plain)
        return state.getBlendMode() == eBlendMode::Alpha ||
               (state.getBlendMode() == eBlendMode::Opaque && isOpaque(command));
    return command.texture == mpTexture && state.getBlendMode() == eBlendMode::Alpha &&
           state.getFiltering() == eTextureFiltering::Nearest &&
           state.getCombineMode() == eTextureCombineMode::Modulate;
}

// Sees to a run that can take the command as a whole, where a pixel of the target is a pixel of the projection.
bool CommandJoin::makeRoom(const sDrawCommand& command)
{
    const unsigned int vertexNum = getMaximumQuadNum(command) * QuadWriter::VertexNum;
    const bool open =
        mRun.command && mRun.command->viewport == command.viewport && mRun.command->projection == command.projection;
    if (open && mRun.end + vertexNum <= mRun.limit)
        return true;

    finishRun();
    if (!isUnscaled(command) || (command.viewport & mWindow) != command.viewport)
        return false;
    startRun(command);
    return mRun.command && mRun.end + vertexNum <= mRun.limit;
}

void CommandJoin::startRun(const sDrawCommand& command)
{
    const unsigned int place = alignUp(mpMemory->used, alignof(sDrawCommand));
    if (place + CommandSize > mpMemory->capacity)
        return;
    mRun.first = &command;
    mRun.memoryUsed = mpMemory->used;
    mpMemory->used = place + CommandSize;
    mRun.command = reinterpret_cast<sDrawCommand*>(mpMemory->begin + place);
    mRun.vertices = mpJoinedEnd;
    mRun.end = mRun.vertices;
    const auto room = static_cast<std::size_t>(mpMemory->joined + mpMemory->joinedNum - mpJoinedEnd);
    mRun.limit = mRun.vertices + std::min(room, MaximumVertexNum);

    *mRun.command = command;
    mRun.command->kind = eCommand::JoinedDraw;
    mRun.command->state = {static_cast<unsigned int>(eBlendMode::Alpha),
                           static_cast<unsigned int>(ePrimitiveType::Quads),
                           static_cast<unsigned int>(eTextureFiltering::Nearest),
                           static_cast<unsigned int>(eTextureCombineMode::Modulate),
                           static_cast<unsigned int>(eVertexDecl::Textured),
                           0,
                           0};
    mRun.command->vertices = mRun.vertices;
    mRun.command->texture = mpTexture;
    mRun.command->scissor = command.viewport;
}

// One draw alone stays as it is, and its memory is free again.
void CommandJoin::finishRun()
{
    if (mRun.drawNum > 1)
    {
        mRun.command->state.vertexNum = static_cast<unsigned int>(mRun.end - mRun.vertices) & 0xFFFF;
        mpJoinedEnd = mRun.end;
        append(mRun.command);
        mSavedNum += mRun.drawNum - 1;
    }
    else if (mRun.command)
        mpMemory->used = mRun.memoryUsed;
    if (mRun.drawNum == 1)
        keep(*mRun.first);
    mRun = {};
}

void CommandJoin::keep(const sDrawCommand& command)
{
    mKeptSize += getVertexSize(command) + static_cast<unsigned int>(sizeof(sDrawCommand)) + StrideMultiple;
    append(&command);
}

// So that the library is not handed all of the frame's memory for the sake of a few draws.
void CommandJoin::gatherKept(unsigned int recorded)
{
    sCommandMemory& memory = *mpMemory;
    const unsigned int first = alignUp(memory.used, StrideMultiple);
    if (mKeptSize > recorded / KeptShare || first + mKeptSize > memory.capacity)
        return;
    memory.used = first;
    memory.first = first;
    for (unsigned int i = 0; i < mListNum; ++i)
    {
        if (mList[i]->kind != eCommand::Draw)
            continue;
        mList[i] = moveToEnd(static_cast<const sDrawCommand&>(*mList[i]));
    }
}

const sDrawCommand* CommandJoin::moveToEnd(const sDrawCommand& command)
{
    sCommandMemory& memory = *mpMemory;
    const unsigned int place = alignUp(memory.used, alignof(sDrawCommand));
    const unsigned int vertices = alignUp(place + static_cast<unsigned int>(sizeof(sDrawCommand)),
                                          getDeviceStride(command.state.getVertexDecl()));
    memory.used = vertices + getVertexSize(command);
    std::memcpy(memory.begin + vertices, command.vertices, getVertexSize(command));
    sDrawCommand* moved = new (memory.begin + place) sDrawCommand(command);
    moved->vertices = memory.begin + vertices;
    return moved;
}

// Leaves no trace of a command of which a part cannot be written.
bool CommandJoin::write(const sDrawCommand& command)
{
    const auto roomNum = static_cast<unsigned int>(mRun.limit - mRun.end) / QuadWriter::VertexNum;
    QuadWriter writer(mRun.end, roomNum - getMaximumQuadNum(command), getBox(command), mSolid);
    if (!writeAll(writer, command))
        return false;
    mRun.end = writer.getEnd();
    return true;
}
