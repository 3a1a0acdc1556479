#include "ui/uidialog.h"

#include "foundation/dev.h"
#include "ui/uisystem.h"

#include <utility>

namespace
{
constexpr unsigned int bit(UIDialog::eButtons buttons)
{
    return 1u << static_cast<unsigned int>(buttons);
}

constexpr unsigned int InOk = bit(UIDialog::eButtons::Ok);
constexpr unsigned int InOkCancel = bit(UIDialog::eButtons::OkCancel);
constexpr unsigned int InYesNoCancel = bit(UIDialog::eButtons::YesNoCancel);
}

// In the order in which each set makes its buttons.
constinit const UIDialog::sButtonRow UIDialog::mButtonTable[] = {
    {"Ok", &UIDialog::mOkButton, &UIDialog::eventOk, InOk | InOkCancel},
    {"Yes", &UIDialog::mYesButton, &UIDialog::eventYes, InYesNoCancel},
    {"No", &UIDialog::mNoButton, &UIDialog::eventNo, InYesNoCancel},
    {"Cancel", &UIDialog::mCancelButton, &UIDialog::eventCancel, InOkCancel | InYesNoCancel},
};

// Of all threads that call, only the receiver's own finds it here.
void UIDialog::notifyInvalidate(UIBase* element)
{
    if (mReceiver.compare_exchange_strong(element, nullptr))
        mFunctor.reset();
}

// Its buttons have no functors either, if there were none left for itself: a modal one would be in the way for good.
void UIDialog::eventCreate()
{
    UIWindow::eventCreate();
    if (hasReceiver())
        return;
    DEV_TRACE("UIDialog : nobody hears of the answer to \"%s\".\n", getTitle().c_str());
    UISystem::getInstance()->removeWindow(this);
}

// The functor leaves the dialog first: it is called once, and lives until it has returned, even if its receiver does
// not.
void UIDialog::eventClose()
{
    UISystem* system = UISystem::getInstance();
    if (system->isListedForRemoval(this))
        return;
    if (const auto functor = std::move(mFunctor))
        (*functor)(this);
    system->removeWindow(this);
}

void UIDialog::eventOk()
{
    answer(Ok);
}

void UIDialog::eventCancel()
{
    answer(Cancel);
}

void UIDialog::eventYes()
{
    answer(Yes);
}

void UIDialog::eventNo()
{
    answer(No);
}

void UIDialog::moveToCenter()
{
    const sRect view = UISystem::getUIViewRect();
    setPosition(sPoint((view.left + view.right) / 2 - static_cast<int>(getSize().width / 2),
                       (view.top + view.bottom) / 2 - static_cast<int>(getSize().height / 2)));
}

void UIDialog::initialize(const char* title, eButtons buttons)
{
    for (const sButtonRow& row : mButtonTable)
    {
        if (!(row.sets & bit(buttons)))
            continue;
        UIButton* button = new UIButton(this, &UIDialog::notifyButton, row.caption);
        add(button);
        this->*row.button = button;
    }
    setTitle(title);
}

void UIDialog::notifyButton(UIButton* button)
{
    for (const sButtonRow& row : mButtonTable)
        if (button == this->*row.button)
            (this->*row.hook)();
}

void UIDialog::answer(eReturnValue value)
{
    mReturnValue = value;
    close();
}
