#pragma once

#include "ui/uinumericcontrol.h"

// A text or number box with its name: above it, or for an element of an array in front of it.
class UIParameterControl : public UIControl
{
public:
    // A number is limited by its type.
    UIParameterControl(PropertyBase* property, bool disable, unsigned int index);

    // The limits, in the form of the property's type, mean nothing to a text.
    UIParameterControl(PropertyBase* property, uNumeric minimum, uNumeric maximum, bool disable, unsigned int index);

    template <typename T>
    requires IntegerValue<T> || RealValue<T> UIParameterControl(PropertyBase* property, T minimum, T maximum,
                                                                bool disable, unsigned int index)
        : UIParameterControl(property, uNumeric(minimum), uNumeric(maximum), disable, index)
    {
    }

    void align() override;
    void eventPaint(UIPainter* painter) override;

private:
    UIParameterControl(PropertyBase* property, bool disable, unsigned int index, UIBase* editor);

    // 0 for a plain value, whose name stands above.
    unsigned int mLabelWidth = 0;
    UIBase* mpEditor;
};
