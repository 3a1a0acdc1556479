#include "ui/uitriggercontrol.h"

#include "sequencer/control.h"
#include "ui/uibutton.h"
#include "ui/uinumericcontrol.h"
#include "ui/uipainter.h"

namespace
{
constexpr int WidthBesideName = 16;
constexpr unsigned int Height = 16;
constexpr unsigned int BoxWidth = 64;
constexpr sSize EmptySize{96, 16};
}

UITriggerControl::UITriggerControl(const TriggerControlBase* trigger, bool disable)
    : UIControl(nullptr, disable, WholeValue), mTrigger(trigger->duplicate())
{
    visitType<TriggerTraits>(TriggerTypes{}, mTrigger->getArgumentType(),
                             [this, disable]<typename T>() { initializeAs<T>(disable); });
    if (!mFire)
    {
        mTrigger.reset();
        setMinimumSize(EmptySize);
    }
    setDefaultSize();
}

UITriggerControl::~UITriggerControl() = default;

void UITriggerControl::apply(UIButton*)
{
    if (isEnabled() && mFire)
        (this->*mFire)();
}

template <typename T>
void UITriggerControl::initializeAs(bool disable)
{
    // There is no box for a flag.
    if constexpr (!std::is_same_v<T, bool>)
    {
        mFire = &UITriggerControl::fire<T>;
        addButton();
        if constexpr (!std::is_void_v<T>)
            addBox(new ReferenceProperty<T>(mTrigger->getName(), reinterpret_cast<T*>(&mArgument)), disable);
    }
}

void UITriggerControl::addButton()
{
    UIButton* button = new UIButton(this, &UITriggerControl::apply, mTrigger->getName());
    const sSize size{static_cast<unsigned int>(UIPainter::getTextWidth(mTrigger->getName()) + WidthBesideName), Height};
    button->setSize(size);
    add(button);
    setMinimumSize(size);
}

void UITriggerControl::addBox(PropertyBase* argument, bool disable)
{
    const sSize button = getMinimumSize();
    UIBase* box = new UINumericControl(argument, disable, WholeValue);
    box->setPosition(sPoint(static_cast<int>(button.width), 0));
    box->setSize({BoxWidth, button.height});
    add(box);
    setMinimumSize({button.width + BoxWidth, box->getSize().height});
}

template <typename T>
void UITriggerControl::fire()
{
    TriggerControl<T>* trigger = static_cast<TriggerControl<T>*>(mTrigger.get());
    if constexpr (std::is_void_v<T>)
        trigger->trigger();
    else
        trigger->trigger(mArgument.get<T>());
}
