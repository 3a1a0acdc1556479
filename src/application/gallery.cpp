#include "application/gallery.h"

#include "application/exhibitwindow.h"
#include "application/galleryelement.h"
#include "application/galleryreferences.h"
#include "application/gallerystructures.h"
#include "application/gallerytool.h"
#include "application/galleryvalues.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "tool/toolsystem.h"
#include "ui/uibutton.h"
#include "ui/uigroup.h"
#include "ui/uimainmenu.h"
#include "ui/uiscrollbar.h"
#include "ui/uisplitter.h"
#include "ui/uisystem.h"
#include "ui/uitexture.h"

namespace
{
using eAlignment = UIPainter::eAlignment;
using eItemAttribute = UIMenu::eItemAttribute;

constexpr const char* LongText = "A text that is longer than its place";

// The kinds of windows in the table.
constexpr unsigned int Fixed = UIWindow::TitleBar | UIWindow::Movable;
constexpr unsigned int Sizable = Fixed | UIWindow::Sizable;
constexpr unsigned int Flow = UIForm::FlowLayout | UIForm::ScrollBars;
constexpr unsigned int Filled = Flow | UIForm::FillClientRegion;

template <typename T>
T* add(ExhibitWindow& window, T* element, const sSize& size)
{
    element->setSize(size);
    window.addClient(element);
    return element;
}

void addLabel(ExhibitWindow& window, const char* text)
{
    window.addClient(GalleryText::makeLabel(text));
}

void press(UIBase* element)
{
    element->sendMessage(UIMouseDownMessage(sPoint::Zero, UIMouseDownMessage::FirstButton));
}

void buildButtons(ExhibitWindow& window)
{
    addLabel(window, "As they are, disabled, pressed");
    window.addButton("Plain", 72);
    window.addButton("Disabled", 72)->disable();
    press(window.addButton("Pressed", 72));
    addLabel(window, "Captions that are cut, and none");
    window.addButton(LongText, 128);
    window.addButton("Narrow", 20);
    window.addButton(nullptr, 40);
    addLabel(window, "Arrows, and the buttons of windows");
    for (unsigned int direction = 0; direction < 4; ++direction)
        add(window,
            new UISpinButton(static_cast<UISpinButton::eDirection>(direction), &window, &ExhibitWindow::notifyButton),
            {18, 18});
    add(window, new UIPulldownButton(&window, &ExhibitWindow::notifyButton), {18, 18});
    for (unsigned int type = 0; type < 4; ++type)
        window.addClient(
            new UISystemButton(static_cast<UISystemButton::eButtonType>(type), &window, &ExhibitWindow::notifyButton));
    window.addReport();
}

constexpr eAlignment Alignments[] = {
    eAlignment::LeftTop,    eAlignment::CenterTop,    eAlignment::RightTop,
    eAlignment::LeftMiddle, eAlignment::CenterMiddle, eAlignment::RightMiddle,
    eAlignment::LeftBottom, eAlignment::CenterBottom, eAlignment::RightBottom,
};

void buildTexts(ExhibitWindow& window)
{
    addLabel(window, "Each at its place");
    for (const eAlignment alignment : Alignments)
        window.addClient(new GalleryText("Text", {76, 22}, alignment));
    addLabel(window, "Longer than the place");
    for (const eAlignment alignment : {eAlignment::LeftMiddle, eAlignment::CenterMiddle, eAlignment::RightMiddle})
        window.addClient(new GalleryText(LongText, {76, 18}, alignment));
    window.addClient(new GalleryText("Text", {13, 18}, eAlignment::LeftMiddle));
}

constexpr GalleryPicture::Paint Pictures[] = {
    [](UIPainter& painter, const sRect& rect) { painter.drawFrame(rect, sColor::White); },
    [](UIPainter& painter, const sRect& rect) { painter.drawConvexRect(rect); },
    [](UIPainter& painter, const sRect& rect) { painter.drawConcaveRect(rect); },
    [](UIPainter& painter, const sRect& rect)
    { painter.drawConcaveLine(sPoint(rect.left, rect.bottom / 2), sPoint(rect.right, rect.bottom / 2)); },
    [](UIPainter& painter, const sRect& rect) { painter.drawGroup(rect, "Box", sColor::White); },
    [](UIPainter& painter, const sRect& rect)
    { painter.drawRect(rect, sColor::Red, sColor::Green, sColor::Blue, sColor::White); },
};

void buildPictures(ExhibitWindow& window)
{
    addLabel(window, "A frame, raised, sunken, a line, a box");
    for (const GalleryPicture::Paint paint : Pictures)
        window.addClient(new GalleryPicture({54, 28}, paint));
}

constexpr sExhibitMenuRow ProbeRows[] = {{"Cut"}, {"Copy"}, {"Paste", eItemAttribute::Normal, false}};

void buildProbes(ExhibitWindow& window)
{
    addLabel(window, "The lower is disabled");
    GalleryProbe* probe = new GalleryProbe({150, 44});
    probe->setMenu(window.makeMenu(ProbeRows));
    window.addClient(probe);
    GalleryProbe* disabled = new GalleryProbe({150, 44});
    disabled->disable();
    window.addClient(disabled);
    window.addReport();
}

// Two columns that differ in their texts, so that a picture tells how far they are scrolled.
void buildScrolled(ExhibitWindow& window)
{
    constexpr const char* Names[] = {"First", "Second", "Third", "Fourth", "Fifth", "Sixth", "Seventh", "Eighth"};
    for (const char* name : Names)
    {
        window.addClient(new GalleryText(name, {100, 24}, eAlignment::LeftMiddle));
        window.addClient(new GalleryText(LongText, {240, 24}, eAlignment::LeftMiddle));
    }
    window.scrollTo(sPoint(24, 36));
}

UIScrollBar* addBar(ExhibitWindow& window, UIScrollBar::eBarDirection direction, int position, const sSize& size)
{
    UIScrollBar* bar = add(window, new UIScrollBar(direction), size);
    bar->setMaximum(100);
    bar->setBarRange(20);
    bar->setBarPosition(position);
    return bar;
}

void buildBars(ExhibitWindow& window)
{
    using eBarDirection = UIScrollBar::eBarDirection;
    addLabel(window, "At the start, in the middle, at the end");
    for (const int position : {0, 40, 80})
        addBar(window, eBarDirection::Horizontal, position, {78, 12});
    addLabel(window, "Disabled, nothing to scroll, no room");
    addBar(window, eBarDirection::Horizontal, 40, {78, 12})->disable();
    addBar(window, eBarDirection::Horizontal, 0, {78, 12})->setBarRange(100);
    addBar(window, eBarDirection::Horizontal, 0, {24, 12});
    addLabel(window, "Upright");
    for (const int position : {0, 40, 80})
        addBar(window, eBarDirection::Vertical, position, {12, 44});
    addBar(window, eBarDirection::Vertical, 40, {12, 44})->disable();
}

void buildLists(ExhibitWindow& window)
{
    GalleryList* list = new GalleryList({222, 82}, 12);
    list->setSelectRow(1);
    window.addClient(list);
    window.addClient(new GalleryList({222, 36}, 0));
    add(window, new UIList, {78, 18});
}

void buildPulldowns(ExhibitWindow& window)
{
    addLabel(window, "The lists float");
    window.addClient(new GalleryPulldown(&window, {84, 16}, 3));
    window.addClient(new GalleryPulldown(&window, {84, 16}, 20));
    window.addReport();
}

UIBase* makePanes(const char* upper, const char* lower, UISplitter::eSplitBase base)
{
    const auto makePane = [](const char* text)
    {
        return new GalleryText(text, sSize::Zero, eAlignment::CenterMiddle);
    };
    UIBase* panes = new UISplitter(makePane(upper), makePane(lower), UISplitter::eSplitDirection::Above, 50, base);
    panes->setMinimumSize({16, 16});
    return panes;
}

void buildSplitters(ExhibitWindow& window)
{
    using eSplitBase = UISplitter::eSplitBase;
    window.addFill(new UISplitter(makePanes("Upper base", "Lower", eSplitBase::First),
                                  makePanes("Upper", "Lower base", eSplitBase::Second),
                                  UISplitter::eSplitDirection::Beside, 120, eSplitBase::First));
}

UIGroup* makeGroup(const char* caption, const char* const (&texts)[3])
{
    UIGroup* group = new UIGroup(caption);
    group->setAttribute(UIBase::RowElement);
    for (const char* text : texts)
        group->add(new GalleryText(text, {70, 20}, eAlignment::LeftMiddle));
    return group;
}

void buildGroups(ExhibitWindow& window)
{
    UIGroup* outer = makeGroup("Takes the height that it needs", {"One", "Two", "Three"});
    outer->add(makeGroup("Inside", {"Four", "Five", "Six"}));
    window.addClient(outer);
    window.addClient(makeGroup(LongText, {"Seven", "Eight", "Nine"}));
}

constexpr sExhibitMenuRow DeepestRows[] = {{"Deepest"}, {"Of all"}};

constexpr sExhibitMenuRow MoreRows[] = {
    {"First"},
    {nullptr, eItemAttribute::Separator},
    {"Deeper", eItemAttribute::Normal, true, false, DeepestRows},
};

constexpr sExhibitMenuRow MarkRows[] = {
    {"Check", eItemAttribute::Check, true, true},
    {"Unchecked", eItemAttribute::Check},
    {"Checked, disabled", eItemAttribute::Check, false, true},
    {nullptr, eItemAttribute::Separator},
    {"Radio 1", eItemAttribute::Radio, true, true},
    {"Radio 2", eItemAttribute::Radio},
};

constexpr sExhibitMenuRow ItemRows[] = {
    {"Plain"},
    {nullptr, eItemAttribute::Separator},
    {"Disabled", eItemAttribute::Normal, false},
    {"Marks", eItemAttribute::Normal, true, false, MarkRows},
    {"More", eItemAttribute::Normal, true, false, MoreRows},
    {"No more", eItemAttribute::Normal, false, false, MoreRows},
};

void buildMenus(ExhibitWindow& window)
{
    UIMainMenu* mainMenu = new UIMainMenu;
    mainMenu->addItem("Items", window.makeMenu(ItemRows));
    mainMenu->addItem("Marks", window.makeMenu(MarkRows));
    mainMenu->addItem("Nothing", nullptr);
    window.setMainMenu(mainMenu);

    addLabel(window, "The bar of this window is at the top;");
    addLabel(window, "the second button opens the same here");
    GalleryText* place = add(window, new GalleryText("Here", sSize::Zero, eAlignment::CenterMiddle), {222, 40});
    place->setMenu(window.makeMenu(ItemRows));
    window.addReport();
}

void buildQuestions(ExhibitWindow& window)
{
    using eButtons = UIDialog::eButtons;
    window.addClient(new GalleryQuestion(&window, "Ok", eButtons::Ok, 1));
    window.addClient(new GalleryQuestion(&window, "Ok, Cancel", eButtons::OkCancel, 1));
    window.addClient(new GalleryQuestion(&window, "Yes, No, Cancel", eButtons::YesNoCancel, 1));
    window.addClient(new GalleryQuestion(&window, "Two at once", eButtons::OkCancel, 2));
    window.addReport();
}

void buildValues(ExhibitWindow& window)
{
    GalleryValues* edited = new GalleryValues("Edited");
    window.addClient(edited);
    window.addClient(new GalleryValues("Read-only", *edited));
}

void buildStructures(ExhibitWindow& window)
{
    GalleryStructures* edited = new GalleryStructures("Edited");
    window.addClient(edited);
    window.addClient(new GalleryStructures("Read-only", *edited));
}

void buildTexture(ExhibitWindow& window)
{
    UITexture* view = new UITexture;
    view->setTexture(ToolSystem::getInstance()->getFontTexture());
    window.addClient(view);
}

void buildReferences(ExhibitWindow& window)
{
    window.addReport();
    window.addClient(new GalleryReferences(&window));
}

void buildNothing(ExhibitWindow&)
{
}

// The heads-up text keeps the upper right corner, the bar of the menus the upper edge.
constexpr sExhibit ExhibitTable[] = {
    {"Buttons", {8, 24, 256, 184}, Sizable, Flow, false, buildButtons},
    {"Texts", {264, 24, 520, 184}, Sizable, Flow, false, buildTexts},
    {"Pictures", {528, 24, 768, 144}, Sizable, Flow, false, buildPictures},
    {"Scrolled", {8, 192, 256, 352}, Sizable, Filled, false, buildScrolled},
    {"Bars", {264, 192, 520, 352}, Sizable, Flow, false, buildBars},
    {"Lists", {528, 152, 768, 352}, Sizable, Flow, false, buildLists},
    {"Splitters", {8, 360, 256, 520}, Sizable, 0, false, buildSplitters},
    {"Groups", {264, 360, 520, 560}, Sizable, Flow, false, buildGroups},
    {"Menus", {528, 360, 768, 520}, Sizable, Flow, false, buildMenus},
    {"Questions", {776, 152, 936, 280}, Sizable, Flow, false, buildQuestions},
    {"Events", {776, 288, 936, 456}, Sizable, Flow, false, buildProbes},
    {"Pulldown lists", {8, 528, 208, 618}, Sizable, Flow, false, buildPulldowns},
    {"A title that is longer than its window", {776, 464, 936, 528}, Sizable, Flow, true, buildNothing},
    {"Neither moved nor sized", {528, 528, 704, 592}, UIWindow::TitleBar, Flow, false, buildNothing},
    {nullptr, {712, 528, 776, 592}, 0, Flow, false, buildNothing},
    {"Values", {472, 600, 768, 760}, Sizable, Flow, false, buildValues},
    {"Structures", {8, 626, 296, 760}, Sizable, Flow, false, buildStructures},
    {"Texture", {304, 626, 464, 760}, Sizable, UIForm::ScrollBars, false, buildTexture},
    {"References", {776, 546, 1016, 660}, Sizable, Flow, false, buildReferences},
};
}

std::span<const sExhibit> Gallery::getExhibits()
{
    return ExhibitTable;
}

void Gallery::open(const sExhibit& exhibit)
{
    UISystem::getInstance()->addWindow(new ExhibitWindow(exhibit));
}

void Gallery::openAll()
{
    for (const sExhibit& exhibit : ExhibitTable)
        open(exhibit);
    openTool();
}

void Gallery::openTool()
{
    SequencerResourceIntermediate* sequence = new SequencerResourceIntermediate;
    GalleryTool* tool = new GalleryTool(sequence);
    sequence->release();
    tool->setPosition(sPoint(776, 664));
    UISystem::getInstance()->addWindow(tool);
}
