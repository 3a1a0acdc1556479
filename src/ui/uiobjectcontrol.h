#pragma once

#include "ui/uicontrol.h"

class UITextControl;

// Shows the class of the object that a property points at.
class UIObjectControl : public UIControl
{
public:
    UIObjectControl(PropertyBase* property, bool disable, unsigned int index);

    void align() override;
    void eventPaint(UIPainter* painter) override;

private:
    bool isElement() const { return getIndex() != WholeValue; }
    sRect getBox() const;

    UITextControl* mBox;
};
