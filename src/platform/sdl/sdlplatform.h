#pragma once

#include "platform/platform.h"

struct SDL_Cursor;
struct SDL_Window;
union SDL_Event;

// The back end for users: one window with an OpenGL compatibility context on the desktop that SDL finds.
class SDLPlatform : public Platform
{
public:
    // Null when there is no desktop to open a window on.
    static SDLPlatform* create();
    ~SDLPlatform() override;

    bool openWindow(const char* title, unsigned int width, unsigned int height) override;
    void closeWindow() override;
    bool isWindowOpen() const override { return mpContext != nullptr; }
    bool hasGraphics() const override { return mpContext != nullptr; }
    bool makeCurrent() override;
    void swap() override;
    std::uint64_t getCount() const override;
    void sleepFor(std::uint64_t nanoseconds) override;
    void alert(const char* title, const char* message) override;
    void setCursor(ePointer pointer) override;
    const unsigned char* getKeyboardState() const override;
    unsigned int getProcessorNum() const override;

protected:
    void pumpEvents() override;

private:
    SDLPlatform() = default;

    bool createContext();
    void translate(const SDL_Event& event);
    void translateButton(eMouseEvent kind, unsigned int button, int x, int y);
    void translateWheel(const SDL_Event& event);
    void releaseLostButtons();

    static constexpr unsigned int CursorNum = 3;

    SDL_Window* mpWindow = nullptr;
    void* mpContext = nullptr;
    SDL_Cursor* mpCursor[CursorNum] = {};
    unsigned int mReportedButtons = 0; // one bit for each button whose press was delivered, 1 << button
};
