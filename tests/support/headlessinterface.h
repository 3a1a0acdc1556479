#pragma once

#include "tests/support/headlessapplication.h"
#include "ui/uisystem.h"

// A headless application with the systems of the interface. The test has the mouse, the keyboard and the clock in its
// hands, and says when a frame is run.
class HeadlessInterface : public HeadlessApplication
{
public:
    explicit HeadlessInterface(unsigned int threadNum = 1);

    // One frame as the program runs it.
    void runFrame();
    void runFrames(unsigned int count);

    // What the next frame will find. Buttons are those of masks: 1, 2 or 4.
    void movePointer(const sPoint& position);
    void setButton(unsigned int button, bool down);
    void turnWheel(int notches);
    void setKey(unsigned char usage, bool down) { getPlatform().setKey(usage, down); }
    void wait(unsigned int milliseconds) { getPlatform().advance(milliseconds * 1000000ull); }

    // Each takes a frame.
    void press(const sPoint& position, unsigned int button = 1);
    void release(unsigned int button = 1);
    void pressKey(unsigned char usage);

    // Press and release.
    void click(const sPoint& position, unsigned int button = 1);

    // A window that comes alive with the next frame.
    template <typename Window>
    Window* add(Window* window)
    {
        mSystem->addWindow(window);
        return window;
    }

    UISystem* mSystem = nullptr;

private:
    sPoint mPointer = sPoint::Zero;
};
