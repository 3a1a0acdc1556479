#pragma once

#include "ui/uibase.h"
#include "ui/uimenu.h"

class Texture;

// A texture that the wheel enlarges and reduces. Its context menu chooses how it is filtered and which channels show.
class UITexture : public UIBase
{
public:
    enum class eFilteringMode : unsigned int
    {
        Point = 0,
        Linear = 1,
    };

    enum class eColorMode : unsigned int
    {
        RGBA = 0,
        RGB = 1,
        Red = 2,
        Green = 3,
        Blue = 4,
    };

    UITexture();
    ~UITexture() override;

    // Keeps a reference; null shows black. The element takes the size of the texture.
    void setTexture(Texture* texture);
    Texture* getTexture() const { return mTexture; }

    // The texture is multiplied by it.
    void setColor(sColor color) { mColor = color; }
    sColor getColor() const { return mColor; }

    void setFilteringMode(eFilteringMode mode);
    eFilteringMode getFilteringMode() const { return mFilteringMode; }
    void evPoint() { setFilteringMode(eFilteringMode::Point); }
    void evLinear() { setFilteringMode(eFilteringMode::Linear); }

    void setColorMode(eColorMode mode);
    eColorMode getColorMode() const { return mColorMode; }
    void evRGBA() { setColorMode(eColorMode::RGBA); }
    void evRGB() { setColorMode(eColorMode::RGB); }
    void evRed() { setColorMode(eColorMode::Red); }
    void evGreen() { setColorMode(eColorMode::Green); }
    void evBlue() { setColorMode(eColorMode::Blue); }

    void eventPaint(UIPainter* painter) override;
    void eventMouseWheel(const sPoint& amount) override;

private:
    static const UIMenu::sRow<UITexture> mFilteringRows[];
    static const UIMenu::sRow<UITexture> mColorRows[];

    sSize getZoomedSize(int zoom) const;
    void zoom(int step);
    sColor getShownColor() const;

    sColor mColor = sColor::White;
    eFilteringMode mFilteringMode = eFilteringMode::Linear;
    eColorMode mColorMode = eColorMode::RGBA;

    // Steps: from 0 up one less than the factor, below 0 the divisor.
    int mZoom = 0;
    Texture* mTexture = nullptr;
};
