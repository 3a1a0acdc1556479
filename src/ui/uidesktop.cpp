#include "ui/uidesktop.h"

#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "render/texture.h"
#include "resource/textureresource.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uipainter.h"

namespace
{
using Row = UIMenu::sRow<UIDesktop>;

// On purpose: three of the items do nothing but close the menu.
constexpr Row MenuRows[] = {
    {"SystemManager", &UIDesktop::launchSystemManager},
    {"ResourceManager"},
    {"TextureManager"},
    UIMenu::SeparatorRow<UIDesktop>,
    {"Tool"},
    UIMenu::SeparatorRow<UIDesktop>,
    {"Change Wallpaper", &UIDesktop::changeWallpaper},
};

Texture* getTexture(ResourceBase* resource)
{
    const TextureResource* picture = resource ? resource->cast<TextureResource>() : nullptr;
    return picture ? picture->getTexture() : nullptr;
}
}

UIDesktop::UIDesktop()
{
    UIMenu* menu = new UIMenu;
    menu->addItems(this, MenuRows);
    setMenu(menu);
}

UIDesktop::~UIDesktop()
{
    delete mMainMenu;
    if (mWallpaper)
        mWallpaper->release();
}

void UIDesktop::setWallpaper(ResourceBase* wallpaper)
{
    if (wallpaper)
        wallpaper->addRef();
    if (mWallpaper)
        mWallpaper->release();
    mWallpaper = wallpaper;
}

void UIDesktop::launchSystemManager()
{
}

void UIDesktop::changeWallpaper()
{
}

void UIDesktop::makePropertyList(PropertyList& list)
{
    list.add(new ResourceProperty("Wallpaper", &mWallpaper));
}

void UIDesktop::makeUIList(List<UIBase>&)
{
}

void UIDesktop::eventPaint(UIPainter* painter)
{
    Texture* texture = getTexture(mWallpaper);
    if (!texture)
        return;
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
    painter->setTextureFiltering(UIPainter::eTextureFiltering::Linear);
    painter->setTexture(texture);
    painter->drawRect(getOwnRegion(), sColor::White, sTexcoord(0, 0),
                      sTexcoord(static_cast<int>(texture->getWidth()), static_cast<int>(texture->getHeight())));
}
