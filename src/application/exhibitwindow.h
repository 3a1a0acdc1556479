#pragma once

#include "foundation/autostring.h"
#include "ui/uimenu.h"
#include "ui/uiwindow.h"

#include <span>

class ExhibitWindow;
class UIDialog;

// A window of the gallery: where it stands, what kind of window it is, and what it holds.
struct sExhibit
{
    const char* title;
    sRect place;
    unsigned int windowAttribute;
    unsigned int formAttribute;
    bool hasSizeButtons; // minimize and maximize
    void (*build)(ExhibitWindow& window);
};

// A row of a constant table from which a menu of an exhibit is made.
struct sExhibitMenuRow
{
    const char* name;
    UIMenu::eItemAttribute attribute = UIMenu::eItemAttribute::Normal;
    bool enable = true;
    bool check = false;
    std::span<const sExhibitMenuRow> subMenu = {};
};

// Shows one exhibit. What was done to its elements last, a click, a choice, an answer, stands in its report.
class ExhibitWindow : public UIWindow
{
public:
    explicit ExhibitWindow(const sExhibit& exhibit);

    void report(const AutoString& text) { mReport = text; }
    const AutoString& getReport() const { return mReport; }

    // A client that reports its caption when it is clicked.
    UIButton* addButton(const char* caption, unsigned int width);
    void notifyButton(UIButton* button);

    // A line that shows the report.
    void addReport();

    // A client as large as the client region.
    void addFill(UIBase* client);

    // Scrolls, as soon as there is something to scroll.
    void scrollTo(const sPoint& position) { mFirstScroll = position; }

    // Each item reports its name. The caller owns the menu.
    UIMenu* makeMenu(std::span<const sExhibitMenuRow> rows);

    void notifyAnswer(UIDialog* dialog);

    void update(float deltaTime) override;

private:
    AutoString mReport;
    UIBase* mFill = nullptr;
    sPoint mFirstScroll = sPoint::Zero;
};
