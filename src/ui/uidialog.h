#pragma once

#include "foundation/functor.h"
#include "ui/uiwindow.h"

#include <atomic>
#include <memory>
#include <type_traits>

// A window that asks for an answer. It never blocks: it is given to UISystem, and however it is closed, it calls its
// receiver with itself, once, and is deleted behind the frame. Until a button is chosen the answer is Cancel.
class UIDialog : public UIWindow
{
public:
    enum eReturnValue : unsigned int
    {
        Ok = 0,
        Yes = 1,
        No = 2,
        Cancel = 3,
    };

    enum class eButtons : unsigned int
    {
        Ok = 0,
        OkCancel = 1,
        YesNoCancel = 2,
    };

    // The subclass gives the buttons their places. The receiver may be an element that dies before the dialog, which
    // then calls nobody; any other object must outlive the dialog.
    template <typename T>
    UIDialog(unsigned int attribute, bool close, bool minimize, bool maximize, const char* title, eButtons buttons,
             T* object, void (T::*method)(UIDialog*), UIWindow* owner)
        : UIWindow(eStyle::Convex, attribute, close, minimize, maximize, 0, owner),
          mFunctor(new Functor<T, UIDialog*, void>(object, method))
    {
        if constexpr (std::is_convertible_v<T*, UIBase*>)
            mReceiver = object;
        initialize(title, buttons);
    }

    unsigned int getReturnValue() const { return mReturnValue; }

    // False when there was no functor left to make, or once the receiver is dead: nobody will hear of the answer.
    bool hasReceiver() const { return mFunctor != nullptr; }

    void notifyInvalidate(UIBase* element) override;

    // A dialog without a receiver goes again at once.
    void eventCreate() override;
    void eventClose() override;

    // A button was chosen; each closes the dialog with its answer.
    virtual void eventOk();
    virtual void eventCancel();
    virtual void eventYes();
    virtual void eventNo();

protected:
    // Null for a button that the dialog does not have.
    UIButton* getOkButton() const { return mOkButton; }
    UIButton* getCancelButton() const { return mCancelButton; }
    UIButton* getYesButton() const { return mYesButton; }
    UIButton* getNoButton() const { return mNoButton; }

    // By the present size.
    void moveToCenter();

private:
    struct sButtonRow
    {
        const char* caption;
        UIButton* UIDialog::*button;
        void (UIDialog::*hook)();
        unsigned int sets;
    };

    void initialize(const char* title, eButtons buttons);
    void notifyButton(UIButton* button);
    void answer(eReturnValue value);

    static const sButtonRow mButtonTable[];

    std::unique_ptr<FunctorIntermediate<UIDialog*, void>> mFunctor;

    // The receiver if it is an element, else null. Elements die on any thread.
    std::atomic<UIBase*> mReceiver = nullptr;
    unsigned int mReturnValue = Cancel;
    UIButton* mOkButton = nullptr;
    UIButton* mCancelButton = nullptr;
    UIButton* mYesButton = nullptr;
    UIButton* mNoButton = nullptr;
};
