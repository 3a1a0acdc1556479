#pragma once

#include "foundation/vector.h"
#include "ui/uibase.h"

#include <memory>

// The menu bar of a window, shown across the top of the screen while that window is active. Its owner is the window.
class UIMainMenu : public UIBase
{
public:
    // One entry. Its name is not copied, its menu is owned.
    class Item
    {
    public:
        Item(const char* name, UIMenu* menu, unsigned int index);
        ~Item();

        const sRect& getRegion() const { return mRegion; }
        void setRegion(const sRect& region) { mRegion = region; }
        const char* getName() const { return mName; }
        UIMenu* getSubMenu() const { return mMenu.get(); }
        unsigned int getIndex() const { return mIndex; }

    private:
        sRect mRegion = sRect::Zero;
        const char* mName;
        std::unique_ptr<UIMenu> mMenu;
        unsigned int mIndex;
    };

    UIMainMenu();
    ~UIMainMenu() override;

    // Owns the menu, which may be null.
    void addItem(const char* name, UIMenu* menu);

    // Closes the open entry and lays the entries out along the bar.
    void initialize();

    // The menu of the open entry, or null.
    UIMenu* getSubMenu() const;

    // The entry under a point of the bar, or -1.
    int getMenuIndex(const sPoint& point) const;

    // Below the entry, in place of the menu that is open.
    void openSubMenu(Item* item);

    const Vector<Item>& getItems() const { return mItem; }

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    Item* getItemAt(const sPoint& position) const;

    Vector<Item> mItem;
    Item* mOpenItem = nullptr;
    Item* mSelectItem = nullptr;
};
