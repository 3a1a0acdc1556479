#pragma once

#include "ui/uibase.h"

class PropertyBase;
class UIForm;

// Edits all elements of a property, each with the control of its type, in a frame that carries the property's name. It
// takes a row of its own, is as high as they need in its width, and follows their number when it is sized. A property
// without elements shows its one value.
class UIControlArray : public UIBase
{
public:
    // Takes a reference of the property. Asserts one of resources.
    UIControlArray(PropertyBase* property, bool disable);
    ~UIControlArray() override;

    void eventSize() override;
    void eventPaint(UIPainter* painter) override;

private:
    void createArray();
    UIBase* makeElement(unsigned int index) const;

    PropertyBase* mpProperty;
    UIForm* mpForm = nullptr;

    // As the property told it when the elements were made.
    unsigned int mCount = 0;
};
