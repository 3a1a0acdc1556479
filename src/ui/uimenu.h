#pragma once

#include "foundation/functor.h"
#include "foundation/vector.h"
#include "ui/uibase.h"

#include <memory>

// A popup menu: that of an element, a submenu, or the drop-down of a main menu's entry. It stands in no tree: whoever
// it was given to owns it, and UISystem treats the open menu and those that it has opened as roots of their own.
class UIMenu : public UIBase
{
public:
    enum class eItemAttribute : unsigned int
    {
        Normal = 0,
        Check = 1,
        Radio = 2,
        Separator = 3,
    };

    // One row. Its name is not copied; its action and its submenu are owned.
    class Item
    {
    public:
        Item(const char* name, FunctorIntermediate<void, void>* functor, UIMenu* subMenu, eItemAttribute attribute,
             bool enable, bool check, unsigned int index);
        ~Item();

        // Does what the item stands for, if anything.
        void occurEvent();

        const char* getName() const { return mName; }
        UIMenu* getSubMenu() const { return mSubMenu.get(); }
        unsigned int getIndex() const { return mIndex; }
        eItemAttribute getAttribute() const { return mAttribute; }
        bool isSeparator() const { return mAttribute == eItemAttribute::Separator; }

        bool isEnabled() const { return mEnable; }
        void setEnable(bool enable) { mEnable = enable; }

        // Without effect on an item that has no mark.
        void setCheck(bool check);
        bool isChecked() const { return mCheck; }

    private:
        std::unique_ptr<FunctorIntermediate<void, void>> mFunctor;
        const char* mName;
        std::unique_ptr<UIMenu> mSubMenu;
        bool mEnable;
        bool mCheck;
        eItemAttribute mAttribute;
        unsigned int mIndex;
    };

    // A row of a constant table from which a menu is filled; null has no action.
    template <typename T>
    struct sRow
    {
        const char* name;
        void (T::*method)() = nullptr;
        eItemAttribute attribute = eItemAttribute::Normal;
        bool check = false;
    };

    template <typename T>
    static constexpr sRow<T> SeparatorRow = {nullptr, nullptr, eItemAttribute::Separator};

    UIMenu();
    ~UIMenu() override;

    // As it is when it opens: nothing selected, no submenu open.
    void initialize();

    // Owns the action, which must not delete the menu, and the submenu; either may be null. The menu grows to hold its
    // rows.
    void addItem(const char* name, FunctorIntermediate<void, void>* functor = nullptr, UIMenu* subMenu = nullptr,
                 eItemAttribute attribute = eItemAttribute::Normal, bool enable = true, bool check = false);
    void addSeparator() { addItem(nullptr, nullptr, nullptr, eItemAttribute::Separator); }

    // All rows of a table, whose actions are members of `object`.
    template <typename T, unsigned int Count>
    void addItems(T* object, const sRow<T> (&rows)[Count])
    {
        for (const sRow<T>& row : rows)
            addItem(row.name, row.method ? new Functor<T, void, void>(object, row.method) : nullptr, nullptr,
                    row.attribute, true, row.check);
    }

    // The menu that this one has opened, or null.
    UIMenu* getSubMenu() const;

    // By the first item of that name; without one nothing happens, and the answer is null or false.
    UIMenu* findSubMenu(const char* name) const;
    void setItemCheck(const char* name, bool check);
    bool isItemChecked(const char* name) const;
    void setItemEnable(const char* name, bool enable);
    bool isItemEnabled(const char* name) const;

    // A radio mark takes the marks of all others away and cannot be taken away itself.
    void checkItem(Item* item, bool check);

    // Beside the item's row, on the side where there is room.
    void openSubMenu(Item* item);

    const Vector<Item>& getItems() const { return mItem; }
    Item* getSelectItem() const { return mSelectItem; }

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    Item* findItem(const char* name) const;
    Item* getItemAt(const sPoint& position) const;
    Item* stepFrom(Item* item, int direction) const;
    void resize();
    void decideItem();
    void paintItem(UIPainter* painter, const Item& item, int y) const;
    void paintMark(UIPainter* painter, const Item& item, int y, sColor color) const;

    Vector<Item> mItem;
    Item* mOpenItem = nullptr;
    Item* mSelectItem = nullptr;
};
