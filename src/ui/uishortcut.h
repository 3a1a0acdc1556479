#pragma once

// A key, with its combination of modifiers, and what it does to a window.
class UIShortcutBase
{
public:
    constexpr UIShortcutBase(unsigned int keyCode, unsigned int combinationKey)
        : mKeyCode(keyCode), mCombinationKey(combinationKey)
    {
    }
    virtual ~UIShortcutBase() = default;

    // `receiver` is the window that the shortcut was found in.
    virtual void shortcut(void* receiver) const = 0;

    bool identify(unsigned int keyCode, unsigned int combinationKey) const
    {
        return mKeyCode == keyCode && mCombinationKey == combinationKey;
    }

private:
    unsigned int mKeyCode;
    unsigned int mCombinationKey;
};

template <typename T>
class UIShortcut : public UIShortcutBase
{
public:
    constexpr UIShortcut(unsigned int keyCode, unsigned int combinationKey, void (T::*method)())
        : UIShortcutBase(keyCode, combinationKey), mpMethod(method)
    {
    }

    void shortcut(void* receiver) const override { (static_cast<T*>(receiver)->*mpMethod)(); }

private:
    void (T::*mpMethod)();
};
