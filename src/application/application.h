#pragma once

#include "application/framepacer.h"
#include "foundation/spoint.h"
#include "foundation/ssize.h"
#include "reflection/objectbase.h"
#include "reflection/reflect.h"

#include <cstdint>

class AllocatorBase;
class Platform;
struct sMouseEvent;

// The shell of the program: the one window, the pace of the frames, the raw state of the mouse, the directories of
// the data, and the two managers that everything else stands on. A subclass says what is set up and what a frame
// does. All of it runs on the main thread; other threads may read what never changes, such as the paths.
class Application : public ObjectBase
{
    REFLECTED(Application)

public:
    struct sInitializer
    {
        const char* title = nullptr;  // UTF-8
        unsigned int windowWidth = 0; // of the content, in pixels, as is the height
        unsigned int windowHeight = 0;
        unsigned int frameRate = 0;    // frames a second; a step of 1.0 is one such frame
        unsigned int minFrameRate = 0; // the longest step is one frame at this rate
        unsigned int maxFrameRate = 0; // frames are run at most at this rate
    };

    // The initializer is read here and not kept. Without a window the object stays half made: there are no
    // managers, and execute() stops the program.
    explicit Application(const sInitializer* initializer);
    ~Application() override;

    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    virtual void setup() = 0;

    // One frame; `deltaTime` is getDeltaTime().
    virtual void update(float deltaTime) = 0;

    // Runs frames until the platform's event loop ends; returns 0 then.
    int execute();

    // Ends the event loop behind the present frame.
    void quit();

    // The user wants to leave, by the close box. A subclass may ask before it calls quit().
    virtual void requestQuit() { quit(); }

    // Null before the construction of an application with an initializer.
    static Application* getInstance() { return mpInstance; }

    // Null while there is no window.
    Platform* getWindowHandle() const { return mpWindow; }
    unsigned int getWindowWidth() const { return mWindowWidth; }
    unsigned int getWindowHeight() const { return mWindowHeight; }
    sSize getWindowSize() const { return sSize(mWindowWidth, mWindowHeight); }

    // Ticks of one nanosecond of a clock that never goes back. A test may put its own clock in place; null puts
    // the platform's back.
    using CountFunction = std::uint64_t (*)();
    static std::uint64_t getAbsoluteCount();
    static void setCountFunction(CountFunction function) { mpCountFunction = function; }

    // Milliseconds, as long as a tick is a nanosecond.
    static std::uint64_t getAbsoluteTime() { return getAbsoluteCount() / 1000000; }

    unsigned int getCurrentFrame() const { return mPacer.getCurrentFrame(); }

    // The rate that is aimed at, and the rate that has been reached.
    float getFrameRate() const { return mPacer.getFrameRate(); }
    float getAverageFrameRate() const { return mPacer.getAverageFrameRate(); }
    float getDeltaTime() const { return mPacer.getDeltaTime(); }

    // Each ends in "/".
    const char* getRootPath() const { return mRootPath; }
    const char* getIntermediatePath() const { return mIntermediatePath; }
    const char* getNativePath() const { return mNativePath; }

    // Bit 0 is the primary button, bit 1 the secondary, bit 2 the tertiary.
    unsigned int getMouseButton() const { return mMouseButton; }

    // The sum since the start.
    sPoint getWheelAmount() const { return mWheelAmount; }

    // Relative to the window's content; outside of it only during a drag.
    sPoint getCursorPosition() const { return mCursorPosition; }

    unsigned int getProcessorNum() const { return mProcessorNum; }

    // Once; the allocator is not owned.
    void setTempAllocator(AllocatorBase* allocator);
    AllocatorBase* getTempAllocator() const { return mpTempAllocator; }

protected:
    // Takes the events of the mouse as the window reports them.
    static void eventHandler(const sMouseEvent& event, void* userData);

private:
    static constexpr unsigned int PathSize = 1024;

    void makeRootPath();
    void makeIntermediatePath();
    void makeNativePath();
    void makeSubPath(char (&path)[PathSize], const char* name);

    void checkInterval();
    void handleMouse(const sMouseEvent& event);
    void moveCursor(const sMouseEvent& event);

    static void eventLoop(void* userData);
    static void quitHandler(void* userData);

    unsigned int mWindowWidth = 0;
    unsigned int mWindowHeight = 0;
    FramePacer mPacer;
    Platform* mpWindow = nullptr;
    char mRootPath[PathSize] = {};
    char mIntermediatePath[PathSize] = {};
    char mNativePath[PathSize] = {};
    unsigned int mProcessorNum = 0;
    AllocatorBase* mpTempAllocator = nullptr;
    sPoint mCursorPosition = sPoint::Zero;
    unsigned int mMouseButton = 0;
    sPoint mWheelAmount = sPoint::Zero;

    static Application* mpInstance;
    static CountFunction mpCountFunction;
};
