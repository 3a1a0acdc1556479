#include "tests/window/windowdriver.h"

#include "render/rendersystem.h"
#include "tests/window/windowmanager.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include <unistd.h>

namespace
{
constexpr int Width = 1024;
constexpr int Height = 768;
constexpr int WindowPlace = 100;
constexpr std::uint64_t NanosecondsInMillisecond = 1000000;
constexpr std::uint64_t FrameNanoseconds = 1000000000 / 60;
constexpr std::uint64_t PatienceNanoseconds = 5000 * NanosecondsInMillisecond;

// A press is to be seen by a frame, and its release by a later one.
constexpr unsigned int SettleFrames = 3;
constexpr unsigned int PatienceFrames = 300;

constexpr std::pair<KeyboardSystem::eKeyCode, const char*> KeyTable[] = {
    {KeyboardSystem::Return, "Return"},
    {KeyboardSystem::Escape, "Escape"},
    {WindowDriver::F4, "F4"},
    {WindowDriver::F5, "F5"},
    {KeyboardSystem::DownArrow, "Down"},
    {KeyboardSystem::UpArrow, "Up"},
    {KeyboardSystem::LeftArrow, "Left"},
    {KeyboardSystem::RightArrow, "Right"},
    {KeyboardSystem::LeftAlt, "Alt_L"},
    {KeyboardSystem::LeftControl, "Control_L"},
    {KeyboardSystem::LeftShift, "Shift_L"},
    {WindowDriver::Minus, "minus"},
    {WindowDriver::Point, "period"},
};

std::uint64_t clockCount = 0;

// Whether the loop is to end without a frame.
bool waiting = false;

// The loop asks before each frame; there is none until the clock has moved on.
std::uint64_t getClock()
{
    if (waiting)
        Platform::getInstance()->quitEventLoop();
    return clockCount;
}

// The server may still show the window of the process before.
const std::string& getTitle()
{
    static const std::string title = "Driver" + std::to_string(getpid());
    return title;
}

const Application::sInitializer& getInitializer()
{
    static const Application::sInitializer initializer = {getTitle().c_str(), Width, Height, 60, 20, 240};
    return initializer;
}

// Letters and digits are called by themselves.
std::string getName(KeyboardSystem::eKeyCode key)
{
    if (key >= KeyboardSystem::KeyA && key <= KeyboardSystem::KeyZ)
        return std::string(1, static_cast<char>('a' + key - KeyboardSystem::KeyA));
    if (key >= KeyboardSystem::Key1 && key <= KeyboardSystem::Key0)
        return std::to_string((key - KeyboardSystem::Key1 + 1) % 10);
    return std::ranges::find(KeyTable, key, &std::pair<KeyboardSystem::eKeyCode, const char*>::first)->second;
}

KeyboardSystem::eKeyCode getKey(char character)
{
    if (character == '-')
        return WindowDriver::Minus;
    if (character == '.')
        return WindowDriver::Point;
    if (std::isdigit(character))
        return static_cast<KeyboardSystem::eKeyCode>(KeyboardSystem::Key1 + (character - '0' + 9) % 10);
    return static_cast<KeyboardSystem::eKeyCode>(KeyboardSystem::KeyA + std::tolower(character) - 'a');
}

// The server counts the middle button as the second.
std::string getServerButton(unsigned int button)
{
    return button == WindowDriver::Left ? "1" : "3";
}
}

WindowDriver::WindowDriver(std::shared_ptr<const SampleData> data)
    : SamplePlace(std::move(data)), TestApp(&getInitializer())
{
    setCountFunction(getClock);
    setEditor(false);
    setup();
    waiting = true;
    execute();
    // From outside, so that the window hears of the first move into it.
    callTool("mousemove 0 0");
    WindowManager(getTitle()).focus();
    runFrames(SettleFrames);
}

WindowDriver::~WindowDriver()
{
    setCountFunction(nullptr);
}

void WindowDriver::runFrames(unsigned int num)
{
    mLastFrame = mFrameNum + num;
    setFrameLimit(mLastFrame);
    runLoop();
}

