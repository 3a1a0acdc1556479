#include "render/drawcontext.h"

#include "foundation/dev.h"
#include "render/rendersystem.h"
#include "render/texture.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include <emmintrin.h>

namespace
{
constexpr unsigned int BlockSize = 0x10000;
constexpr unsigned int CommandAlignment = 8;
constexpr unsigned int VertexHeapSize = 16384;
constexpr unsigned int PendingEntryNum = 1024;
constexpr unsigned int EntryHeapSize = PendingEntryNum * sizeof(sCommand*);

constexpr unsigned int ViewShift = 28;
constexpr unsigned int LevelShift = 16;
constexpr unsigned int LevelMask = 0x3FFF;
constexpr unsigned int SubLevelMask = 0xFFFF;

// The state of no draw: its view, its key and each of its numbers lie outside what a caller can set.
constexpr DrawContext::Context NoState = {
    7,
    sCommand::EndKey,
    static_cast<eBlendMode>(4),
    static_cast<ePrimitiveType>(4),
    static_cast<eVertexDecl>(2),
    nullptr,
    nullptr,
    static_cast<eTextureFiltering>(2),
    static_cast<eTextureCombineMode>(2),
    sRect(0, 0, 0, 0),
    sRect(0, 0, 0, 0),
    sRect(0, 0, 0, 0),
};

// A vertex at a time in one register: both kinds of source begin with x, y and colour, and so do both kinds of what
// the library receives. The load of a plain one reaches over its end, and not over that of the heap.
template <typename Destination, typename Source>
void formatVertices(Destination* destination, const Source* source, unsigned int count, float offset)
{
    const __m128 scale = _mm_set1_ps(1.0f / 65536.0f);
    const __m128 moved = _mm_set1_ps(offset);
    for (unsigned int i = 0; i < count; ++i)
    {
        const __m128i words = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source + i));
        __m128 position = _mm_mul_ps(_mm_cvtepi32_ps(words), scale);
        if constexpr (std::is_same_v<Source, sPlainVertex>)
            position = _mm_add_ps(position, moved);
        const __m128i color = _mm_slli_epi64(_mm_unpackhi_epi64(words, words), 32);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(destination + i),
                         _mm_unpacklo_epi64(_mm_castps_si128(position), color));
        if constexpr (std::is_same_v<Source, sTexturedVertex>)
            std::memcpy(&destination[i].s, &source[i].s, sizeof(source[i].s) + sizeof(source[i].t));
    }
}

static_assert(VertexHeapSize / sizeof(sPlainVertex) * sizeof(sPlainVertex) + 4 <= VertexHeapSize);

// Batches of both kinds of vertices end at the same number of them.
constexpr unsigned int getDeviceCapacity(eVertexDecl declaration)
{
    return VertexHeapSize / getSourceStride(declaration) * getDeviceStride(declaration);
}
}

DrawContext::DrawContext(RenderSystem& system)
    : mSystem(system),
      mCurrent(NoState),
      mVertexAllocator(VertexHeapSize, "Context vertices allocator", System::getAllocator(), false),
      mEntryAllocator(EntryHeapSize, "Temporary command entry buffer allocator", System::getAllocator(), false)
{
}

void* DrawContext::operator new(std::size_t size) noexcept
{
    return System::allocate(static_cast<unsigned int>(size));
}

void DrawContext::operator delete(void* block)
{
    System::deallocate(block);
}

void DrawContext::setView(unsigned int view)
{
    if (view > MaximumView)
        dev_assert("Invalid view.", __FILE__, __LINE__);
    if (view == mCurrent.view)
        return;
    mCurrent.view = view;
    mCurrent.key = (mCurrent.key & ((1u << ViewShift) - 1)) | view << ViewShift;
    mDirty = true;
}

void DrawContext::setDrawLevel(unsigned int level, unsigned int subLevel)
{
    // On purpose: a level above 0xFFF runs into the view's bits; only what lies above 14 bits is cut off.
    const unsigned int key =
        (mCurrent.view << ViewShift) + ((level & LevelMask) << LevelShift) + (subLevel & SubLevelMask);
    change(mCurrent.key, key);
}

void DrawContext::setTexture(Texture* texture)
{
    if (change(mCurrent.texture, texture) && texture)
        texture->protect(mSystem.getBuildFrame());
}

