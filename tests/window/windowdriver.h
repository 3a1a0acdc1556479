#pragma once

#include "application/testapp.h"
#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "input/keyboardsystem.h"
#include "tests/window/sampleplace.h"

#include <functional>
#include <string>
#include <vector>

// The whole program behind a real window, a frame at a time. xdotool moves the pointer and presses buttons and keys;
// each operation waits until the window has heard of it and then runs frames, so that nothing rests on time. The clock
// of the program stands but for what a press moves it on. Points are those of the view. One to a process, which has one
// set of heaps.
class WindowDriver : public SamplePlace, public TestApp
{
public:
    using eKeyCode = KeyboardSystem::eKeyCode;

    static constexpr unsigned int Left = 1;
    static constexpr unsigned int Right = 2;
    static constexpr unsigned int LongPause = 1000;
    static constexpr eKeyCode F4 = static_cast<eKeyCode>(KeyboardSystem::F1 + 3);

    explicit WindowDriver(bool editor = false);
    ~WindowDriver() override;

    void runFrames(unsigned int num);

    // Points outside the window are for drags.
    void move(const sPoint& point);
    void press(unsigned int button = Left, unsigned int pauseMilliseconds = LongPause);
    void release(unsigned int button = Left);
    void click(const sPoint& point, unsigned int button = Left, unsigned int pauseMilliseconds = LongPause);

    // Upwards, or downwards by a negative number.
    void turnWheel(int notches);

    void setKey(eKeyCode key, bool down);
    void strike(eKeyCode key);

    // Alt and F4.
    void strikeClose();

    // As a window manager does it. The program is not asked, the driver hears of it in its place.
    void pressCloseBox();

    // Of the last frame, without their alpha.
    std::vector<sColor> read(const sRect& rect) const;
    sColor read(const sPoint& point) const;

private:
    void pump();
    void waitFor(const char* what, const std::function<bool()>& done);
    static void callTool(const std::string& arguments);
    static void quitLoop(void* driver);
};
