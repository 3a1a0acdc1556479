#include "platform/sdl/sdlplatform.h"

#include "platform/posix.h"

#include <cstdio>
#include <string_view>

#include <SDL.h>

namespace
{
constexpr int WindowPlace = 100;

// A row of the buttons: how SDL numbers them, and how a mouse event does.
struct sButtonRow
{
    unsigned int sdlButton;
    unsigned int button;
};

constexpr sButtonRow ButtonTable[] = {
    {SDL_BUTTON_LEFT, 1},
    {SDL_BUTTON_RIGHT, 2},
    {SDL_BUTTON_MIDDLE, 3},
};

struct sCursorRow
{
    ePointer pointer;
    SDL_SystemCursor cursor;
};

constexpr sCursorRow CursorTable[] = {
    {ePointer::Arrow, SDL_SYSTEM_CURSOR_ARROW},
    {ePointer::ResizeLeftRight, SDL_SYSTEM_CURSOR_SIZEWE},
    {ePointer::ResizeUpDown, SDL_SYSTEM_CURSOR_SIZENS},
};

void report(const char* what)
{
    std::fprintf(stderr, "%s : %s\n", what, SDL_GetError());
}

// A number of 0 stands for the buttons that the program does not know.
unsigned int getButton(unsigned int sdlButton)
{
    for (const sButtonRow& row : ButtonTable)
    {
        if (row.sdlButton == sdlButton)
            return row.button;
    }
    return 0;
}

// Without a desktop SDL falls back on drivers whose windows nobody ever sees.
bool isInvisible(std::string_view driver)
{
    return driver == "offscreen" || driver == "dummy";
}
}

SDLPlatform* SDLPlatform::create()
{
    // The handlers of SDL would turn a signal into a press on the close box.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetMainReady();
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
    {
        report("SDL_Init");
        return nullptr;
    }
    if (isInvisible(SDL_GetCurrentVideoDriver()))
    {
        SDL_Quit();
        return nullptr;
    }
    return new SDLPlatform;
}

SDLPlatform::~SDLPlatform()
{
    closeWindow();
    for (SDL_Cursor* cursor : mpCursor)
        SDL_FreeCursor(cursor);
    SDL_Quit();
}

bool SDLPlatform::openWindow(const char* title, unsigned int width, unsigned int height)
{
    setWindowSize(width, height);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);

    mpWindow = SDL_CreateWindow(title, WindowPlace, WindowPlace, static_cast<int>(width), static_cast<int>(height),
                                SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN);
    if (mpWindow && createContext())
        return true;

    report("Window");
    closeWindow();
    return false;
}

// The frame loop paces itself, so a swap never waits for the screen. Text input is off, since an input method
// would swallow the keys that the keyboard state is read for.
bool SDLPlatform::createContext()
{
    mpContext = SDL_GL_CreateContext(mpWindow);
    if (!mpContext)
        return false;
    SDL_GL_SetSwapInterval(0);
    SDL_StopTextInput();
    return true;
}

void SDLPlatform::closeWindow()
{
    if (mpContext)
        SDL_GL_DeleteContext(mpContext);
    if (mpWindow)
        SDL_DestroyWindow(mpWindow);
    mpContext = nullptr;
    mpWindow = nullptr;
}

bool SDLPlatform::makeCurrent()
{
    return mpContext && SDL_GL_MakeCurrent(mpWindow, mpContext) == 0;
}

void SDLPlatform::swap()
{
    if (mpWindow)
        SDL_GL_SwapWindow(mpWindow);
}

std::uint64_t SDLPlatform::getCount() const
{
    return Posix::getMonotonicCount();
}

void SDLPlatform::sleepFor(std::uint64_t nanoseconds)
{
    Posix::sleepFor(nanoseconds);
}

void SDLPlatform::alert(const char* title, const char* message)
{
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, title, message, nullptr);
}

void SDLPlatform::setCursor(ePointer pointer)
{
    for (unsigned int i = 0; i < CursorNum; ++i)
    {
        if (CursorTable[i].pointer != pointer)
            continue;
        if (!mpCursor[i])
            mpCursor[i] = SDL_CreateSystemCursor(CursorTable[i].cursor);
        SDL_SetCursor(mpCursor[i]);
    }
}

// The first 256 scan codes of SDL are the HID usages of the keyboard page.
const unsigned char* SDLPlatform::getKeyboardState() const
{
    static constexpr unsigned char Released[KeyNum] = {};
    static_assert(SDL_NUM_SCANCODES >= KeyNum);

    if (!mpWindow || SDL_GetKeyboardFocus() != mpWindow)
        return Released;
    return SDL_GetKeyboardState(nullptr);
}

unsigned int SDLPlatform::getProcessorNum() const
{
    return Posix::getProcessorNum();
}

void SDLPlatform::pumpEvents()
{
    SDL_Event event;
    while (SDL_PollEvent(&event))
        translate(event);
}

void SDLPlatform::translate(const SDL_Event& event)
{
    const auto moved = [](const SDL_MouseMotionEvent& motion)
    {
        sMouseEvent plain;
        plain.kind = motion.state ? eMouseEvent::Dragged : eMouseEvent::Moved;
        plain.x = motion.x;
        plain.y = motion.y;
        return plain;
    };

    switch (event.type)
    {
    case SDL_QUIT: deliverQuit(); break;
    case SDL_MOUSEMOTION: deliverMouse(moved(event.motion)); break;
    case SDL_MOUSEBUTTONDOWN:
        translateButton(eMouseEvent::Down, event.button.button, event.button.x, event.button.y);
        break;
    case SDL_MOUSEBUTTONUP:
        translateButton(eMouseEvent::Up, event.button.button, event.button.x, event.button.y);
        break;
    case SDL_MOUSEWHEEL: translateWheel(event); break;
    case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_FOCUS_LOST)
            releaseLostButtons();
        break;
    default: break;
    }
}

void SDLPlatform::translateButton(eMouseEvent kind, unsigned int button, int x, int y)
{
    const unsigned int bit = 1u << button;
    mReportedButtons = kind == eMouseEvent::Down ? mReportedButtons | bit : mReportedButtons & ~bit;

    sMouseEvent plain;
    plain.kind = kind;
    plain.button = getButton(button);
    plain.x = x;
    plain.y = y;
    deliverMouse(plain);
}

// A wheel that turns in both directions at once is two events, one for each axis.
void SDLPlatform::translateWheel(const SDL_Event& event)
{
    const int direction = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
    const int amounts[] = {event.wheel.x * direction, event.wheel.y * direction};
    for (unsigned int axis = 0; axis < 2; ++axis)
    {
        sMouseEvent plain;
        plain.kind = eMouseEvent::Wheel;
        plain.axis = axis;
        plain.amount = amounts[axis];
        plain.x = event.wheel.mouseX;
        plain.y = event.wheel.mouseY;
        deliverMouse(plain);
    }
}

// A button let go of while another window has the focus is never reported, and would stay down for ever.
void SDLPlatform::releaseLostButtons()
{
    int x = 0;
    int y = 0;
    int left = 0;
    int top = 0;
    const unsigned int held = SDL_GetGlobalMouseState(&x, &y);
    SDL_GetWindowPosition(mpWindow, &left, &top);
    for (const sButtonRow& row : ButtonTable)
    {
        if ((mReportedButtons & (1u << row.sdlButton)) && !(held & SDL_BUTTON(row.sdlButton)))
            translateButton(eMouseEvent::Up, row.sdlButton, x - left, y - top);
    }
}
