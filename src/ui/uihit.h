#pragma once

#include "foundation/spoint.h"

class ObjectList;
class UIBase;
class UIDesktop;
class UIMainMenu;
class UIMenuChain;
class UIWindow;

// What a point of the view means for the interface.
struct sUIHit
{
    // The element that lies on top there; at least the desktop.
    UIBase* target;

    // The window that it concerns: the one that was hit, and the backmost one if none was. Null for an open menu and
    // while there are no windows.
    UIWindow* window;

    bool onOpenMenu;

    // `mainMenu` may be null; `windows` go from the topmost to the backmost.
    static sUIHit find(const sPoint& point, UIDesktop& desktop, UIMainMenu* mainMenu, const ObjectList& windows,
                       const UIMenuChain& menus);
};
