#include "render/rendersystem.h"

#include "application/systemlock.h"
#include "foundation/dev.h"
#include "foundation/jobsystem.h"
#include "platform/platform.h"
#include "render/drawcontext.h"
#include "render/gldevice.h"
#include "render/nulldevice.h"
#include "render/replay.h"
#include "render/texture.h"
#include "render/window.h"
#include "tool/toolsystem.h"

#include <algorithm>

REFLECT(RenderSystem, eTypeAttribute::Singleton, "System");

namespace
{
constexpr unsigned int TextureNodeNum = 256;

// As large as the memory of the commands that they come from.
constexpr unsigned int JoinedVertexNum = RenderSystem::CommandBufferSize / sizeof(sJoinedDeviceVertex);

// What is replayed ahead of the first sort.
constinit sCommand emptyFrame = {eCommand::End, sCommand::EndKey};

sCommand** allocateEntries(unsigned int count)
{
    return static_cast<sCommand**>(System::allocate(count * static_cast<unsigned int>(sizeof(sCommand*))));
}
}

RenderSystem::RenderSystem()
    : Singleton("RenderSystem already instanced."),
      mCommandBuffer(CommandBufferSize, "CommandBuffer", getAllocator(), true),
      mSort(EntryNum),
      mJoin(EntryNum),
      mTexture(TextureNodeNum),
      mMainThread(std::this_thread::get_id())
{
    mFreeContext.reserve(ContextNum);
    init();
    setProcessEnable(true, true, true);
    DEV_TRACE("RenderSystem : start.\n");
}

RenderSystem::~RenderSystem()
{
    cleanUp();
    DEV_TRACE("RenderSystem : end.\n");
}

void RenderSystem::destroy()
{
    delete this;
}

void RenderSystem::setup()
{
    addPostprocessDependency(ToolSystem::getInstance());
    addDestroyDependency(ToolSystem::getInstance());
}

void RenderSystem::preprocess()
{
    if (!mpDevice)
        return;
    mFreeContext.clear();
    for (DrawContext* context : mpContext)
    {
        context->init();
        mFreeContext.push(context);
    }
    mCommandBuffer.clear();
    mEntryNum.setDirect(0);
}

void RenderSystem::postprocess()
{
    if (!mpDevice)
        return;
    for (DrawContext* context : mpContext)
        context->final();

    sCommand* end = static_cast<sCommand*>(allocateCommandBuffer(sizeof(sCommand)));
    *end = {eCommand::End, sCommand::EndKey};
    entryCommand(end);
    sortCommandBuffer();
    ++mBuildFrame;
}

DrawContext* RenderSystem::popContext()
{
    DrawContext* context = mFreeContext.pop();
    context->setup();
    return context;
}

void RenderSystem::pushContext(DrawContext* context)
{
    context->flushVertices();
    mFreeContext.push(context);
}

void RenderSystem::entryCommand(sCommand** commands, unsigned int count)
{
    const unsigned int begin = static_cast<unsigned int>(mEntryNum.add(static_cast<int>(count)));
    if (begin + count > EntryNum)
        dev_assert("Command entry buffer overflow.\n", __FILE__, __LINE__);
    std::copy_n(commands, count, mpEntry + begin);
}

unsigned int RenderSystem::getFreeEighths() const
{
    unsigned int entryNum = static_cast<unsigned int>(mEntryNum.get());
    for (const DrawContext* context : mpContext)
        entryNum += context ? context->getPendingEntryNum() : 0;

    const unsigned int freeEntryNum = EntryNum - std::min(entryNum, EntryNum);
    const unsigned int freeSize = CommandBufferSize - std::min(mCommandBuffer.getUsedSize(), CommandBufferSize);
    return std::min(freeEntryNum / (EntryNum / 8), freeSize / (CommandBufferSize / 8));
}

bool RenderSystem::isHalfFree() const
{
    return static_cast<unsigned int>(mEntryNum.get()) < EntryNum / 2 &&
           mCommandBuffer.getUsedSize() < CommandBufferSize / 2;
}

void RenderSystem::registTexture(Texture* texture)
{
    const SystemLock lock(*this);
    mTexture.addLast(texture);
}

