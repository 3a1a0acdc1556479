#pragma once

#include "ui/uibase.h"

class ResourceBase;
class UIDialog;
class UIMainMenu;

// The element behind all windows: it paints the wallpaper and has a menu of its own.
class UIDesktop : public UIBase
{
public:
    UIDesktop();
    ~UIDesktop() override;

    // Null: nothing sets it.
    UIMainMenu* getMainMenu() const { return mMainMenu; }

    // A picture stretched over the screen, of which the desktop keeps a reference; null shows the clear colour, as does
    // a resource without a texture.
    void setWallpaper(ResourceBase* wallpaper);
    ResourceBase* getWallpaper() const { return mWallpaper; }

    // What the menu opens: the inspector of the systems, and the choice of a wallpaper.
    void launchSystemManager();
    void changeWallpaper();

    // The choice was made. What cannot be had, or not be named in a document, leaves the wallpaper as it is.
    void notifySelectWallpaper(UIDialog* dialog);

    void makePropertyList(PropertyList& list) override;
    void makeUIList(List<UIBase>& list) override;
    void eventPaint(UIPainter* painter) override;

private:
    UIMainMenu* mMainMenu = nullptr;
    ResourceBase* mWallpaper = nullptr;
};
