#include "ui/uimenu.h"

#include "ui/uikeycode.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr int RowHeight = 14;
constexpr int TopMargin = 4;
constexpr int TextLeft = 12;
constexpr int SideMargin = 8;
constexpr int WidthBesideText = 24;

// How far a submenu lies over its parent.
constexpr int Overlap = 4;

int getRowTop(const UIMenu::Item& item)
{
    return TopMargin + static_cast<int>(item.getIndex()) * RowHeight;
}

sColor getTextColor(const UIMenu::Item& item, bool selected)
{
    const UIColorScheme& colors = UIPainter::getColors();
    if (!item.isEnabled())
        return colors.mMenuDisableFontColor;
    return selected ? colors.mMenuSelectFontColor : colors.mMenuFontColor;
}

void endMenus()
{
    if (UISystem* system = UISystem::getInstance())
        system->notifyMenuEnd();
}
}

UIMenu::Item::Item(const char* name, FunctorIntermediate<void, void>* functor, UIMenu* subMenu,
                   eItemAttribute attribute, bool enable, bool check, unsigned int index)
    : mFunctor(functor),
      mName(name),
      mSubMenu(subMenu),
      mEnable(enable),
      mCheck(check),
      mAttribute(attribute),
      mIndex(index)
{
}

UIMenu::Item::~Item() = default;

void UIMenu::Item::occurEvent()
{
    if (mFunctor)
        (*mFunctor)();
}

void UIMenu::Item::setCheck(bool check)
{
    if (mAttribute == eItemAttribute::Check || mAttribute == eItemAttribute::Radio)
        mCheck = check;
}

UIMenu::UIMenu()
{
    initialize();
}

UIMenu::~UIMenu()
{
    if (UISystem* system = UISystem::getInstance())
        system->notifyMenuChange(this);
    for (Item* item : mItem)
        delete item;
}

void UIMenu::initialize()
{
    mOpenItem = nullptr;
    mSelectItem = nullptr;
    setBorderStyle(eBorderStyle::Frame);
}

void UIMenu::addItem(const char* name, FunctorIntermediate<void, void>* functor, UIMenu* subMenu,
                     eItemAttribute attribute, bool enable, bool check)
{
    mItem.addLast(new Item(name, functor, subMenu, attribute, enable, check, mItem.size()));
    resize();
}

UIMenu* UIMenu::getSubMenu() const
{
    return mOpenItem && mOpenItem->isEnabled() ? mOpenItem->getSubMenu() : nullptr;
}

UIMenu* UIMenu::findSubMenu(const char* name) const
{
    const Item* item = findItem(name);
    return item ? item->getSubMenu() : nullptr;
}

void UIMenu::setItemCheck(const char* name, bool check)
{
    if (Item* item = findItem(name))
        item->setCheck(check);
}

bool UIMenu::isItemChecked(const char* name) const
{
    const Item* item = findItem(name);
    return item && item->isChecked();
}

void UIMenu::setItemEnable(const char* name, bool enable)
{
    if (Item* item = findItem(name))
        item->setEnable(enable);
}

bool UIMenu::isItemEnabled(const char* name) const
{
    const Item* item = findItem(name);
    return item && item->isEnabled();
}

void UIMenu::checkItem(Item* item, bool check)
{
    if (item->getAttribute() == eItemAttribute::Radio)
    {
        if (!check)
            return;
        for (Item* other : mItem)
            other->setCheck(false);
    }
    item->setCheck(check);
}

void UIMenu::openSubMenu(Item* item)
{
    mOpenItem = item;
    UIMenu* menu = item->getSubMenu();
    if (!menu)
        return;

    const sRect view = UISystem::getUIViewRect();
    const int width = static_cast<int>(menu->getSize().width);
    const int height = static_cast<int>(menu->getSize().height);
    sPoint place(getPosition().x + static_cast<int>(getSize().width) - Overlap, getPosition().y + getRowTop(*item));
    if (place.x + width > view.right)
        place.x = getPosition().x - width + Overlap;
    if (place.y + height > view.bottom)
        place.y = getPosition().y - height + RowHeight;
    menu->initialize();
    menu->setPosition(place);
}

void UIMenu::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), UIPainter::getColors().mMenuColor);
    drawBorder(painter);
    for (const Item* item : mItem)
        paintItem(painter, *item, getRowTop(*item));
}

