#pragma once

#include "ui/uicomponentcontrol.h"

// Edits a colour, of bytes or of real numbers: for each channel a box and a slider.
class UIColorControl : public UIComponentControl
{
public:
    class UIColorSliderControl;

    // Asserts a property that is no colour.
    UIColorControl(PropertyBase* property, bool disable, unsigned int index = WholeValue);

    void align() override;

private:
    UIColorSliderControl* mSlider[MaximumRowNum] = {};
};

// One channel of the colour, from red to alpha, as a place on a line. A colour of real numbers passes through bytes, so
// that the other channels are rounded as well.
class UIColorControl::UIColorSliderControl : public UIControl
{
public:
    UIColorSliderControl(PropertyBase* property, bool disable, unsigned int index, unsigned int channel);

    // What lies before or behind the line counts as its end.
    void setColor(const sPoint& position);

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

private:
    sColor getColor() const;
    void paintGradient(UIPainter* painter) const;
    void paintMarker(UIPainter* painter) const;

    unsigned int mChannel;
};