void WindowDriver::runToEnd()
{
    runFrames(PatienceFrames);
    EXPECT_LT(mFrameNum, mLastFrame) << "The program does not end.";
}

void WindowDriver::runLoop()
{
    waiting = false;
    clockCount += FrameNanoseconds;
    getWindowHandle()->runEventLoop();
    waiting = true;
}

void WindowDriver::update(float deltaTime)
{
    TestApp::update(deltaTime);
    if (++mFrameNum < mLastFrame)
        clockCount += FrameNanoseconds;
}

void WindowDriver::move(const sPoint& point)
{
    callTool("mousemove " + std::to_string(point.x + WindowPlace) + " " + std::to_string(point.y + WindowPlace));
    waitFor("motion", [&] { return getCursorPosition() == point; });
    runFrames(2);
}

void WindowDriver::press(unsigned int button, unsigned int pauseMilliseconds)
{
    callTool("mousedown " + getServerButton(button));
    waitFor("press", [&] { return getMouseButton() & button; });
    clockCount = std::max(clockCount, mLastPress + pauseMilliseconds * NanosecondsInMillisecond - FrameNanoseconds);
    mLastPress = clockCount + FrameNanoseconds;
    runFrames(SettleFrames);
}

void WindowDriver::release(unsigned int button)
{
    callTool("mouseup " + getServerButton(button));
    waitFor("release", [&] { return !(getMouseButton() & button); });
    runFrames(SettleFrames);
}

void WindowDriver::click(const sPoint& point, unsigned int button, unsigned int pauseMilliseconds)
{
    move(point);
    press(button, pauseMilliseconds);
    release(button);
}

void WindowDriver::turnWheel(int notches)
{
    const int wanted = getWheelAmount().y + notches;
    callTool("click --repeat " + std::to_string(std::abs(notches)) + " " + (notches > 0 ? "4" : "5"));
    waitFor("wheel", [&] { return getWheelAmount().y == wanted; });
    runFrames(2);
}

void WindowDriver::setKey(eKeyCode key, bool down)
{
    callTool((down ? "keydown " : "keyup ") + getName(key));
    waitFor("key", [&] { return (getWindowHandle()->getKeyboardState()[key] != 0) == down; });
    runFrames(SettleFrames);
}

void WindowDriver::strike(eKeyCode key)
{
    setKey(key, true);
    setKey(key, false);
}

void WindowDriver::strikeWith(eKeyCode modifier, eKeyCode key)
{
    setKey(modifier, true);
    strike(key);
    setKey(modifier, false);
}

void WindowDriver::type(const std::string& text)
{
    for (const char character : text)
        if (std::isupper(character))
            strikeWith(KeyboardSystem::LeftShift, getKey(character));
        else
            strike(getKey(character));
}

void WindowDriver::pressCloseBox()
{
    bool asked = false;
    getWindowHandle()->setQuitHandler([](void* heard) { *static_cast<bool*>(heard) = true; }, &asked);
    WindowManager(getTitle()).pressCloseBox();
    waitFor("close box", [&asked] { return asked; });
}

std::vector<sColor> WindowDriver::read(const sRect& rect) const
{
    std::vector<sColor> pixels(rect.getWidth() * rect.getHeight());
    RenderSystem::getInstance()->readPixels(rect, pixels.data());
    for (sColor& pixel : pixels)
        pixel.a = 255;
    return pixels;
}

sColor WindowDriver::read(const sPoint& point) const
{
    return read(sRect(point.x, point.y, point.x + 1, point.y + 1)).front();
}

void WindowDriver::pump()
{
    getWindowHandle()->runEventLoop();
}

void WindowDriver::waitFor(const char* what, const std::function<bool()>& done)
{
    const std::uint64_t deadline = getWindowHandle()->getCount() + PatienceNanoseconds;
    while (!done())
    {
        pump();
        ASSERT_LT(getWindowHandle()->getCount(), deadline) << "The window does not hear of the " << what << ".";
    }
}

void WindowDriver::callTool(const std::string& arguments)
{
    EXPECT_EQ(std::system(("xdotool " + arguments).c_str()), 0) << arguments;
}
