#pragma once

#include "foundation/spoint.h"

class UIPainter;

// Everything that can happen to an element from outside. The numbers without a name are free; they reach
// UIBase::eventCustom, but for the third, which closes.
enum class eMessage : unsigned int
{
    Create = 1,
    Destroy = 2,
    Close = 3,
    Show = 4,
    Hide = 5,
    Timer = 11,
    Paint = 12,
    Active = 13,
    Deactive = 14,
    Focus = 15,
    Defocus = 16,
    Enable = 17,
    Disable = 18,
    KeyDown = 19,
    KeyUp = 20,
    MouseMove = 21,
    MouseDown = 22,
    MouseUp = 23,
    MouseWheel = 24,
    MouseDoubleClick = 25,
    BeginEdit = 26,
    EndEdit = 27,
};

// A message lives on its sender's stack and is passed by reference. A broadcast reaches the whole tree below the
// element that it is sent to.
class UIMessage
{
public:
    constexpr UIMessage(unsigned int type, bool broadcast) : mType(type), mBroadcast(broadcast) {}
    constexpr UIMessage(eMessage type, bool broadcast) : UIMessage(static_cast<unsigned int>(type), broadcast) {}

    unsigned int getType() const { return mType; }
    bool isBroadcast() const { return mBroadcast; }

private:
    unsigned int mType;
    bool mBroadcast;
};

template <eMessage Type, bool Broadcast = false>
class UIPlainMessage : public UIMessage
{
public:
    constexpr UIPlainMessage() : UIMessage(Type, Broadcast) {}
};

using UICreateMessage = UIPlainMessage<eMessage::Create, true>;
using UIDestroyMessage = UIPlainMessage<eMessage::Destroy, true>;
using UIShowMessage = UIPlainMessage<eMessage::Show>;
using UIHideMessage = UIPlainMessage<eMessage::Hide>;
using UIActiveMessage = UIPlainMessage<eMessage::Active>;
using UIDeactiveMessage = UIPlainMessage<eMessage::Deactive>;
using UIFocusMessage = UIPlainMessage<eMessage::Focus>;
using UIDefocusMessage = UIPlainMessage<eMessage::Defocus>;
using UIEnableMessage = UIPlainMessage<eMessage::Enable>;
using UIDisableMessage = UIPlainMessage<eMessage::Disable>;
using UIBeginEditMessage = UIPlainMessage<eMessage::BeginEdit>;
using UIEndEditMessage = UIPlainMessage<eMessage::EndEdit>;

class UITimerMessage : public UIMessage
{
public:
    explicit UITimerMessage(float deltaTime) : UIMessage(eMessage::Timer, true), mDeltaTime(deltaTime) {}

    // Frames at the target rate since the last one.
    float getDeltaTime() const { return mDeltaTime; }

private:
    float mDeltaTime;
};

class UIPaintMessage : public UIMessage
{
public:
    explicit UIPaintMessage(UIPainter* painter) : UIMessage(eMessage::Paint, true), mpPainter(painter) {}

    UIPainter* getPainter() const { return mpPainter; }

private:
    UIPainter* mpPainter;
};

template <eMessage Type>
class UIKeyMessage : public UIMessage
{
public:
    UIKeyMessage(unsigned int keyCode, unsigned int combinationKey)
        : UIMessage(Type, false), mKeyCode(keyCode), mCombinationKey(combinationKey)
    {
    }

    unsigned int getKeyCode() const { return mKeyCode; }
    unsigned int getCombinationKey() const { return mCombinationKey; }

private:
    unsigned int mKeyCode;
    unsigned int mCombinationKey;
};

using UIKeyDownMessage = UIKeyMessage<eMessage::KeyDown>;
using UIKeyUpMessage = UIKeyMessage<eMessage::KeyUp>;

class UIMouseMoveMessage : public UIMessage
{
public:
    explicit UIMouseMoveMessage(const sPoint& position) : UIMessage(eMessage::MouseMove, false), mPosition(position) {}

    // Relative to the element that the message is addressed to, as in all messages of the mouse.
    const sPoint& getPosition() const { return mPosition; }

private:
    sPoint mPosition;
};

template <eMessage Type>
class UIMouseButtonMessage : public UIMessage
{
public:
    static constexpr unsigned int FirstButton = 1;
    static constexpr unsigned int SecondButton = 2;

    UIMouseButtonMessage(const sPoint& position, unsigned int button)
        : UIMessage(Type, false), mPosition(position), mButton(button)
    {
    }

    const sPoint& getPosition() const { return mPosition; }

    // A mask of the buttons above.
    unsigned int getButton() const { return mButton; }

private:
    sPoint mPosition;
    unsigned int mButton;
};

using UIMouseDownMessage = UIMouseButtonMessage<eMessage::MouseDown>;
using UIMouseUpMessage = UIMouseButtonMessage<eMessage::MouseUp>;
using UIMouseDoubleClickMessage = UIMouseButtonMessage<eMessage::MouseDoubleClick>;

class UIMouseWheelMessage : public UIMessage
{
public:
    explicit UIMouseWheelMessage(const sPoint& amount) : UIMessage(eMessage::MouseWheel, false), mAmount(amount) {}

    // Notches of both axes.
    const sPoint& getAmount() const { return mAmount; }

private:
    sPoint mAmount;
};
