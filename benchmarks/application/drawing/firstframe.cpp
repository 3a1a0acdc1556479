#include "benchmarks/application/drawing/firstframe.h"

#include <dlfcn.h>
#include <unistd.h>

namespace
{
// Below this library, which stands first.
template <typename Function>
Function* find(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
}

// Takes the place of SDL's own in a program that this library is loaded ahead of: tells when the first frame is done.
extern "C" void SDL_GL_SwapWindow(void* window)
{
    static const auto swap = find<void(void*)>("SDL_GL_SwapWindow");
    static bool isTold = false;
    swap(window);
    if (isTold)
        return;
    const auto finish = reinterpret_cast<void (*)()>(find<void*(const char*)>("SDL_GL_GetProcAddress")("glFinish"));
    finish();
    isTold = write(FirstFrameDescriptor, "1", 1) == 1;
}
