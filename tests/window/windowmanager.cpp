#include "tests/window/windowmanager.h"

#include <X11/Xlib.h>

WindowManager::WindowManager(const std::string& title) : mpDisplay(XOpenDisplay(nullptr))
{
    Window root = 0;
    Window parent = 0;
    Window* windows = nullptr;
    unsigned int windowNum = 0;
    XQueryTree(mpDisplay, DefaultRootWindow(mpDisplay), &root, &parent, &windows, &windowNum);
    for (unsigned int i = 0; i < windowNum; ++i)
    {
        char* name = nullptr;
        if (XFetchName(mpDisplay, windows[i], &name) && title == name)
            mWindow = windows[i];
        XFree(name);
    }
    XFree(windows);
}

WindowManager::~WindowManager()
{
    XCloseDisplay(mpDisplay);
}

void WindowManager::focus()
{
    XSetInputFocus(mpDisplay, mWindow, RevertToParent, CurrentTime);
}

void WindowManager::pressCloseBox()
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = mWindow;
    event.xclient.message_type = XInternAtom(mpDisplay, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(mpDisplay, "WM_DELETE_WINDOW", False));
    XSendEvent(mpDisplay, mWindow, False, NoEventMask, &event);
}
