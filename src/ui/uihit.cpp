#include "ui/uihit.h"

#include "reflection/objectlist.h"
#include "ui/uidesktop.h"
#include "ui/uimainmenu.h"
#include "ui/uimenuchain.h"
#include "ui/uiwindow.h"

namespace
{
// On purpose: where no window is hit, it is about the backmost one.
void hitWindows(sUIHit& hit, const sPoint& point, const ObjectList& windows)
{
    for (ObjectBase* object : windows)
    {
        hit.window = static_cast<UIWindow*>(object);
        if (UIBase* element = hit.window->intersect(point, sRect::Max))
        {
            hit.target = element;
            return;
        }
    }
}

void hitMenus(sUIHit& hit, const sPoint& point, const UIMenuChain& menus)
{
    for (UIMenu* menu : menus)
        if (menu->intersect(point, sRect::Max))
            hit = {menu, nullptr, true};
}
}

sUIHit sUIHit::find(const sPoint& point, UIDesktop& desktop, UIMainMenu* mainMenu, const ObjectList& windows,
                    const UIMenuChain& menus)
{
    sUIHit hit = {&desktop, nullptr, false};
    // The bar tells its entries apart itself.
    if (mainMenu && mainMenu->intersect(point, sRect::Max))
        hit.target = mainMenu;
    hitWindows(hit, point, windows);
    hitMenus(hit, point, menus);
    return hit;
}
