#include "ui/uidesktop.h"

#include "foundation/replacereference.h"
#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"
#include "ui/systeminfowindow.h"
#include "ui/texturepreview.h"
#include "ui/uifiledialog.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uisystem.h"
#include "ui/uitextureresourcecontrol.h"

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

constexpr const char* WallpaperFilters[] = {"tex|Texture", "bmp|Bitmap", "tga|Targa", nullptr};
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
    replaceReference(mWallpaper, wallpaper);
}

void UIDesktop::launchSystemManager()
{
    UISystem::getInstance()->addWindow(new SystemInfoWindow);
}

void UIDesktop::changeWallpaper()
{
    UISystem::getInstance()->addWindow(new UIFileDialog("Texture open", this, &UIDesktop::notifySelectWallpaper,
                                                        "All Texture", WallpaperFilters, false, nullptr));
}

void UIDesktop::notifySelectWallpaper(UIDialog* dialog)
{
    if (dialog->getReturnValue() != UIDialog::Ok)
        return;
    ResourceBase* wallpaper = static_cast<UIFileDialog*>(dialog)->createResource();
    if (!wallpaper)
        return;
    setWallpaper(wallpaper);
    wallpaper->release();
}

void UIDesktop::makePropertyList(PropertyList& list)
{
    list.add(new ResourceProperty("Wallpaper", &mWallpaper));
}

void UIDesktop::makeUIList(List<UIBase>& list)
{
    list.addLast(
        new UITextureResourceControl(new ResourceProperty("Wallpaper", &mWallpaper), false, UIControl::WholeValue));
}

void UIDesktop::eventPaint(UIPainter* painter)
{
    if (Texture* texture = TexturePreview::getTexture(mWallpaper))
        TexturePreview::stretch(painter, getOwnRegion(), texture, eBlendMode::Opaque);
}
