#include "ui/uipulldownlist.h"

#include "ui/uipainter.h"
#include "ui/uiscrollbar.h"
#include "ui/uisystem.h"

namespace
{
constexpr int Border = 1;
constexpr int TextLeft = 4;
constexpr int TextTop = 2;
}

UIPulldownList::UIPulldownList() : UIRowList(FloatingElement, eBorderStyle::Frame, Border)
{
}

UIPulldownList::~UIPulldownList()
{
    deleteItems();
}

void UIPulldownList::addItem(const char* name)
{
    mItemList.addLast(new sItem{name, mItemList.size()});
    notifyItemChange();
}

void UIPulldownList::removeItem(unsigned int index)
{
    if (index >= mItemList.size())
        return;
    List<sItem>::iterator place = mItemList.begin() + static_cast<int>(index);
    delete *place;
    for (place = mItemList.remove(place); place != mItemList.end(); ++place)
        --(*place)->index;

    // On purpose: limits the scroll position, which is in pixels, by the number of items.
    mScrollBar->setMaximum(static_cast<int>(mItemList.size()));
    notifyItemChange();
}

void UIPulldownList::clearItem()
{
    deleteItems();
    notifyItemChange();
}

AutoString UIPulldownList::getItemName(unsigned int index) const
{
    return index < mItemList.size() ? mItemList[index]->name : AutoString();
}

void UIPulldownList::setSelectItem(unsigned int index)
{
    if (index != NoRow && index >= mItemList.size())
        return;
    mSelectRow = index;
    if (index != NoRow)
        scrollTo(index);
}

void UIPulldownList::selectItem(unsigned int index)
{
    if (index != NoRow && index >= mItemList.size())
        return;
    mSelectRow = index;
    UISystem* system = UISystem::getInstance();
    if (index == NoRow || !system)
        return;
    mChoosing = true;
    system->defocus();
    mChoosing = false;
}

void UIPulldownList::updateRegion(const sRect& absolute, const sRect& clip)
{
    updateOwnRegion(absolute, clip);
    setScrollBarParam();
    updateChildrenRegion(getAbsRegion(), getDrawRegion());
}

// An item that the pointer or an arrow has merely passed is no choice.
void UIPulldownList::eventDefocus()
{
    if (!mChoosing)
        mSelectRow = NoRow;
    call();
    hide();
}

void UIPulldownList::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawRect(getOwnRegion(), colors.mClientRegionColor);

    const sVisibleRows rows = getVisibleRows(mItemList.size());
    const int right = static_cast<int>(getSize().width) - Border;
    List<sItem>::iterator item = mItemList.begin() + static_cast<int>(rows.begin);
    int top = rows.top;
    for (unsigned int row = rows.begin; row < rows.end; ++row, ++item, top += RowHeight)
    {
        const bool selected = row == mSelectRow;
        if (selected)
            painter->drawRect(sRect(Border, top, right, top + RowHeight), colors.mClientRegionSelectColor);
        painter->drawString(sPoint(TextLeft, top + TextTop), (*item)->name,
                            selected ? colors.mClientSelectFontColor : colors.mClientFontColor);
    }
    drawBorder(painter);
}

void UIPulldownList::eventMouseMove(const sPoint& position)
{
    if (position.y > 0)
        setSelectItem(getRowAt(position.y));
}

void UIPulldownList::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (button & UIMouseDownMessage::FirstButton)
        selectItem(getRowAt(position.y));
}

void UIPulldownList::deleteItems()
{
    for (sItem* item : mItemList)
        delete item;
    mItemList.clear();
}

void UIPulldownList::setScrollBarParam()
{
    const int count = static_cast<int>(mItemList.size());
    const int height = static_cast<int>(getSize().height);
    placeBar({.needed = height < count * RowHeight + 2 * Border,
              .right = static_cast<int>(getSize().width),
              .top = 0,
              .height = height,
              .range = height - 2 * Border},
             mItemList.size());
}

void UIPulldownList::scrollTo(unsigned int index)
{
    const int rows = (static_cast<int>(getSize().height) - 2 * Border) / RowHeight;
    if (rows <= 0 || !isBarVisible())
        return;
    const int top = static_cast<int>(index) * RowHeight;
    if (top < getScroll())
        mScrollBar->setBarPosition(top);
    else if (getScroll() + rows * RowHeight < top)
        mScrollBar->setBarPosition(top - rows * RowHeight);
}

void UIPulldownList::notifyItemChange()
{
    setScrollBarParam();
    mSelectRow = NoRow;
}