void DrawContext::setRenderTarget(Texture* target)
{
    if (change(mCurrent.renderTarget, target) && target)
        target->protect(mSystem.getBuildFrame());
}

void DrawContext::makeRoom(unsigned int size)
{
    if (size == 0)
        dev_assert("Undefined vertex declaration.", __FILE__, __LINE__);
    if (!mDirty && moveDeviceBatch(size))
        return;
    flushVertices();
    mDirty = false;
    if (mDevice)
        startDeviceBatch(size);
    else
        startBatch(size);
}

// Takes the heap as a whole, so that vertices need no more than a sum. What does not fit trips the allocator.
void DrawContext::startBatch(unsigned int size)
{
    fillHead(mHead);
    mVertexAllocator.clear();
    mVertexFree = std::max(size, VertexHeapSize);
    mpVertexWrite = static_cast<unsigned char*>(mVertexAllocator.allocate(static_cast<int>(mVertexFree), 4));
}

void DrawContext::startDeviceBatch(unsigned int size)
{
    const unsigned int capacity = getDeviceCapacity(mCurrent.vertexDecl);
    if (size > capacity)
        dev_assert("Too many vertices.", __FILE__, __LINE__);
    sDrawCommand* command = placeCommand(mCurrent.vertexDecl, size);
    unsigned char* vertices = static_cast<unsigned char*>(command->vertices);
    mVertexFree = std::min(capacity, static_cast<unsigned int>(mpBlockEnd - vertices));
    mpVertexWrite = vertices;
    mpDeviceBatch = command;
    fillHead(*command);
}

// Into the next block, since the rest of this one is too small. False if the batch is full.
bool DrawContext::moveDeviceBatch(unsigned int size)
{
    if (!mpDeviceBatch)
        return false;
    const unsigned int capacity = getDeviceCapacity(mCurrent.vertexDecl);
    const sDrawCommand& former = *mpDeviceBatch;
    const unsigned int used = static_cast<unsigned int>(mpVertexWrite - static_cast<unsigned char*>(former.vertices));
    if (used + size > capacity)
        return false;
    mpDeviceBatch = placeCommand(mCurrent.vertexDecl, used + size);
    fillHead(*mpDeviceBatch);
    std::memcpy(mpDeviceBatch->vertices, former.vertices, used);
    mpVertexWrite = static_cast<unsigned char*>(mpDeviceBatch->vertices) + used;
    mVertexFree = std::min(capacity - used, static_cast<unsigned int>(mpBlockEnd - mpVertexWrite));
    return true;
}

void DrawContext::clear(const sRect& rect, sColor color)
{
    flushVertices();
    sClearCommand* command = static_cast<sClearCommand*>(allocateCommandBuffer(sizeof(sClearCommand)));
    *command = {{eCommand::Clear, mCurrent.key}, color, rect, mCurrent.renderTarget};
    mSystem.entryCommand(command);
}

void DrawContext::flushVertices()
{
    if (mpDeviceBatch)
        finishDeviceBatch();
    else if (mVertexNum)
        finishBatch();
    mpDeviceBatch = nullptr;
    mVertexFree = 0;
    mVertexNum = 0;
}

void DrawContext::finishBatch()
{
    const eVertexDecl declaration = mHead.state.getVertexDecl();
    const unsigned int size = mVertexNum * getDeviceStride(declaration);
    sDrawCommand* command = placeCommand(declaration, size);
    mpBlockWrite = static_cast<unsigned char*>(command->vertices) + size;
    mHead.vertices = command->vertices;
    mHead.state.vertexNum = mVertexNum;
    *command = mHead;
    formatVertex(command->vertices, mVertexAllocator.getHeap(), command->state);
    entryCommand(command);
}

void DrawContext::finishDeviceBatch()
{
    sDrawCommand* command = mpDeviceBatch;
    command->state.vertexNum = mVertexNum;
    mpBlockWrite = mpVertexWrite;
    entryCommand(command);
}

