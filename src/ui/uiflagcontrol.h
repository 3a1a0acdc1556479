#pragma once

#include "ui/uicontrol.h"

// A box to tick: a bool, or the bits of a mask in an integer, which are set and cleared together.
class UIFlagControl : public UIControl
{
public:
    // Every bit, as for a bool.
    static constexpr unsigned int WholeMask = 0xFFFFFFFF;

    // Asserts "Property type missmatch." for structures, strings and objects.
    UIFlagControl(PropertyBase* property, unsigned int mask, bool disable, unsigned int index);

    // Any bit of the mask is set.
    bool isSet() const;

    void eventPaint(UIPainter* painter) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    unsigned int getNumeric() const;
    void toggle();

    unsigned int mMask;
};
