#pragma once

#include "application/system.h"
#include "foundation/instantallocator.h"
#include "foundation/list.h"
#include "foundation/multithread.h"
#include "foundation/singleton.h"
#include "foundation/srect.h"
#include "foundation/stack.h"
#include "render/command.h"
#include "render/commandjoin.h"
#include "render/commandsort.h"

#include <thread>

class DrawContext;
class RenderDevice;
class Texture;

// The only code that draws. Everything else records commands through draw contexts, from any thread; postprocess()
// sorts them by key and executeCommand() replays them. The picture of a frame is shown by the swap at the start of
// the next executeCommand(). Without a graphics library all of this runs, and only the library's calls are left out;
// with one that failed to start, the operations of a frame do nothing.
class RenderSystem : public System, public Singleton<RenderSystem>
{
    REFLECTED(RenderSystem)

public:
    using sCommand = ::sCommand;

    static constexpr unsigned int ContextNum = 32;
    static constexpr unsigned int EntryNum = 16384;
    static constexpr unsigned int CommandBufferSize = 0x400000;

    RenderSystem();
    ~RenderSystem() override;
    void destroy() override;

    void setup() override;
    void preprocess() override;
    void postprocess() override;
    void makeUIList(List<UIBase>& list) override;

    // Main thread only. A context is set up anew each time and goes back with all that it recorded.
    DrawContext* popContext();
    void pushContext(DrawContext* context);

    // Memory that lives until the next preprocess(). `size` is a multiple of 8. Any thread may call it, and enter
    // commands; the order among threads is left to the keys.
    void* allocateCommandBuffer(unsigned int size) { return mCommandBuffer.allocate(static_cast<int>(size), 8); }
    const void* getCommandMemory() const { return mCommandBuffer.getHeap(); }
    void entryCommand(sCommand* command) { entryCommand(&command, 1); }
    void entryCommand(sCommand** commands, unsigned int count);

    // How many whole eighths of the frame's entries and of its command memory are left, the smaller of both. Main
    // thread, while no other thread records.
    unsigned int getFreeEighths() const;

    // Whether less than half of both has been taken. Any thread; what contexts still hold back does not count.
    bool isHalfFree() const;

    // Takes over a texture that has just been made; any thread may call it.
    void registTexture(Texture* texture);

    unsigned int getBuildFrame() const { return mBuildFrame; }
    unsigned int getDrawCommandNum() const { return mDrawCommandNum; }
    unsigned int getTextureNum() const { return mTexture.size(); }
    const sRect& getWindowRect() const { return mWindowRect; }

    // The middle of 2 by 2 opaque white texels of the texture that most text comes from; with it neighbouring draws
    // become one. Null takes it back, before the texture ends.
    void setSolidTexel(Texture* texture, const sTexcoord& place) { mJoin.setSolidTexel(texture, place); }

    // Whether neighbouring draws become one, which nothing but the time shows.
    void setJoinEnable(bool enable) { mJoin.setEnable(enable); }

    // How many calls of the library that has saved in the last frame; getDrawCommandNum() counts commands.
    unsigned int getSavedDrawNum() const { return mJoin.getSavedNum(); }

    // Shows the previous frame, replays this one, and deletes the textures that have ended.
    void executeCommand();

    // The picture that executeCommand() has drawn and the next one will show, the top row first.
    void readPixels(const sRect& rect, sColor* pixels);

    // The commands of the last postprocess() in the order of replay, the end command last.
    const sCommand* const* getSortedCommand() const { return mpSortedCommand; }

    // Null on any thread but the main thread: there a texture waits for the next replay.
    RenderDevice* getCurrentDevice() const;

private:
    void init();
    RenderDevice* makeDevice();
    void sortCommandBuffer();
    void replay();
    void swap();
    void realizeTextures();
    void reapTextures();
    void deleteTexture(Texture* texture);
    void cleanUp();

    RenderDevice* mpDevice = nullptr;
    DrawContext* mpContext[ContextNum] = {};
    Stack<DrawContext> mFreeContext;
    unsigned int mDrawCommandNum = 0;
    InstantAllocator mCommandBuffer;
    sCommand** mpEntry = nullptr;
    sCommand** mpSortedCommand = nullptr;
    CommandSort mSort;
    CommandJoin mJoin;
    Atomic mEntryNum;
    List<Texture> mTexture;
    unsigned int mBuildFrame = 0;
    unsigned int mExecuteFrame = 0;
    sRect mWindowRect = sRect::Zero;
    std::thread::id mMainThread;
};