void RenderSystem::executeCommand()
{
    if (!mpDevice)
        return;
    realizeTextures();
    swap();
    replay();
    reapTextures();
    ++mExecuteFrame;
}

void RenderSystem::readPixels(const sRect& rect, sColor* pixels)
{
    if (mpDevice)
        mpDevice->readPixels(rect & mWindowRect, mWindowRect, pixels);
}

RenderDevice* RenderSystem::getCurrentDevice() const
{
    return std::this_thread::get_id() == mMainThread ? mpDevice : nullptr;
}

void RenderSystem::init()
{
    DEV_TRACE("RenderSystem : initializing...\n");
    mpDevice = makeDevice();
    if (!mpDevice)
        return;

    mWindowRect = ::getWindowRect();
    mpEntry = allocateEntries(EntryNum);
    mpSortedCommand = allocateEntries(EntryNum);
    mpSortedCommand[0] = &emptyFrame;
    for (DrawContext*& context : mpContext)
        context = new DrawContext(*this);
    DEV_TRACE("RenderSystem : initializing end.\n");
}

// Null when there is a graphics library that does not start.
RenderDevice* RenderSystem::makeDevice()
{
    Platform* platform = Platform::getInstance();
    if (!platform || !platform->isWindowOpen())
        return nullptr;
    if (!platform->hasGraphics())
        return new NullDevice;
    return platform->makeCurrent() ? GLDevice::create(::getWindowRect()) : nullptr;
}

void RenderSystem::sortCommandBuffer()
{
    mSort.sort(mpSortedCommand, mpEntry, static_cast<unsigned int>(mEntryNum.get()), JobSystem::getInstance());
}

// The memory behind the frame's commands is free until the next frame, so that new ones can lie there.
void RenderSystem::replay()
{
    sCommandMemory memory = {static_cast<unsigned char*>(mCommandBuffer.getHeap()), mCommandBuffer.getUsedSize(),
                             mCommandBuffer.getHeapSize()};
    if (mJoin.isActive())
        memory.joined = mpDevice->makeJoinedRoom(JoinedVertexNum);
    memory.joinedNum = memory.joined ? JoinedVertexNum : 0;
    const sCommand* const* commands = mJoin.join(mpSortedCommand, mWindowRect, memory);
    const unsigned char* vertices = memory.begin + memory.first;
    mpDevice->beginScene(mWindowRect, vertices, memory.used - memory.first);
    const unsigned int num = static_cast<unsigned int>(mEntryNum.get());
    mDrawCommandNum =
        Replay(*mpDevice, mWindowRect, vertices, memory.joined).execute(commands, num) + mJoin.getSavedNum();
    mpDevice->endScene();
}

void RenderSystem::swap()
{
    Platform::getInstance()->swap();
    if (!Platform::getInstance()->makeCurrent())
        DEV_TRACE("RenderSystem : The graphics context is lost.\n");
}

void RenderSystem::realizeTextures()
{
    const SystemLock lock(*this);
    for (Texture* texture : mTexture)
        texture->realize(*mpDevice);
}

void RenderSystem::reapTextures()
{
    const SystemLock lock(*this);
    for (List<Texture>::iterator place = mTexture.begin(); place != mTexture.end(); ++place)
    {
        Texture* texture = *place;
        texture->unprotect(mExecuteFrame);
        if (texture->isValid())
            continue;

        // On purpose: the walk goes on behind the follower, so that the next texture waits for the next frame.
        place = mTexture.remove(place);
        deleteTexture(texture);
    }
}

void RenderSystem::deleteTexture(Texture* texture)
{
    if (mpDevice)
        texture->discard(*mpDevice);
    delete texture;
}

void RenderSystem::cleanUp()
{
    mExecuteFrame = mBuildFrame + 1;
    for (List<Texture>::iterator place = mTexture.begin(); place != mTexture.end();)
    {
        Texture* texture = *place;
        texture->unprotect(mExecuteFrame);
        if (texture->isValid())
            dev_assert("Texture leak.", __FILE__, __LINE__);
        place = mTexture.remove(place);
        deleteTexture(texture);
    }

    delete mpDevice;
    for (DrawContext* context : mpContext)
        delete context;
    deallocate(mpEntry);
    deallocate(mpSortedCommand);
}
