#pragma once

#include "ui/uicontrol.h"

class Texture;

// A preview of the texture that a property points at; a double click shows it in a window. Always read-only.
class UITextureControl : public UIControl
{
public:
    UITextureControl(PropertyBase* property, unsigned int index);

    void eventPaint(UIPainter* painter) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

private:
    // Null for none; asserts an object that is no texture.
    Texture* getTexture() const;
};