void DrawContext::fillHead(sDrawCommand& head) const
{
    head.kind = eCommand::Draw;
    head.key = mCurrent.key;
    head.state = {static_cast<unsigned int>(mCurrent.blendMode),
                  static_cast<unsigned int>(mCurrent.primitiveType),
                  static_cast<unsigned int>(mCurrent.filtering),
                  static_cast<unsigned int>(mCurrent.combineMode),
                  static_cast<unsigned int>(mCurrent.vertexDecl),
                  0,
                  0};
    head.texture = mCurrent.texture;
    head.target = mCurrent.renderTarget;
    head.viewport = mCurrent.viewport;
    head.scissor = mCurrent.scissor;
    head.projection = mCurrent.projection;
}

bool DrawContext::hasRoom() const
{
    return mSystem.isHalfFree();
}

void DrawContext::init()
{
    mVertexAllocator.clear();
    mEntryAllocator.clear();
    mpEntry = static_cast<sCommand**>(mEntryAllocator.allocate(EntryHeapSize, 8));
    mEntryNum = 0;

    // The first block is taken on first use: the system clears its command memory only after this.
    mpBlockBegin = nullptr;
    mpBlockEnd = nullptr;
    mpBlockWrite = nullptr;
}

void DrawContext::setup()
{
    const sRect& window = mSystem.getWindowRect();
    mCurrent = {0,       0,       eBlendMode::Opaque,        ePrimitiveType::Quads,         eVertexDecl::Plain,
                nullptr, nullptr, eTextureFiltering::Linear, eTextureCombineMode::Modulate, window,
                window,  window};
    mVertexFree = 0;
    mVertexNum = 0;
    mDirty = true;
}

void DrawContext::final()
{
    flushCommand();
}

// Blocks are not chained: the rest of the old one is simply left.
void DrawContext::initCommandBuffer()
{
    mpBlockBegin = static_cast<unsigned char*>(mSystem.allocateCommandBuffer(BlockSize));
    mpBlockEnd = mpBlockBegin + BlockSize;
    mpBlockWrite = mpBlockBegin;
}

void* DrawContext::allocateCommandBuffer(unsigned int size)
{
    unsigned char* memory = static_cast<unsigned char*>(AllocatorBase::align(mpBlockWrite, CommandAlignment));
    if (mpBlockEnd - memory < static_cast<std::ptrdiff_t>(size))
    {
        initCommandBuffer();
        memory = mpBlockWrite;
    }
    mpBlockWrite = memory + size;
    return memory;
}

// With room for its vertices a multiple of the stride behind the start of all command memory, so that the replay can
// draw by index. How far they really reach is told by mpBlockWrite later.
sDrawCommand* DrawContext::placeCommand(eVertexDecl declaration, unsigned int vertexSize)
{
    constexpr unsigned int CommandSize = sizeof(sDrawCommand);
    const unsigned int stride = getDeviceStride(declaration);
    auto* memory = static_cast<unsigned char*>(allocateCommandBuffer(CommandSize + stride + vertexSize));
    const auto offset =
        static_cast<unsigned int>(memory + CommandSize - static_cast<const unsigned char*>(mSystem.getCommandMemory()));
    const unsigned int beyond = declaration == eVertexDecl::Plain ? offset % sizeof(sPlainDeviceVertex)
                                                                  : offset % sizeof(sTexturedDeviceVertex);
    auto* command = reinterpret_cast<sDrawCommand*>(memory);
    command->vertices = memory + CommandSize + (beyond ? stride - beyond : 0);
    return command;
}

void DrawContext::entryCommand(sCommand* command)
{
    if (mEntryNum == PendingEntryNum)
        flushCommand();
    mpEntry[mEntryNum++] = command;
}

void DrawContext::flushCommand()
{
    if (mEntryNum == 0)
        return;
    mSystem.entryCommand(mpEntry, mEntryNum);
    mEntryNum = 0;
}

void DrawContext::formatVertex(void* destination, const void* source, const sDrawState& state)
{
    // Points and lines are moved to the centres of pixels; what has a texture is never moved.
    const float offset = state.getPrimitiveType() < ePrimitiveType::Triangles ? 0.5f : 0.0f;
    if (state.getVertexDecl() == eVertexDecl::Plain)
        formatVertices(static_cast<sPlainDeviceVertex*>(destination), static_cast<const sPlainVertex*>(source),
                       state.vertexNum, offset);
    else
        formatVertices(static_cast<sTexturedDeviceVertex*>(destination), static_cast<const sTexturedVertex*>(source),
                       state.vertexNum, 0.0f);
}
