#include "tests/window/windowdriver.h"

#include "render/rendersystem.h"
#include "tests/window/windowmanager.h"

#include <algorithm>
#include <cstdlib>

#include <unistd.h>

namespace
{
constexpr int Width = 1024;
constexpr int Height = 768;
constexpr int WindowPlace = 100;
constexpr std::uint64_t NanosecondsInMillisecond = 1000000;
constexpr std::uint64_t PatienceNanoseconds = 5000 * NanosecondsInMillisecond;

// A press is to be seen by a frame, and its release by a later one.
constexpr unsigned int SettleFrames = 3;

constexpr std::pair<KeyboardSystem::eKeyCode, const char*> KeyTable[] = {
    {KeyboardSystem::KeyA, "a"},        {KeyboardSystem::Return, "Return"},  {KeyboardSystem::Escape, "Escape"},
    {WindowDriver::F4, "F4"},           {KeyboardSystem::DownArrow, "Down"}, {KeyboardSystem::UpArrow, "Up"},
    {KeyboardSystem::LeftAlt, "Alt_L"},
};

std::uint64_t clockCount = 0;

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

std::string getName(KeyboardSystem::eKeyCode key)
{
    return std::ranges::find(KeyTable, key, &std::pair<KeyboardSystem::eKeyCode, const char*>::first)->second;
}

// The server counts the middle button as the second.
std::string getServerButton(unsigned int button)
{
    return button == WindowDriver::Left ? "1" : "3";
}
}

WindowDriver::WindowDriver(bool editor) : TestApp(&getInitializer())
{
    setCountFunction([] { return clockCount; });
    setEditor(editor);
    setup();
    EXPECT_TRUE(getWindowHandle()->installTimer(quitLoop, this));
    EXPECT_TRUE(getWindowHandle()->installMouseHandler(eventHandler, static_cast<Application*>(this)));
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
    for (unsigned int i = 0; i < num; ++i)
    {
        pump();
        update(1.0f);
    }
}

void WindowDriver::move(const sPoint& point)
{
    callTool("mousemove " + std::to_string(point.x + WindowPlace) + " " + std::to_string(point.y + WindowPlace));
    waitFor("motion", [&] { return getCursorPosition() == point; });
    runFrames(2);
}

void WindowDriver::press(unsigned int button, unsigned int pauseMilliseconds)
{
    clockCount += pauseMilliseconds * NanosecondsInMillisecond;
    callTool("mousedown " + getServerButton(button));
    waitFor("press", [&] { return getMouseButton() & button; });
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

void WindowDriver::strikeClose()
{
    setKey(KeyboardSystem::LeftAlt, true);
    strike(F4);
    setKey(KeyboardSystem::LeftAlt, false);
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

void WindowDriver::quitLoop(void* driver)
{
    static_cast<WindowDriver*>(driver)->quit();
}
