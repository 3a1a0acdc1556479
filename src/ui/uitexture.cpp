#include "ui/uitexture.h"

#include "foundation/replacereference.h"
#include "render/texture.h"
#include "ui/uipainter.h"

namespace
{
constexpr sSize MinimumSize{16, 16};
constexpr unsigned int MaximumLength = 4096;

constexpr const char* FilteringItem = "Filtering";
constexpr const char* ColorItem = "ColorMode";
constexpr auto Radio = UIMenu::eItemAttribute::Radio;
}

// In the order of the modes.
constinit const UIMenu::sRow<UITexture> UITexture::mFilteringRows[] = {
    {"Point", &UITexture::evPoint, Radio},
    {"Linear", &UITexture::evLinear, Radio, true},
};

constinit const UIMenu::sRow<UITexture> UITexture::mColorRows[] = {
    {"RGBA", &UITexture::evRGBA, Radio, true}, {"RGB", &UITexture::evRGB, Radio},   {"Red", &UITexture::evRed, Radio},
    {"Green", &UITexture::evGreen, Radio},     {"Blue", &UITexture::evBlue, Radio},
};

UITexture::UITexture()
{
    setMinimumSize(MinimumSize);
    UIMenu* filtering = new UIMenu;
    filtering->addItems(this, mFilteringRows);
    UIMenu* color = new UIMenu;
    color->addItems(this, mColorRows);

    UIMenu* menu = new UIMenu;
    menu->addItem(FilteringItem, nullptr, filtering);
    menu->addItem(ColorItem, nullptr, color);
    setMenu(menu);
}

UITexture::~UITexture()
{
    if (mTexture)
        mTexture->release();
}

void UITexture::setTexture(Texture* texture)
{
    replaceReference(mTexture, texture);
    mZoom = 0;
    setSize(texture ? getZoomedSize(mZoom) : sSize::Zero);
}

void UITexture::setFilteringMode(eFilteringMode mode)
{
    mFilteringMode = mode;
    getMenu()->findSubMenu(FilteringItem)->setItemCheck(mFilteringRows[static_cast<unsigned int>(mode)].name, true);
}

void UITexture::setColorMode(eColorMode mode)
{
    mColorMode = mode;
    getMenu()->findSubMenu(ColorItem)->setItemCheck(mColorRows[static_cast<unsigned int>(mode)].name, true);
}

void UITexture::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), sColor::Black);
    if (!mTexture)
        return;
    painter->setBlendMode(mColorMode == eColorMode::RGBA ? UIPainter::eBlendMode::Alpha
                                                         : UIPainter::eBlendMode::Opaque);
    painter->setTextureFiltering(mFilteringMode == eFilteringMode::Linear ? UIPainter::eTextureFiltering::Linear
                                                                          : UIPainter::eTextureFiltering::Nearest);
    painter->setTexture(mTexture);
    painter->drawRect(getOwnRegion(), getShownColor(), sTexcoord(0, 0),
                      sTexcoord(static_cast<int>(mTexture->getWidth()), static_cast<int>(mTexture->getHeight())));
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
}

void UITexture::eventMouseWheel(const sPoint& amount)
{
    if (!mTexture)
        return;
    if (amount.y < 0)
        zoom(-1);
    if (amount.y > 0)
        zoom(1);
    setSize(getZoomedSize(mZoom));
}

// On purpose: -1 divides by one and 0 multiplies by one, so that a step in the middle changes nothing.
sSize UITexture::getZoomedSize(int zoom) const
{
    const sSize size{mTexture->getWidth(), mTexture->getHeight()};
    if (zoom < 0)
        return {size.width / static_cast<unsigned int>(-zoom), size.height / static_cast<unsigned int>(-zoom)};
    const unsigned int factor = static_cast<unsigned int>(zoom) + 1;
    return {size.width * factor, size.height * factor};
}

// Does nothing where the texture would become too large or too small. A reduced one may always be enlarged, and an
// enlarged one reduced.
void UITexture::zoom(int step)
{
    const int zoom = mZoom + step;
    const sSize size = getZoomedSize(zoom);
    const bool tooSmall = step < 0 && zoom < 0 && (size.width < MinimumSize.width || size.height < MinimumSize.height);
    const bool tooLarge = step > 0 && zoom >= 0 && (size.width > MaximumLength || size.height > MaximumLength);
    if (!tooSmall && !tooLarge)
        mZoom = zoom;
}

// Of a single channel only that one is left.
sColor UITexture::getShownColor() const
{
    if (mColorMode < eColorMode::Red)
        return mColor;
    const int channel = static_cast<int>(mColorMode) - static_cast<int>(eColorMode::Red);
    sColor color(0, 0, 0, 1);
    color[channel] = mColor[channel];
    return color;
}
