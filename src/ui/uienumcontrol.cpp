#include "ui/uienumcontrol.h"

#include "reflection/typeset.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uikeycode.h"
#include "ui/uipainter.h"
#include "ui/uipulldownlist.h"
#include "ui/uisystem.h"

#include <algorithm>

namespace
{
constexpr unsigned int AcceptedTypes = typeRange(1, 11) | typeRange(18, 18);
constexpr unsigned int MinimumWidth = 64;
constexpr unsigned int BoxHeight = 16;
constexpr int TextLeft = 2;
}

UIEnumControl::UIEnumControl(PropertyBase* property, const sEnumInfo* table, unsigned int count, bool disable,
                             unsigned int index)
    : UIControl(property, disable, index),
      mpPulldownButton(new UIPulldownButton(this, &UIEnumControl::notifyPulldown)),
      mpPulldownList(new UIPulldownList(this, &UIEnumControl::notifySelect)),
      mpValues(new unsigned int[count])
{
    requireType(AcceptedTypes);
    int widest = 0;
    for (unsigned int i = 0; i < count; ++i)
    {
        mpPulldownList->addItem(table[i].name);
        mpValues[i] = table[i].value;
        widest = std::max(widest, UIPainter::getTextWidth(table[i].name));
    }
    if (disable)
        mpPulldownButton->disable();
    mpPulldownList->hide();
    add(mpPulldownButton);

    setMinimumSize({MinimumWidth, BoxHeight + (property->getName() ? NameHeight : 0)});
    setDefaultSize();
    const unsigned int needed =
        static_cast<unsigned int>(widest + 2 * TextLeft) + mpPulldownButton->getMinimumSize().width;
    setSize({std::max(getSize().width, needed), getSize().height});
}

UIEnumControl::~UIEnumControl()
{
    if (!mpPulldownList->getParent())
        delete mpPulldownList;
}

AutoString UIEnumControl::getItemName() const
{
    return mpPulldownList->getItemName(getRow());
}

void UIEnumControl::setItemName(AutoString name)
{
    for (unsigned int row = 0; row < mpPulldownList->getItemCount(); ++row)
        if (mpPulldownList->getItemName(row) == name)
        {
            getProperty()->setNumeric(mpValues[row], getIndex());
            return;
        }
}

void UIEnumControl::eventSize()
{
    const sRect box = getBox();
    const unsigned int width = mpPulldownButton->getMinimumSize().width;
    mpPulldownButton->setSize({width, box.getHeight()});
    mpPulldownButton->setPosition(sPoint(box.right - static_cast<int>(width), box.top));
}

void UIEnumControl::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    const sRect box = getBox();
    if (box.top > 0)
        paintName(painter);
    painter->drawRect(box, colors.mClientRegionColor);
    const sRect text(box.left + TextLeft, box.top, mpPulldownButton->getPosition().x, box.bottom);
    painter->drawString(text, getItemName(), isEnabled() ? colors.mClientFontColor : colors.mDisableFontColor,
                        UIPainter::eAlignment::LeftMiddle);
    painter->drawConcaveRect(box);
}

void UIEnumControl::eventMouseUp(const sPoint& position, unsigned int button)
{
    if (button == UIMouseUpMessage::FirstButton && getOwnRegion().intersect(position))
        notifyPulldown(mpPulldownButton);
}

void UIEnumControl::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (keyCode == UIKeyCode::Return && !combinationKey)
        notifyPulldown(mpPulldownButton);
}

void UIEnumControl::notifyPulldown(UIButton*)
{
    if (!isEnabled())
        return;
    if (!mpPulldownList->getParent())
        add(mpPulldownList);
    mpPulldownList->setPosition(sPoint(0, static_cast<int>(getSize().height)));
    mpPulldownList->setSize({getSize().width, mpPulldownList->getItemCount() * UIPulldownList::RowHeight | 2});
    mpPulldownList->setSelectItem(getRow());
    mpPulldownList->sendMessage(UIShowMessage(), this);
    if (UISystem* system = UISystem::getInstance())
        system->focus(mpPulldownList);
    sendMessage(UIBeginEditMessage());
}

void UIEnumControl::notifySelect()
{
    mpPulldownList->remove();
    const unsigned int row = mpPulldownList->getSelectItem();
    if (row < mpPulldownList->getItemCount())
    {
        getProperty()->setNumeric(mpValues[row], getIndex());
        if (mpFunctor)
            (*mpFunctor)(row);
    }
    sendMessage(UIEndEditMessage());
}

// On purpose: what is shown is the current element, what is written the control's own.
unsigned int UIEnumControl::getRow() const
{
    const unsigned int value = static_cast<unsigned int>(getProperty()->getNumeric(PropertyBase::CurrentElement));
    for (unsigned int row = 0; row < mpPulldownList->getItemCount(); ++row)
        if (mpValues[row] == value)
            return row;
    return UIPulldownList::NoRow;
}

sRect UIEnumControl::getBox() const
{
    const int top = getProperty()->getName() ? static_cast<int>(NameHeight) : 0;
    return sRect(0, top, static_cast<int>(getSize().width), static_cast<int>(getSize().height));
}
