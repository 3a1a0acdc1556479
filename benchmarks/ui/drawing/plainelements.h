#pragma once

#include "benchmarks/ui/drawing/interfacescene.h"
#include "reflection/objectlist.h"
#include "reflection/propertylist.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uilist.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"
#include "ui/uiwindow.h"

#include <cstdio>
#include <memory>
#include <vector>

// The elements that a benchmark's interface is made of, with the toolkit's own parts.
namespace plain
{
constexpr sSize ElementSize{74, 18};
constexpr int SpinWidth = 16;
constexpr int ListRowHeight = 16;

class Label : public UIBase
{
public:
    explicit Label(const char* text) : mText(text) { setSize(ElementSize); }

    void eventPaint(UIPainter* painter) override
    {
        painter->drawString(getOwnRegion(), mText, UIPainter::getColors().mFontColor,
                            UIPainter::eAlignment::LeftMiddle);
    }

private:
    const char* mText;
};

// A number in a sunken box, with a button on each side.
class NumberBox : public UIBase
{
public:
    explicit NumberBox(int number) : mNumber(number)
    {
        setSize(ElementSize);
        addButton(UISpinButton::eDirection::Left, 0);
        addButton(UISpinButton::eDirection::Right, static_cast<int>(ElementSize.width) - SpinWidth);
    }

    void eventPaint(UIPainter* painter) override
    {
        const sRect box(SpinWidth, 0, static_cast<int>(ElementSize.width) - SpinWidth,
                        static_cast<int>(ElementSize.height));
        char text[16];
        std::snprintf(text, sizeof(text), "%d", mNumber);
        painter->drawRect(box, UIPainter::getColors().mClientRegionColor);
        painter->drawConcaveRect(box);
        painter->drawString(box, text, UIPainter::getColors().mClientFontColor, UIPainter::eAlignment::RightMiddle);
    }

private:
    void addButton(UISpinButton::eDirection direction, int x)
    {
        UIBase* button = new UISpinButton(direction);
        button->setPosition(sPoint(x, 0));
        button->setSize({SpinWidth, ElementSize.height});
        add(button);
    }

    int mNumber;
};

class Row : public ObjectBase
{
public:
    explicit Row(const char* name) : mName(name) {}

    void makePropertyList(PropertyList& list) override { list.addReference("Name", mName); }

private:
    AutoString mName;
};

class RowList : public UIList
{
public:
    explicit RowList(const InterfaceTexts& texts)
    {
        setAttribute(RowElement);
        setSize({0, (sInterfaceScene::BoxNum + 2) * ListRowHeight});
        addColumn("Name", PropertyBase::getPropertyType<AutoString>(), 200, eColumnAlignment::Left);
        for (unsigned int i = 0; i < sInterfaceScene::BoxNum; ++i)
        {
            mRow.push_back(std::make_unique<Row>(texts.getRow(i)));
            mObjects.addLast(mRow.back().get());
        }
        setObjectList(&mObjects);
    }

    ~RowList() override { setObjectList(nullptr); }

private:
    std::vector<std::unique_ptr<Row>> mRow;
    ObjectList mObjects;
};

inline void addBlock(UIForm& form, const InterfaceTexts& texts)
{
    const auto addButton = [&form](const char* caption)
    {
        UIButton* button = new UIButton;
        button->setCaption(caption);
        button->setSize(ElementSize);
        form.addClient(button);
    };
    for (unsigned int i = 0; i < sInterfaceScene::LabelNum; ++i)
    {
        form.addClient(new Label(texts.getLabel(i)));
        addButton(texts.getButton(i));
        if (i < sInterfaceScene::BoxNum)
            form.addClient(new NumberBox(InterfaceTexts::getNumber(i)));
    }
    form.addClient(new RowList(texts));
}

template <typename Fill>
void addWindow(unsigned int number, Fill&& fill, unsigned int height = sInterfaceScene::BlockHeight)
{
    const sInterfaceScene::sPlace place = sInterfaceScene::getPlace(number);
    UIWindow* window = new UIWindow(UIWindow::eStyle::Convex, UIWindow::TitleBar | UIWindow::Movable, true, false,
                                    false, UIForm::FlowLayout | UIForm::ScrollBars, nullptr);
    window->setTitle("Window");
    window->setPosition(sPoint(place.x, place.y));
    window->setSize({sInterfaceScene::BlockWidth, height});
    fill(*window);
    UISystem::getInstance()->addWindow(window);
}
}
