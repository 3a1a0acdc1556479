#pragma once

#include "platform/event.h"

#include <cstddef>
#include <cstdint>

enum class ePlatform
{
    SDL,     // a window on the user's desktop
    Headless // no window, no graphics library; events and the clock are in the hands of tests
};

// What this program asks of the operating system's desktop. One back end is chosen at run time; until then
// there is none, and getInstance() is null. A back end belongs to the thread that chose it, and only that
// thread calls it, but for getCount(), getProcessorNum() and alert(), which any thread may call.
class Platform
{
public:
    using TimerCallback = void (*)(void* userData);
    using MouseCallback = void (*)(const sMouseEvent& event, void* userData);
    using QuitCallback = void (*)(void* userData);

    static constexpr unsigned int KeyNum = 256;

    virtual ~Platform() = default;

    // Makes the chosen back end the one of this process, in place of any other. False when its services are
    // not to be had; then there is none.
    [[nodiscard]] static bool create(ePlatform kind);
    static Platform* getInstance() { return mpInstance; }
    static void destroy();

    // The one window, with a graphics context that is current on the calling thread. False when either
    // cannot be had; then neither exists.
    [[nodiscard]] virtual bool openWindow(const char* title, unsigned int width, unsigned int height) = 0;
    virtual void closeWindow() = 0;
    virtual bool isWindowOpen() const = 0;

    // Of the content of the window that was opened last, in pixels.
    unsigned int getWindowWidth() const { return mWindowWidth; }
    unsigned int getWindowHeight() const { return mWindowHeight; }

    // Whether library calls may be made at all. Without a graphics library the window still has a size, and
    // swap() does nothing.
    virtual bool hasGraphics() const = 0;
    [[nodiscard]] virtual bool makeCurrent() = 0;
    virtual void swap() = 0;

    // Nanoseconds of a clock that never goes back.
    virtual std::uint64_t getCount() const = 0;
    virtual void sleepFor(std::uint64_t nanoseconds) = 0;

    // Blocks until the user has read the message, where there is a user.
    virtual void alert(const char* title, const char* message) = 0;
    virtual void setCursor(ePointer pointer) = 0;

    // KeyNum elements by HID usage, 1 while the key is down; all 0 while the window has no focus.
    virtual const unsigned char* getKeyboardState() const = 0;
    virtual unsigned int getProcessorNum() const = 0;

    // The directory that holds the data, without a "/" at its end. False when there is none or when its
    // name does not fit. A forced directory comes before all others; its text is not copied, and an empty
    // one forces nothing.
    [[nodiscard]] static bool getResourceDirectory(char* path, std::size_t size);
    static void forceResourceDirectory(const char* path) { mForcedDirectory = path; }

    // Both are refused while no window is open.
    [[nodiscard]] bool installTimer(TimerCallback callback, void* userData);
    [[nodiscard]] bool installMouseHandler(MouseCallback callback, void* userData);

    // Hears of the close box; without a handler the close box ends the loop.
    void setQuitHandler(QuitCallback callback, void* userData);
    void removeHandlers();

    // Delivers events and fires the timer until quitEventLoop() is called or a signal asks to end.
    void runEventLoop();
    void quitEventLoop() { mQuit = true; }

protected:
    virtual void pumpEvents() = 0;

    void setWindowSize(unsigned int width, unsigned int height)
    {
        mWindowWidth = width;
        mWindowHeight = height;
    }
    void deliverMouse(const sMouseEvent& event);
    void deliverQuit();

private:
    template <typename Callback>
    struct sHandler
    {
        Callback callback = nullptr;
        void* userData = nullptr;
    };

    void fireTimer(std::uint64_t now);

    static Platform* mpInstance;
    static const char* mForcedDirectory;

    sHandler<TimerCallback> mTimer;
    sHandler<MouseCallback> mMouse;
    sHandler<QuitCallback> mQuitHandler;
    std::uint64_t mNextFiring = 0;
    unsigned int mWindowWidth = 0;
    unsigned int mWindowHeight = 0;
    bool mQuit = false;
};
