#include "render/commandjoin.h"

#include "render/command.h"
#include "render/quadwriter.h"
#include "render/renderdevice.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <numeric>

namespace
{
constexpr unsigned int MaximumVertexNum = RenderDevice::MaximumQuadNum * QuadWriter::VertexNum;

constexpr unsigned int StrideMultiple = std::lcm(sizeof(sPlainDeviceVertex), sizeof(sTexturedDeviceVertex));

// Room for the commands of a run, and for the way to the next multiple of a vertex.
constexpr unsigned int CommandSize = 2 * sizeof(sDrawCommand);
constexpr unsigned int RunSize = CommandSize + alignof(sDrawCommand) + sizeof(sTexturedDeviceVertex);

// What stays where it is takes more of the memory than that, or is moved.
constexpr unsigned int KeptShare = 8;

// No primitive has fewer vertices.
constexpr unsigned int SmallestPrimitive = 2;

unsigned int alignUp(unsigned int offset, unsigned int step)
{
    return (offset + step - 1) / step * step;
}

// Vertices of one primitive; 0 for those that are never joined.
unsigned int getPrimitiveSize(const sDrawState& state)
{
    switch (state.getPrimitiveType())
    {
    case ePrimitiveType::Points: return 0;
    case ePrimitiveType::Lines: return state.getVertexDecl() == eVertexDecl::Plain ? 2 : 0;
    case ePrimitiveType::Triangles: return 3;
    case ePrimitiveType::Quads: return 4;
    }
    return 0;
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

// The scissor, counted as the vertices are.
QuadWriter::sBox getBox(const sDrawCommand& command)
{
    const sRect box = (command.scissor & command.viewport) + sPoint(command.projection.left - command.viewport.left,
                                                                    command.projection.top - command.viewport.top);
    return {static_cast<float>(box.left), static_cast<float>(box.top), static_cast<float>(box.right),
            static_cast<float>(box.bottom)};
}

// Calls `write` for each primitive, until it returns false.
template <typename Vertex, typename Write>
bool forEachPrimitive(const sDrawCommand& command, Write write)
{
    const unsigned int size = getPrimitiveSize(command.state);
    const Vertex* vertex = static_cast<const Vertex*>(command.vertices);
    for (unsigned int rest = command.state.vertexNum; rest >= size; rest -= size, vertex += size)
    {
        if (!write(vertex))
            return false;
    }
    return true;
}

template <typename Vertex>
bool writePrimitives(QuadWriter& writer, const sDrawCommand& command)
{
    if (command.state.getPrimitiveType() == ePrimitiveType::Quads)
        return forEachPrimitive<Vertex>(command, [&](const Vertex* quad) { return writer.writeQuad(quad); });
    return forEachPrimitive<Vertex>(command, [&](const Vertex* triangle) { return writer.writeTriangle(triangle); });
}

bool writeAll(QuadWriter& writer, const sDrawCommand& command)
{
    using Plain = sPlainDeviceVertex;
    if (command.state.getPrimitiveType() == ePrimitiveType::Lines)
        return forEachPrimitive<Plain>(command, [&](const Plain* line) { return writer.writeLine(line); });
    return command.state.getVertexDecl() == eVertexDecl::Plain
               ? writePrimitives<Plain>(writer, command)
               : writePrimitives<sTexturedDeviceVertex>(writer, command);
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
    if (!mEnable || !mpTexture)
        return commands;

    mWindow = window;
    mpMemory = &memory;
    mInWindow = true;
    mRun = {};
    mListNum = 0;
    mKeptSize = 0;
    const unsigned int tail = alignUp(memory.used, StrideMultiple);
    for (; (*commands)->kind != eCommand::End; ++commands)
    {
        if ((*commands)->kind == eCommand::Draw)
            addDraw(static_cast<const sDrawCommand&>(**commands));
        else if ((*commands)->kind == eCommand::Clear)
            addClear(static_cast<const sClearCommand&>(**commands));
    }
    finishRun();
    gatherKept(tail);
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
        silent->vertices = run.vertices;
        append(silent);
        --mSavedNum;
    }
    mInWindow = command.target == nullptr;
    append(&command);
}

// Mixing writes what overwriting writes, where the colour is opaque.
bool CommandJoin::isJoinable(const sDrawCommand& command) const
{
    const sDrawState& state = command.state;
    if (command.target || !mInWindow || getPrimitiveSize(state) == 0 || !isInPlace(command))
        return false;
    if (state.getVertexDecl() == eVertexDecl::Plain)
        return state.getBlendMode() == eBlendMode::Alpha ||
               (state.getBlendMode() == eBlendMode::Opaque && isOpaque(command));
    return command.texture == mpTexture && state.getBlendMode() == eBlendMode::Alpha &&
           state.getFiltering() == eTextureFiltering::Nearest &&
           state.getCombineMode() == eTextureCombineMode::Modulate;
}

bool CommandJoin::isInPlace(const sDrawCommand& command) const
{
    return isInRun(command) || (isUnscaled(command) && (command.viewport & mWindow) == command.viewport);
}

bool CommandJoin::isInRun(const sDrawCommand& command) const
{
    return mRun.command && mRun.command->viewport == command.viewport && mRun.command->projection == command.projection;
}

// Sees to a run that can take the command as a whole.
bool CommandJoin::makeRoom(const sDrawCommand& command)
{
    const unsigned int vertexNum = command.state.vertexNum / SmallestPrimitive * QuadWriter::VertexNum;
    const unsigned int size = vertexNum * static_cast<unsigned int>(sizeof(sTexturedDeviceVertex));
    if (vertexNum > MaximumVertexNum)
        return false;

    const bool open =
        isInRun(command) && static_cast<unsigned int>(mRun.end - mRun.vertices) + vertexNum <= MaximumVertexNum;
    if (!open)
        finishRun();
    if (mpMemory->capacity - mpMemory->used < size + (open ? 0 : RunSize))
        return false;
    if (!open)
        startRun(command);
    return true;
}

void CommandJoin::startRun(const sDrawCommand& command)
{
    mRun.first = &command;
    mRun.memoryUsed = mpMemory->used;
    const unsigned int place = alignUp(mpMemory->used, alignof(sDrawCommand));
    mpMemory->used = alignUp(place + CommandSize, sizeof(sTexturedDeviceVertex));
    mRun.command = reinterpret_cast<sDrawCommand*>(mpMemory->begin + place);
    mRun.vertices = reinterpret_cast<sTexturedDeviceVertex*>(mpMemory->begin + mpMemory->used);
    mRun.end = mRun.vertices;

    *mRun.command = command;
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
void CommandJoin::gatherKept(unsigned int tail)
{
    sCommandMemory& memory = *mpMemory;
    if (mKeptSize > tail / KeptShare || mKeptSize > memory.capacity - memory.used)
        return;
    for (unsigned int i = 0; i < mListNum; ++i)
    {
        if (mList[i]->kind != eCommand::Draw)
            continue;
        const sDrawCommand& command = static_cast<const sDrawCommand&>(*mList[i]);
        if (command.vertices < memory.begin + tail)
            mList[i] = moveToEnd(command);
    }
    memory.first = tail;
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
    QuadWriter writer(mRun.end, getBox(command), mSolid);
    if (!writeAll(writer, command))
        return false;
    mpMemory->used += static_cast<unsigned int>(writer.getEnd() - mRun.end) *
                      static_cast<unsigned int>(sizeof(sTexturedDeviceVertex));
    mRun.end = writer.getEnd();
    return true;
}
