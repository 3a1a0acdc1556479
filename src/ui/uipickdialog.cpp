#include "ui/uipickdialog.h"

#include "ui/uicolor.h"
#include "ui/uipainter.h"
#include "ui/uitextcontrol.h"

namespace
{
constexpr sSize Size{320, 240};
constexpr sSize ButtonSize{48, 16};
constexpr unsigned int ButtonHeight = 16;
constexpr int Left = 16;
constexpr int SubjectTop = 24;
constexpr int SubjectBottom = 36;
constexpr int ButtonTop = 40;
constexpr sPoint ListPosition{16, 64};
constexpr sSize ListSize{288, 122};
constexpr int NameTop = 194;
constexpr int FilterTop = 214;
constexpr sSize BoxSize{224, 16};
constexpr int AnswerLeft = 256;
}

void UIPickDialog::eventPaint(UIPainter* painter)
{
    UIWindow::eventPaint(painter);
    const sRect line(Left, SubjectTop, static_cast<int>(getSize().width) - Left, SubjectBottom);
    painter->drawString(line, getSubject(), UIPainter::getColors().mFontColor, UIPainter::eAlignment::LeftTop);
}

void UIPickDialog::initializeFrame(UIList* list, std::span<const sColumn> columns)
{
    setSize(Size);
    moveToCenter();
    place(getOkButton(), sPoint(AnswerLeft, NameTop), ButtonSize);
    place(getCancelButton(), sPoint(AnswerLeft, FilterTop), ButtonSize);

    mRows.setContentStability(false);
    mList = list;
    for (const sColumn& column : columns)
        mList->addColumn(column.name, column.type, column.width, column.alignment);
    add(mList);
    place(mList, ListPosition, ListSize);

    UIBase* box =
        new UITextControl(new ReferenceProperty<AutoString>(nullptr, &mName), false, PropertyBase::CurrentElement);
    add(box);
    place(box, sPoint(Left, NameTop), BoxSize);
}

void UIPickDialog::addFilterBox(UIBase* box)
{
    add(box);
    place(box, sPoint(Left, FilterTop), BoxSize);
}

void UIPickDialog::clearRows()
{
    mRows.setCount(0);
    showRows();
}

void UIPickDialog::showRows()
{
    mList->setObjectList(&mRows);
}

void UIPickDialog::refreshList()
{
    mList->refresh();
}

void UIPickDialog::placeButton(UIButton* button, int left, unsigned int width)
{
    add(button);
    place(button, sPoint(left, ButtonTop), {width, ButtonHeight});
}

void UIPickDialog::place(UIBase* element, const sPoint& position, const sSize& size)
{
    element->setPosition(position);
    element->setSize(size);
}
