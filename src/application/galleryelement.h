#pragma once

#include "ui/uibutton.h"
#include "ui/uidialog.h"
#include "ui/uilist.h"
#include "ui/uipainter.h"

#include <memory>
#include <vector>

class ExhibitWindow;
class UIPulldownList;

// Elements that only the gallery has: they show what painting can do, and what reaches an element.

// A text in a box that may be too small for it.
class GalleryText : public UIBase
{
public:
    // The text is not copied.
    GalleryText(const char* text, const sSize& size, UIPainter::eAlignment alignment);

    // A line above what it names.
    static GalleryText* makeLabel(const char* text);

    void eventPaint(UIPainter* painter) override;
    void eventMouseWheel(const sPoint&) override { delegate(); }

private:
    const char* mText;
    UIPainter::eAlignment mAlignment;
};

// A piece of painting.
class GalleryPicture : public UIBase
{
public:
    using Paint = void (*)(UIPainter& painter, const sRect& rect);

    GalleryPicture(const sSize& size, Paint function);

    void eventPaint(UIPainter* painter) override;

private:
    Paint mPaint;
};

// Counts and shows what it receives.
class GalleryProbe : public UIBase
{
public:
    struct sCount
    {
        unsigned int down = 0;
        unsigned int up = 0;
        unsigned int doubleClick = 0;
        unsigned int move = 0;
        int wheel = 0;
        unsigned int lastKey = 0;
    };

    explicit GalleryProbe(const sSize& size);

    const sCount& getCount() const { return mCount; }

    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;
    void eventMouseWheel(const sPoint& amount) override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

private:
    sCount mCount;
};

// A list with columns and rows of its own.
class GalleryList : public UIList
{
public:
    GalleryList(const sSize& size, unsigned int rowNum);
    ~GalleryList() override;

private:
    class Row;

    std::vector<std::unique_ptr<Row>> mRow;
    std::unique_ptr<ObjectList> mRowList;
};

// Opens message boxes when it is clicked, one above the other; the window reports the answers.
class GalleryQuestion : public UIButton
{
public:
    // The texts are not copied.
    GalleryQuestion(ExhibitWindow* window, const char* caption, UIDialog::eButtons buttons, unsigned int num);

private:
    void ask(UIButton* button);

    ExhibitWindow* mpWindow;
    UIDialog::eButtons mButtons;
    unsigned int mNum;
};

// A button with a list that it opens; the window reports the choice.
class GalleryPulldown : public UIBase
{
public:
    GalleryPulldown(ExhibitWindow* window, const sSize& size, unsigned int itemNum);

private:
    void open(UIButton* button);
    void notifyClosed();

    ExhibitWindow* mpWindow;
    UIPulldownList* mList;
};
