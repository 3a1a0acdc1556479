#pragma once

#include <string>

struct _XDisplay;

// What a window manager would do; there is none on a bare display.
class WindowManager
{
public:
    // The window of that title, which is open.
    explicit WindowManager(const std::string& title);
    ~WindowManager();

    WindowManager(const WindowManager&) = delete;
    WindowManager& operator=(const WindowManager&) = delete;

    void focus();
    void pressCloseBox();

private:
    _XDisplay* mpDisplay;
    unsigned long mWindow = 0;
};
