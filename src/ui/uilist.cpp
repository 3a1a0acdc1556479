#include "ui/uilist.h"

#include "foundation/utils.h"
#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "reflection/valuetext.h"
#include "ui/uiaxis.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uipainter.h"
#include "ui/uiscrollbar.h"

namespace
{
constexpr int HeaderTop = 1;
constexpr int HeaderHeight = 16;
constexpr int RowTop = HeaderTop + HeaderHeight;
constexpr int Border = 1;

constexpr UIPainter::eAlignment TextAlignments[] = {
    UIPainter::eAlignment::LeftMiddle,
    UIPainter::eAlignment::CenterMiddle,
    UIPainter::eAlignment::RightMiddle,
};
}

UIList::UIList() : UIRowList(0, eBorderStyle::Concave, RowTop)
{
}

UIList::~UIList()
{
    deleteProperties();
    for (Column* column : mColumnList)
        delete column;
}

void UIList::addColumn(const char* name, unsigned int propertyType, unsigned int width, eColumnAlignment alignment)
{
    UIButton* header = new UIButton(this, &UIList::notifyColumnButton, name);
    add(header);
    mColumnList.addLast(new Column{header, name, Utils::hash(name), static_cast<unsigned char>(propertyType),
                                   static_cast<unsigned char>(width), alignment});
    updateButtonLayout();
}

void UIList::setObjectList(ObjectList* list)
{
    mObjectList = list;
    updateProperties();
}

void UIList::setSelectRow(unsigned int row)
{
    if (mObjectList && (row == NoRow || isRow(row)))
        mSelectRow = row;
}

void UIList::selectRow(unsigned int row)
{
    setSelectRow(row);
    if (mObjectList && isRow(row))
        call();
}

void UIList::refresh()
{
    setSelectRow(NoRow);
    mScrollBar->setBarPosition(0);
    setScrollBarParam();
}

void UIList::updateRegion(const sRect& absolute, const sRect& clip)
{
    updateOwnRegion(absolute, clip);
    setScrollBarParam();
    updateButtonLayout();
    updateChildrenRegion(getAbsRegion(), getDrawRegion());
}

// On purpose: rows that are scrolled above the first one's place are painted too, below the headers.
void UIList::eventPaint(UIPainter* painter)
{
    painter->drawRect(getOwnRegion(), UIPainter::getColors().mClientRegionColor);
    if (!mObjectList)
        return;

    const sVisibleRows rows = getVisibleRows(mPropertyListList.size());
    const int right = static_cast<int>(getSize().width) - Border;
    List<PropertyList>::iterator properties = mPropertyListList.begin() + static_cast<int>(rows.begin);
    sRect rect(Border, rows.top, right, rows.top + RowHeight);
    for (unsigned int row = rows.begin; row < rows.end; ++row, ++properties)
    {
        drawRow(painter, *properties, rect, row);
        rect = rect + sPoint(0, RowHeight);
    }
    drawBorder(painter);
}

void UIList::eventMouseDown(const sPoint& position, unsigned int button)
{
    if (button & UIMouseDownMessage::FirstButton)
        selectRow(getRowAt(position.y));
}

void UIList::eventMouseWheel(const sPoint& amount)
{
    if (isBarVisible())
        UIScrollBar::forwardWheel(amount, mScrollBar, mScrollBar, this);
    else
        delegate();
}

void UIList::drawRow(UIPainter* painter, PropertyList* properties, const sRect& rect, unsigned int row)
{
    if (!properties)
        return;
    if (row == mSelectRow)
        painter->drawRect(rect, UIPainter::getColors().mClientRegionSelectColor);

    // On purpose: the left edge counts the border of the list and the right one does not, so that a cell ends one
    // pixel before its header.
    sRect cell(rect.left, rect.top, 0, rect.bottom);
    unsigned int index = 0;
    for (const Column* column : mColumnList)
    {
        cell.right += column->width;
        if (PropertyBase* property = properties->find(column->nameHash, column->type))
            drawColumn(painter, property, cell, static_cast<unsigned int>(column->alignment), row, index);
        cell.left += column->width;
        ++index;
    }
}

void UIList::drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                        unsigned int row, unsigned int)
{
    char buffer[ValueTextSize];
    drawText(painter, property->getString(buffer, PropertyBase::CurrentElement), rect, alignment, row);
}

void UIList::drawText(UIPainter* painter, const char* text, const sRect& rect, unsigned int alignment, unsigned int row)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawString(rect, text, row == mSelectRow ? colors.mClientSelectFontColor : colors.mClientFontColor,
                        TextAlignments[alignment]);
}

void UIList::updateProperties()
{
    deleteProperties();
    if (!mObjectList)
        return;
    mPropertyListList.reserve(mObjectList->size());
    for (ObjectBase* object : *mObjectList)
    {
        PropertyList* properties = object ? new PropertyList : nullptr;
        if (properties)
            object->makePropertyList(*properties);
        mPropertyListList.addLast(properties);
    }
}

void UIList::deleteProperties()
{
    for (PropertyList* properties : mPropertyListList)
        delete properties;
    mPropertyListList.clear();
}

void UIList::updateButtonLayout()
{
    int left = Border;
    for (const Column* column : mColumnList)
    {
        column->header->setPosition(sPoint(left, HeaderTop));
        column->header->setSize(makeSize(column->width, HeaderHeight));
        left += column->width;
    }
}

void UIList::setScrollBarParam()
{
    if (!mObjectList)
    {
        mScrollBar->sendMessage(UIHideMessage(), this);
        return;
    }
    const unsigned int count = mPropertyListList.size();
    const int view = static_cast<int>(getSize().height) - RowTop - Border;
    placeBar({.needed = view <= static_cast<int>(count) * RowHeight,
              .right = static_cast<int>(getSize().width) - Border,
              .top = RowTop,
              .height = view,
              .range = view - 1},
             count);
}

bool UIList::isRow(unsigned int row) const
{
    return row < mPropertyListList.size();
}
