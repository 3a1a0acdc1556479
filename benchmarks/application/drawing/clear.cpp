#include <SDL.h>
#include <SDL_opengl.h>

// The least program with a window of the graphics library: it clears the window, shows it and waits to be ended.
int main(int, char**)
{
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        return 1;
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_COMPATIBILITY);
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    SDL_Window* window = SDL_CreateWindow("clear", 100, 100, 1024, 768, SDL_WINDOW_OPENGL | SDL_WINDOW_SHOWN);
    if (!window || !SDL_GL_CreateContext(window))
        return 1;
    SDL_GL_SetSwapInterval(0);
    const auto clearColor = reinterpret_cast<decltype(&glClearColor)>(SDL_GL_GetProcAddress("glClearColor"));
    const auto clear = reinterpret_cast<decltype(&glClear)>(SDL_GL_GetProcAddress("glClear"));
    clearColor(0.5f, 0.5f, 0.5f, 1.0f);
    clear(GL_COLOR_BUFFER_BIT);
    SDL_GL_SwapWindow(window);
    SDL_Event event;
    while (SDL_WaitEvent(&event) && event.type != SDL_QUIT)
        ;
    return 0;
}
