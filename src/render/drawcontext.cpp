#include "render/drawcontext.h"

#include "foundation/dev.h"
#include "render/command.h"
#include "render/rendersystem.h"
#include "render/texture.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include <emmintrin.h>

namespace
{
constexpr unsigned int BlockSize = 0x10000;
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
}

DrawContext::DrawContext(RenderSystem& system)
    : mSystem(system),
      mCurrent(NoState),
      mFlushed(NoState),
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

// Takes the heap as a whole, so that vertices need no more than a sum. What does not fit trips the allocator.
void DrawContext::startBatch(unsigned int size)
{
    if (size == 0)
        dev_assert("Undefined vertex declaration.", __FILE__, __LINE__);
    flushVertices();
    mVertexFree = std::max(size, VertexHeapSize);
    mpVertexWrite = static_cast<unsigned char*>(mVertexAllocator.allocate(static_cast<int>(mVertexFree), 4));
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
    if (mVertexNum)
    {
        sDrawCommand* command = allocateDrawCommand(getDeviceStride(mFlushed.vertexDecl), mVertexNum);
        command->kind = eCommand::Draw;
        command->key = mFlushed.key;
        command->state = {static_cast<unsigned int>(mFlushed.blendMode),
                          static_cast<unsigned int>(mFlushed.primitiveType),
                          static_cast<unsigned int>(mFlushed.filtering),
                          static_cast<unsigned int>(mFlushed.combineMode),
                          static_cast<unsigned int>(mFlushed.vertexDecl),
                          mVertexNum,
                          0};
        command->texture = mFlushed.texture;
        command->target = mFlushed.renderTarget;
        command->viewport = mFlushed.viewport;
        command->scissor = mFlushed.scissor;
        command->projection = mFlushed.projection;
        formatVertex(command->vertices, mVertexAllocator.getHeap(), mVertexNum, mFlushed);
        entryCommand(command);
    }

    const unsigned int view = mFlushed.view;
    mFlushed = mCurrent;
    mFlushed.view = view;
    mVertexAllocator.clear();
    mVertexFree = 0;
    mVertexNum = 0;
    mDirty = false;
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
    mFlushed = NoState;
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
    const unsigned int rounded = AllocatorBase::align(size, 8);
    if (mpBlockEnd - mpBlockWrite < static_cast<std::ptrdiff_t>(rounded))
        initCommandBuffer();
    void* memory = mpBlockWrite;
    mpBlockWrite += rounded;
    return memory;
}

// With its vertices a multiple of the stride behind the start of all command memory, so that the replay can draw by
// index.
sDrawCommand* DrawContext::allocateDrawCommand(unsigned int stride, unsigned int vertexNum)
{
    constexpr unsigned int CommandSize = sizeof(sDrawCommand);
    auto* memory = static_cast<unsigned char*>(allocateCommandBuffer(CommandSize + (vertexNum + 1) * stride));
    const auto offset =
        static_cast<unsigned int>(memory + CommandSize - static_cast<const unsigned char*>(mSystem.getCommandMemory()));
    const unsigned int beyond = stride == sizeof(sPlainDeviceVertex) ? offset % sizeof(sPlainDeviceVertex)
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

void DrawContext::formatVertex(void* destination, const void* source, unsigned int count, const Context& context)
{
    // Points and lines are moved to the centres of pixels; what has a texture is never moved.
    const float offset = context.primitiveType < ePrimitiveType::Triangles ? 0.5f : 0.0f;
    if (context.vertexDecl == eVertexDecl::Plain)
        formatVertices(static_cast<sPlainDeviceVertex*>(destination), static_cast<const sPlainVertex*>(source), count,
                       offset);
    else
        formatVertices(static_cast<sTexturedDeviceVertex*>(destination), static_cast<const sTexturedVertex*>(source),
                       count, 0.0f);
}
