#pragma once

#include "foundation/functor.h"
#include "ui/uibase.h"

class UIScrollBar;

// What lists have in common: rows of one height below each other, of which one can be selected, a bar that scrolls
// them by pixels, and a functor that hears of a choice.
class UIRowList : public UIBase
{
public:
    static constexpr unsigned int NoRow = 0xFFFFFFFF;
    static constexpr int RowHeight = 16;

    ~UIRowList() override;

    // Return chooses the selected row, the arrows only select.
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

protected:
    // The part of all rows that can be seen, with the place of the first of them.
    struct sVisibleRows
    {
        unsigned int begin;
        unsigned int end;
        int top;
    };

    // How the bar stands in the list.
    struct sBar
    {
        bool needed;
        int right;
        int top;
        int height;
        int range;
    };

    // Starts with no selection and a hidden bar. `rowTop` is where the first row begins.
    UIRowList(unsigned int attribute, eBorderStyle style, int rowTop);

    // The numbers come unchecked. To select a row is not to choose it.
    virtual void highlight(unsigned int row) = 0;
    virtual void choose(unsigned int row) = 0;

    // Replaces the functor, deleting the former one.
    template <typename T>
    void bind(T* object, void (T::*method)())
    {
        delete mFunctor;
        mFunctor = new Functor<T, void, void>(object, method);
    }

    void call();
    void initialize();
    void placeBar(const sBar& bar, unsigned int rowCount);
    bool isBarVisible() const;

    // How many pixels of the rows are scrolled out at the top.
    int getScroll() const;

    // A number beyond all rows for what lies above the first.
    unsigned int getRowAt(int y) const;
    sVisibleRows getVisibleRows(unsigned int rowCount) const;

    unsigned int mSelectRow = NoRow;
    UIScrollBar* mScrollBar = nullptr;

private:
    void highlightPrevious();

    FunctorIntermediate<void, void>* mFunctor = nullptr;
    eBorderStyle mStyle;
    int mRowTop;
};