// The selection stays when the pointer leaves.
void UIMenu::eventMouseMove(const sPoint& position)
{
    if (Item* item = getItemAt(position))
        mSelectItem = item;
}

// On purpose: the mouse chooses disabled items as well, and a separator ends the menu.
void UIMenu::eventMouseUp(const sPoint& position, unsigned int button)
{
    Item* item = button == UIMouseUpMessage::FirstButton ? getItemAt(position) : nullptr;
    if (!item)
        return;
    if (item->getSubMenu())
    {
        openSubMenu(item);
        return;
    }
    checkItem(item, !item->isChecked());
    item->occurEvent();
    endMenus();
}

void UIMenu::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (combinationKey != 0)
        return;
    switch (keyCode)
    {
    case UIKeyCode::Return: decideItem(); break;
    case UIKeyCode::Escape: endMenus(); break;
    case UIKeyCode::UpArrow: mSelectItem = stepFrom(mSelectItem, -1); break;
    case UIKeyCode::DownArrow: mSelectItem = stepFrom(mSelectItem, 1); break;
    default: break;
    }
}

UIMenu::Item* UIMenu::findItem(const char* name) const
{
    for (Item* item : mItem)
        if (item->getName() && std::strcmp(item->getName(), name) == 0)
            return item;
    return nullptr;
}

UIMenu::Item* UIMenu::getItemAt(const sPoint& position) const
{
    const int row = (position.y - TopMargin) / RowHeight;
    return row >= 0 && row < static_cast<int>(mItem.size()) ? mItem[static_cast<unsigned int>(row)] : nullptr;
}

// The next item in a direction that is no separator, or else the last one there; from none, the one at the far end.
UIMenu::Item* UIMenu::stepFrom(Item* item, int direction) const
{
    if (mItem.empty())
        return nullptr;
    const int last = static_cast<int>(mItem.size()) - 1;
    if (!item)
        return mItem[direction < 0 ? static_cast<unsigned int>(last) : 0];

    int index = static_cast<int>(item->getIndex());
    do
        index = std::clamp(index + direction, 0, last);
    while (index != 0 && index != last && mItem[static_cast<unsigned int>(index)]->isSeparator());
    return mItem[static_cast<unsigned int>(index)];
}

void UIMenu::resize()
{
    int widest = 0;
    for (const Item* item : mItem)
        if (!item->isSeparator())
            widest = std::max(widest, UIPainter::getTextWidth(item->getName()));
    setSize({static_cast<unsigned int>(widest + WidthBesideText), mItem.size() * RowHeight + 2 * TopMargin});
}

// On purpose: the key does what the item stands for and leaves its mark as it is.
void UIMenu::decideItem()
{
    if (mSelectItem && mSelectItem->isEnabled() && mSelectItem->getSubMenu())
    {
        openSubMenu(mSelectItem);
        return;
    }
    if (mSelectItem && mSelectItem->isEnabled())
        mSelectItem->occurEvent();
    endMenus();
}

void UIMenu::paintItem(UIPainter* painter, const Item& item, int y) const
{
    const int width = static_cast<int>(getSize().width);
    const UIColorScheme& colors = UIPainter::getColors();
    if (item.isSeparator())
    {
        painter->drawLine(sPoint(TextLeft, y + RowHeight / 2 - 1), sPoint(width - SideMargin, y + RowHeight / 2 - 1),
                          colors.mMenuDisableFontColor);
        return;
    }

    const bool selected = &item == mSelectItem;
    if (selected)
        painter->drawRect(sRect(2, y, width - 2, y + RowHeight), colors.mMenuSelectColor);
    const sColor color = getTextColor(item, selected);
    painter->drawString(sPoint(TextLeft, y), item.getName(), color);
    if (item.getSubMenu())
    {
        const sPoint corner(width - SideMargin, y);
        painter->drawTriangle(corner + sPoint(2, 4), corner + sPoint(6, 7), corner + sPoint(2, 10), color);
    }
    if (item.isChecked())
        paintMark(painter, item, y, color);
}

void UIMenu::paintMark(UIPainter* painter, const Item& item, int y, sColor color) const
{
    if (item.getAttribute() == eItemAttribute::Radio)
    {
        painter->drawRect(sRect(3, y + 4, 9, y + 10), color);
        return;
    }
    painter->drawLine(sPoint(4, y + 7), sPoint(6, y + 9), color);
    painter->drawLine(sPoint(6, y + 9), sPoint(9, y + 3), color);
}
