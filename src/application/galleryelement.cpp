#include "application/galleryelement.h"

#include "application/exhibitwindow.h"
#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "ui/uicolor.h"
#include "ui/uimessagedialog.h"
#include "ui/uipulldownlist.h"
#include "ui/uisystem.h"

#include <cstdio>

namespace
{
constexpr unsigned int LabelHeight = 14;
constexpr int LineHeight = 12;
constexpr int SideMargin = 3;
constexpr sSize QuestionSize{132, 18};
constexpr int PulldownSize = 16;
constexpr int ListHeight = 82;
}

GalleryText::GalleryText(const char* text, const sSize& size, UIPainter::eAlignment alignment)
    : mText(text), mAlignment(alignment)
{
    setSize(size);
    setBorderStyle(eBorderStyle::Concave);
}

GalleryText* GalleryText::makeLabel(const char* text)
{
    GalleryText* label = new GalleryText(text, {0, LabelHeight}, UIPainter::eAlignment::LeftMiddle);
    label->setAttribute(RowElement);
    label->setBorderStyle(eBorderStyle::None);
    return label;
}

void GalleryText::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    const sRect region = getOwnRegion();
    const sRect inside(SideMargin, 1, region.right - SideMargin, region.bottom - 1);
    const bool boxed = getBorderStyle() != eBorderStyle::None;
    if (boxed)
        painter->drawRect(region, colors.mClientRegionColor);
    painter->drawString(inside, mText, boxed ? colors.mClientFontColor : colors.mFontColor, mAlignment);
    drawBorder(painter);
}

GalleryPicture::GalleryPicture(const sSize& size, Paint function) : mPaint(function)
{
    setSize(size);
}

void GalleryPicture::eventPaint(UIPainter* painter)
{
    mPaint(*painter, getOwnRegion());
}

GalleryProbe::GalleryProbe(const sSize& size)
{
    setSize(size);
}

void GalleryProbe::eventPaint(UIPainter* painter)
{
    const UIColorScheme& colors = UIPainter::getColors();
    painter->drawRect(getOwnRegion(), isFocused() ? colors.mHighLightColor : colors.mClientRegionColor);
    painter->drawFrame(getOwnRegion(), colors.mDarkLightColor);

    int y = SideMargin;
    const auto drawLine = [&](const char* format, auto... values)
    {
        char text[64];
        std::snprintf(text, sizeof(text), format, values...);
        painter->drawString(sPoint(SideMargin, y), text,
                            isEnabled() ? colors.mClientFontColor : colors.mDisableFontColor);
        y += LineHeight;
    };
    drawLine("%u down, %u up", mCount.down, mCount.up);
    drawLine("%u double", mCount.doubleClick);
    drawLine("wheel %d, key %u", mCount.wheel, mCount.lastKey);
}

void GalleryProbe::eventMouseMove(const sPoint&)
{
    ++mCount.move;
}

void GalleryProbe::eventMouseDown(const sPoint&, unsigned int)
{
    ++mCount.down;
}

void GalleryProbe::eventMouseUp(const sPoint&, unsigned int)
{
    ++mCount.up;
}

void GalleryProbe::eventMouseDoubleClick(const sPoint&, unsigned int)
{
    ++mCount.doubleClick;
}

void GalleryProbe::eventMouseWheel(const sPoint& amount)
{
    mCount.wheel += amount.y;
}

void GalleryProbe::eventKeyDown(unsigned int keyCode, unsigned int)
{
    mCount.lastKey = keyCode;
}

class GalleryList::Row : public ObjectBase
{
public:
    explicit Row(int number) : mNumber(number), mSquare(static_cast<float>(number) * static_cast<float>(number))
    {
        mName.format("Row %d with a name", number);
    }

    void makePropertyList(PropertyList& list) override
    {
        list.addReference("Name", mName);
        list.addReference("Number", mNumber);
        list.addReference("Square", mSquare);
    }

private:
    AutoString mName;
    int mNumber;
    float mSquare;
};

GalleryList::GalleryList(const sSize& size, unsigned int rowNum) : mRowList(std::make_unique<ObjectList>())
{
    setSize(size);
    addColumn("Name", PropertyBase::getPropertyType<AutoString>(), 76, eColumnAlignment::Left);
    addColumn("Number", PropertyBase::getPropertyType<int>(), 44, eColumnAlignment::Center);
    addColumn("Square", PropertyBase::getPropertyType<float>(), 76, eColumnAlignment::Right);
    for (unsigned int i = 0; i < rowNum; ++i)
    {
        mRow.push_back(std::make_unique<Row>(static_cast<int>(i)));
        mRowList->addLast(mRow.back().get());
    }
    setObjectList(mRowList.get());
}

// The properties of the rows go first.
GalleryList::~GalleryList()
{
    setObjectList(nullptr);
}

GalleryQuestion::GalleryQuestion(ExhibitWindow* window, const char* caption, UIDialog::eButtons buttons,
                                 unsigned int num)
    : UIButton(this, &GalleryQuestion::ask, caption), mpWindow(window), mButtons(buttons), mNum(num)
{
    setSize(QuestionSize);
}

void GalleryQuestion::ask(UIButton*)
{
    for (unsigned int i = 0; i < mNum; ++i)
        UISystem::getInstance()->addWindow(new UIMessageDialog("Question", "Which answer is the right one?", mButtons,
                                                               mpWindow, &ExhibitWindow::notifyAnswer));
}

GalleryPulldown::GalleryPulldown(ExhibitWindow* window, const sSize& size, unsigned int itemNum)
    : mpWindow(window), mList(new UIPulldownList(this, &GalleryPulldown::notifyClosed))
{
    setSize(size);
    UIBase* button = new UIPulldownButton(this, &GalleryPulldown::open);
    button->setPosition(sPoint(static_cast<int>(size.width) - PulldownSize, 0));
    button->setSize({PulldownSize, PulldownSize});
    add(button);

    for (unsigned int i = 0; i < itemNum; ++i)
    {
        AutoString name;
        name.format("Item %u", i);
        mList->addItem(name.c_str());
    }
    mList->setPosition(sPoint(0, PulldownSize));
    mList->setSize({size.width, ListHeight});
    mList->setSelectItem(1);
    add(mList);
}

void GalleryPulldown::open(UIButton*)
{
    mList->sendMessage(UIShowMessage(), this);
    UISystem::getInstance()->focus(mList);
}

void GalleryPulldown::notifyClosed()
{
    const unsigned int item = mList->getSelectItem();
    mpWindow->report(item == UIPulldownList::NoRow ? AutoString("Nothing chosen") : mList->getItemName(item));
}
