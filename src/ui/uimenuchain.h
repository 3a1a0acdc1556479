#pragma once

#include "ui/uimenu.h"

// The open menu and those that it has opened, each from the one before it. Opening and closing changes the chain.
class UIMenuChain
{
public:
    class Iterator
    {
    public:
        explicit Iterator(UIMenu* menu) : mpMenu(menu) {}

        UIMenu* operator*() const { return mpMenu; }
        Iterator& operator++()
        {
            mpMenu = mpMenu->getSubMenu();
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        UIMenu* mpMenu;
    };

    // `first` may be null: no menu is open.
    explicit UIMenuChain(UIMenu* first) : mpFirst(first) {}

    Iterator begin() const { return Iterator(mpFirst); }
    Iterator end() const { return Iterator(nullptr); }

    // Null for an empty chain.
    UIMenu* getDeepest() const
    {
        UIMenu* deepest = nullptr;
        for (UIMenu* menu : *this)
            deepest = menu;
        return deepest;
    }

    bool contains(const UIBase* element) const
    {
        for (const UIMenu* menu : *this)
            if (menu == element)
                return true;
        return false;
    }

private:
    UIMenu* mpFirst;
};
