#pragma once

#include "reflection/numeric.h"
#include "ui/uicontrol.h"

#include <memory>

class TriggerControlBase;
class UIButton;

// A button that fires a trigger, with a number box for its argument if it takes one. A trigger whose argument is no
// number leaves the control empty.
class UITriggerControl : public UIControl
{
public:
    // Keeps a duplicate of the trigger.
    UITriggerControl(const TriggerControlBase* trigger, bool disable);
    ~UITriggerControl() override;

    void apply(UIButton* button);

private:
    template <typename T>
    void initializeAs(bool disable);
    void addButton();
    void addBox(PropertyBase* argument, bool disable);

    template <typename T>
    void fire();

    std::unique_ptr<TriggerControlBase> mTrigger;

    // What the button does; null without one.
    void (UITriggerControl::*mFire)() = nullptr;

    // What the box edits, in the form of the argument's type.
    uNumeric mArgument;
};
