#pragma once

#include "reflection/numeric.h"
#include "ui/uitextcontrol.h"

// A box with a number, which the Up and Down arrows step. Typed numbers are not limited.
class UINumericControl : public UITextControl
{
public:
    // Limited by the property's type. Asserts "Invalid property type." for structures, strings and objects.
    UINumericControl(PropertyBase* property, bool disable, unsigned int index);

    // The limits are in the form of the property's type.
    UINumericControl(PropertyBase* property, uNumeric minimum, uNumeric maximum, bool disable, unsigned int index);

    template <typename T>
    requires IntegerValue<T> || RealValue<T> UINumericControl(PropertyBase* property, T minimum, T maximum,
                                                              bool disable, unsigned int index)
        : UINumericControl(property, uNumeric(minimum), uNumeric(maximum), disable, index)
    {
    }

    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    AutoString makeStepped(bool up) const;

    uNumeric mLower;
    uNumeric mUpper;
};
