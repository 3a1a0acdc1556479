#pragma once

#include "application/testapp.h"
#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/srect.h"
#include "input/keyboardsystem.h"
#include "tests/window/sampleplace.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// The whole program behind a real window, a frame at a time. xdotool moves the pointer and presses buttons and keys;
// each operation waits until the window has heard of it and then runs frames, so that nothing rests on time. The clock
// of the program counts its frames, and waits for a press where that is to come later. Points are those of the view.
// One to a process, which has one set of heaps.
class WindowDriver : public SamplePlace, public TestApp
{
public:
    using eKeyCode = KeyboardSystem::eKeyCode;

    static constexpr unsigned int Left = 1;
    static constexpr unsigned int Right = 2;
    static constexpr unsigned int LongPause = 1000;
    static constexpr eKeyCode F4 = static_cast<eKeyCode>(KeyboardSystem::F1 + 3);
    static constexpr eKeyCode F5 = static_cast<eKeyCode>(KeyboardSystem::F1 + 4);
    static constexpr eKeyCode Minus = static_cast<eKeyCode>(0x2D);
    static constexpr eKeyCode Point = static_cast<eKeyCode>(0x37);

    explicit WindowDriver(std::shared_ptr<const SampleData> data = std::make_shared<SampleData>());
    ~WindowDriver() override;

    void runFrames(unsigned int num);
    void update(float deltaTime) override;

    // Runs until the program ends by itself.
    void runToEnd();

    // Points outside the window are for drags.
    void move(const sPoint& point);
    // The pause is that since the press before.
    void press(unsigned int button = Left, unsigned int pauseMilliseconds = LongPause);
    void release(unsigned int button = Left);
    void click(const sPoint& point, unsigned int button = Left, unsigned int pauseMilliseconds = LongPause);

    // Upwards, or downwards by a negative number.
    void turnWheel(int notches);

    // Those of letters, digits and the few others that a test needs.
    void setKey(eKeyCode key, bool down);
    void strike(eKeyCode key);
    void strikeWith(eKeyCode modifier, eKeyCode key);

    // Letters, digits, points and minus signs.
    void type(const std::string& text);

    // Alt and F4.
    void strikeClose() { strikeWith(KeyboardSystem::LeftAlt, F4); }

    // As a window manager does it. The program is not asked, the driver hears of it in its place.
    void pressCloseBox();

    // Of the last frame, without their alpha.
    std::vector<sColor> read(const sRect& rect) const;
    sColor read(const sPoint& point) const;

private:
    void runLoop();
    void pump();
    void waitFor(const char* what, const std::function<bool()>& done);
    static void callTool(const std::string& arguments);

    unsigned int mFrameNum = 0;
    unsigned int mLastFrame = 0;
    std::uint64_t mLastPress = 0;
};
