#pragma once

#include "reflection/valuelabel.h"
#include "ui/uicontrol.h"

class UIForm;

// The named bits of an integer as a group of boxes to tick. It takes a row of its own, and its height follows from its
// width.
class UIFlagGroupControl : public UIControl
{
public:
    using sMaskInfo = ::sMaskInfo;

    // The table is not kept, its names are. Asserts "Property type missmatch." for what is no number.
    UIFlagGroupControl(PropertyBase* property, const sMaskInfo* table, unsigned int count, bool disable,
                       unsigned int index);

    // The value of the property, at this control's index.
    unsigned int getNumeric() const;
    void setNumeric(unsigned int value);

    void eventSize() override;
    void eventPaint(UIPainter* painter) override;

private:
    UIForm* mpForm;
};
