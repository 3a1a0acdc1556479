#pragma once

#include "ui/uidialog.h"

// A modal box in the middle of the screen that shows one line of text.
class UIMessageDialog : public UIDialog
{
public:
    // The message is not copied and must outlive the box, which is as wide as the message needs, beyond the screen
    // as well. At most 254 characters can be painted.
    template <typename T>
    UIMessageDialog(const char* title, const char* message, eButtons buttons, T* object, void (T::*method)(UIDialog*))
        : UIDialog(TitleBar | Movable | Modal, true, false, false, title, buttons, object, method, nullptr)
    {
        initializeMessageDialog(message, buttons);
    }

    void eventPaint(UIPainter* painter) override;

private:
    void initializeMessageDialog(const char* message, eButtons buttons);

    const char* mMessage = nullptr;
};
