#pragma once

#include "ui/uiresourcecontrol.h"

// Picks a picture and previews it; a double click on the preview shows it in a window. A resource that is no picture
// counts as none: documents can name any class.
class UITextureResourceControl : public UIResourceControl
{
public:
    UITextureResourceControl(PropertyBase* property, bool disable, unsigned int index);

    void eventPaint(UIPainter* painter) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

protected:
    int getBoxTop() const override;

private:
    sRect getPreview() const;
};
