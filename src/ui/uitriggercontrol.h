#pragma once

#include "sequencer/control.h"
#include "ui/uicontrol.h"

#include <memory>

class UIButton;
class UINumericControl;

// A button that fires a trigger, with a number box for its argument if it takes one. A trigger whose argument is no
// number leaves the control empty.
class UITriggerControl : public UIControl
{
public:
    // Keeps a duplicate of the trigger.
    UITriggerControl(TriggerControlBase* trigger, bool disable);

    void apply(UIButton* button);

private:
    template <typename T>
    void initialize(bool disable);
    void addButton(unsigned int height);

    std::unique_ptr<TriggerControlBase> mTrigger;
    UINumericControl* mBox = nullptr;
    UIButton* mButton = nullptr;

    // What the box edits, in the form of the argument's type.
    uNumeric mArgument;
};
