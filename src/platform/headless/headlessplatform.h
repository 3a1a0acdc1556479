#pragma once

#include "platform/platform.h"

#include <deque>
#include <string>

// The back end without a desktop. Its window is a size, its events are those that were posted, and its clock
// is the machine's until a test takes it over; from then on only sleeping and advance() move it.
class HeadlessPlatform : public Platform
{
public:
    bool openWindow(const char* title, unsigned int width, unsigned int height) override;
    void closeWindow() override { mWindowOpen = false; }
    bool isWindowOpen() const override { return mWindowOpen; }
    bool hasGraphics() const override { return false; }
    bool makeCurrent() override { return mWindowOpen; }
    void swap() override { ++mSwapNum; }
    std::uint64_t getCount() const override;
    void sleepFor(std::uint64_t nanoseconds) override;
    void alert(const char* title, const char* message) override;
    void setCursor(ePointer pointer) override { mPointer = pointer; }
    const unsigned char* getKeyboardState() const override { return mKeyState; }
    unsigned int getProcessorNum() const override;

    // Each turn of the event loop delivers one posted event; the close box comes when all have gone.
    void postMouse(const sMouseEvent& event) { mEvents.push_back(event); }
    void postQuit() { mQuitPosted = true; }
    void setKey(unsigned char usage, bool down) { mKeyState[usage] = down; }

    void refuseWindow() { mWindowRefused = true; }
    void stopClock(std::uint64_t count);
    void advance(std::uint64_t nanoseconds) { mCount += nanoseconds; }

    unsigned int getSwapNum() const { return mSwapNum; }
    ePointer getCursor() const { return mPointer; }
    const std::string& getAlertText() const { return mAlertText; }

protected:
    void pumpEvents() override;

private:
    std::deque<sMouseEvent> mEvents;
    std::string mAlertText;
    unsigned char mKeyState[KeyNum] = {};
    std::uint64_t mCount = 0;
    unsigned int mSwapNum = 0;
    ePointer mPointer = ePointer::Arrow;
    bool mQuitPosted = false;
    bool mClockStopped = false;
    bool mWindowOpen = false;
    bool mWindowRefused = false;
};
