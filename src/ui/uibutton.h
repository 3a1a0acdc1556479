#pragma once

#include "foundation/functor.h"
#include "ui/uibase.h"

// A push button. It reports a click through a functor that takes the button itself, so that one handler can serve
// several. On purpose: a disabled button is pressed and clicks like any other.
class UIButton : public UIBase
{
public:
    // A button without a handler does nothing when it is clicked.
    UIButton();

    // The caption is not copied and must outlive the button; null means none. The object must outlive the button.
    template <typename T>
    UIButton(T* object, void (T::*method)(UIButton*), const char* caption) : UIButton()
    {
        setFunction(object, method);
        mCaption = caption;
    }

    ~UIButton() override;

    // Replaces the handler, which must not delete the button.
    template <typename T>
    void setFunction(T* object, void (T::*method)(UIButton*))
    {
        delete mFunctor;
        mFunctor = new Functor<T, UIButton*, void>(object, method);
    }

    const char* getCaption() const { return mCaption; }
    void setCaption(const char* caption) { mCaption = caption; }

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;

protected:
    // The first button is down over it; painting does not ask.
    bool isPressed() const { return mPressed; }

private:
    FunctorIntermediate<UIButton*, void>* mFunctor = nullptr;
    bool mPressed = false;
    const char* mCaption = nullptr;
};

// A button with an arrow.
class UISpinButton : public UIButton
{
public:
    enum class eDirection : unsigned int
    {
        Left = 0,
        Right = 1,
        Up = 2,
        Down = 3,
    };

    static constexpr unsigned int DefaultFirstDelay = 500;
    static constexpr unsigned int DefaultRepeatInterval = 100;

    // On purpose: the times, in milliseconds, are kept and not used; the button clicks once for each press.
    explicit UISpinButton(eDirection direction, unsigned int firstDelay = DefaultFirstDelay,
                          unsigned int repeatInterval = DefaultRepeatInterval);

    template <typename T>
    UISpinButton(eDirection direction, T* object, void (T::*method)(UIButton*)) : UISpinButton(direction)
    {
        setFunction(object, method);
    }

    eDirection getDirection() const { return mDirection; }
    unsigned int getFirstDelay() const { return mFirstDelay; }
    unsigned int getRepeatInterval() const { return mRepeatInterval; }

    void eventPaint(UIPainter* painter) override;

private:
    eDirection mDirection;
    unsigned int mFirstDelay;
    unsigned int mRepeatInterval;
};

// The button beside a text that opens a list.
class UIPulldownButton : public UIButton
{
public:
    UIPulldownButton() = default;

    template <typename T>
    UIPulldownButton(T* object, void (T::*method)(UIButton*))
    {
        setFunction(object, method);
        init();
    }

    void eventPaint(UIPainter* painter) override;

private:
    void init();
};

// A button of a title bar.
class UISystemButton : public UIButton
{
public:
    enum class eButtonType : unsigned int
    {
        Maximize = 0,
        Minimize = 1,
        Normalize = 2,
        Close = 3,
    };

    explicit UISystemButton(eButtonType type = eButtonType::Maximize);

    template <typename T>
    UISystemButton(eButtonType type, T* object, void (T::*method)(UIButton*)) : UISystemButton(type)
    {
        setFunction(object, method);
    }

    eButtonType getButtonType() const { return mButtonType; }

    void eventPaint(UIPainter* painter) override;

private:
    void init();

    eButtonType mButtonType;
};
