#include "ui/uimainmenu.h"

#include "ui/uikeycode.h"
#include "ui/uimenu.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

namespace
{
constexpr int WidthBesideText = 16;
}

UIMainMenu::Item::Item(const char* name, UIMenu* menu, unsigned int index) : mName(name), mMenu(menu), mIndex(index)
{
}

UIMainMenu::Item::~Item() = default;

UIMainMenu::UIMainMenu()
{
    initialize();
}

UIMainMenu::~UIMainMenu()
{
    if (UISystem* system = UISystem::getInstance())
        system->notifyMainMenuChange(this, nullptr);
    for (Item* item : mItem)
        delete item;
}

void UIMainMenu::addItem(const char* name, UIMenu* menu)
{
    mItem.addLast(new Item(name, menu, mItem.size()));
}

void UIMainMenu::initialize()
{
    mSelectItem = nullptr;
    mOpenItem = nullptr;
    setBorderStyle(eBorderStyle::Frame);

    int x = 0;
    for (Item* item : mItem)
    {
        const int width = UIPainter::getTextWidth(item->getName()) + WidthBesideText;
        item->setRegion(sRect(x, 0, x + width, static_cast<int>(getSize().height)));
        x += width;
    }
}

UIMenu* UIMainMenu::getSubMenu() const
{
    return mOpenItem ? mOpenItem->getSubMenu() : nullptr;
}

int UIMainMenu::getMenuIndex(const sPoint& point) const
{
    for (const Item* item : mItem)
        if (item->getName() && item->getRegion().intersect(point))
            return static_cast<int>(item->getIndex());
    return -1;
}

void UIMainMenu::openSubMenu(Item* item)
{
    mOpenItem = item;
    UIMenu* menu = item->getSubMenu();
    if (!menu)
        return;
    menu->initialize();
    menu->setPosition(sPoint(item->getRegion().left, item->getRegion().bottom));
    if (UISystem* system = UISystem::getInstance())
        system->notifyMainMenuSelect(menu);
}

// The selected entry is not shown, only the open one.
void UIMainMenu::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawRect(getOwnRegion(), colors.mMenuColor);
    for (const Item* item : mItem)
    {
        const bool open = item == mOpenItem;
        if (open && item->getName())
            painter->drawRect(item->getRegion(), colors.mMenuSelectColor);
        painter->drawString(item->getRegion(), item->getName(),
                            open ? colors.mMenuSelectFontColor : colors.mMenuFontColor,
                            UIPainter::eAlignment::CenterMiddle);
    }
    drawBorder(painter);
}

void UIMainMenu::eventMouseMove(const sPoint& position)
{
    if (Item* item = getItemAt(position))
        mSelectItem = item;
}

void UIMainMenu::eventMouseDown(const sPoint& position, unsigned int button)
{
    Item* item = button == UIMouseDownMessage::FirstButton ? getItemAt(position) : nullptr;
    if (item)
        openSubMenu(item);
}

void UIMainMenu::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (combinationKey == 0 && keyCode == UIKeyCode::Return && mSelectItem)
        openSubMenu(mSelectItem);
}

UIMainMenu::Item* UIMainMenu::getItemAt(const sPoint& position) const
{
    const int index = getMenuIndex(position);
    return index < 0 ? nullptr : mItem[static_cast<unsigned int>(index)];
}
