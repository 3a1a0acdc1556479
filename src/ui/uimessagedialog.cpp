#include "ui/uimessagedialog.h"

#include "ui/uicolor.h"
#include "ui/uipainter.h"

namespace
{
constexpr int WidthBesideText = 32;
constexpr unsigned int Height = 96;
constexpr int MessageTop = 32;
constexpr int MessageBottom = 44;
constexpr int ButtonTop = 64;
constexpr sSize ButtonSize{48, 16};
}

void UIMessageDialog::eventPaint(UIPainter* painter)
{
    UIWindow::eventPaint(painter);
    painter->drawString(sRect(0, MessageTop, static_cast<int>(getSize().width), MessageBottom), mMessage,
                        UIPainter::getColors().mFontColor, UIPainter::eAlignment::CenterTop);
}

void UIMessageDialog::initializeMessageDialog(const char* message, eButtons buttons)
{
    mMessage = message;
    setSize({static_cast<unsigned int>(UIPainter::getTextWidth(message) + WidthBesideText), Height});
    moveToCenter();

    const int middle = static_cast<int>(getSize().width / 2);
    const auto place = [middle](UIButton* button, int fromMiddle)
    {
        button->setPosition(sPoint(middle + fromMiddle, ButtonTop));
        button->setSize(ButtonSize);
    };
    switch (buttons)
    {
    case eButtons::Ok: place(getOkButton(), -24); break;
    case eButtons::OkCancel:
        place(getOkButton(), -56);
        place(getCancelButton(), 8);
        break;
    case eButtons::YesNoCancel:
        place(getYesButton(), -80);
        place(getNoButton(), -24);
        place(getCancelButton(), 32);
        break;
    }
}
