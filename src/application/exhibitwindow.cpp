#include "application/exhibitwindow.h"

#include "application/galleryelement.h"
#include "ui/uibutton.h"
#include "ui/uicolor.h"
#include "ui/uidialog.h"

namespace
{
constexpr unsigned int ButtonHeight = 18;
constexpr unsigned int ReportHeight = 14;

class ReportLine : public UIBase
{
public:
    explicit ReportLine(const ExhibitWindow& window) : UIBase(RowElement), mWindow(window)
    {
        setSize({0, ReportHeight});
    }

    void eventPaint(UIPainter* painter) override
    {
        painter->drawString(getOwnRegion(), mWindow.getReport(), UIPainter::getColors().mHighLightColor,
                            UIPainter::eAlignment::LeftMiddle);
    }

private:
    const ExhibitWindow& mWindow;
};

// Does what an item of a menu stands for: it reports the item's name.
class ReportFunctor : public FunctorIntermediate<void, void>
{
public:
    ReportFunctor(ExhibitWindow* window, const char* name) : mpWindow(window), mpName(name) {}

    void operator()() override { mpWindow->report(mpName); }
    ReportFunctor* duplicate() const override { return new ReportFunctor(mpWindow, mpName); }

private:
    ExhibitWindow* mpWindow;
    const char* mpName;
};
}

ExhibitWindow::ExhibitWindow(const sExhibit& exhibit)
    : UIWindow(eStyle::Convex, exhibit.windowAttribute, true, exhibit.hasSizeButtons, exhibit.hasSizeButtons,
               exhibit.formAttribute, nullptr)
{
    setTitle(exhibit.title);
    setPosition(sPoint(exhibit.place.left, exhibit.place.top));
    setSize({exhibit.place.getWidth(), exhibit.place.getHeight()});
    exhibit.build(*this);
}

UIButton* ExhibitWindow::addButton(const char* caption, unsigned int width)
{
    UIButton* button = new UIButton(this, &ExhibitWindow::notifyButton, caption);
    button->setSize({width, ButtonHeight});
    addClient(button);
    return button;
}

void ExhibitWindow::notifyButton(UIButton* button)
{
    report(button->getCaption() ? button->getCaption() : "A button without a caption");
}

void ExhibitWindow::addReport()
{
    addClient(new ReportLine(*this));
}

void ExhibitWindow::addFill(UIBase* client)
{
    mFill = client;
    addClient(client);
}

UIMenu* ExhibitWindow::makeMenu(std::span<const sExhibitMenuRow> rows)
{
    UIMenu* menu = new UIMenu;
    for (const sExhibitMenuRow& row : rows)
        menu->addItem(row.name, row.name ? new ReportFunctor(this, row.name) : nullptr,
                      row.subMenu.empty() ? nullptr : makeMenu(row.subMenu), row.attribute, row.enable, row.check);
    return menu;
}

void ExhibitWindow::notifyAnswer(UIDialog* dialog)
{
    AutoString text;
    text.format("Answer %u", dialog->getReturnValue());
    report(text);
}

void ExhibitWindow::update(float deltaTime)
{
    if (mFill)
        mFill->setSize({getClientRegion().getWidth(), getClientRegion().getHeight()});
    UIWindow::update(deltaTime);
    if (mFirstScroll == sPoint::Zero)
        return;
    setScrollBarPosition(mFirstScroll);
    mFirstScroll = sPoint::Zero;
}
