#include "ui/uirowlist.h"

#include "ui/uiaxis.h"
#include "ui/uikeycode.h"
#include "ui/uiscrollbar.h"

#include <algorithm>

UIRowList::UIRowList(unsigned int attribute, eBorderStyle style, int rowTop)
    : UIBase(attribute), mStyle(style), mRowTop(rowTop)
{
    initialize();
}

UIRowList::~UIRowList()
{
    delete mFunctor;
}

// From no selection, the row behind it is the first one, and there is none before it.
void UIRowList::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (combinationKey)
        return;
    switch (keyCode)
    {
    case UIKeyCode::Return: choose(mSelectRow); break;
    case UIKeyCode::DownArrow: highlight(mSelectRow + 1); break;
    case UIKeyCode::UpArrow: highlightPrevious(); break;
    default: break;
    }
}

void UIRowList::call()
{
    if (mFunctor)
        (*mFunctor)();
}

void UIRowList::initialize()
{
    setMinimumSize({RowHeight, RowHeight});
    setBorderStyle(mStyle);
    mSelectRow = NoRow;
    mScrollBar = new UIScrollBar(UIScrollBar::eBarDirection::Vertical);
    mScrollBar->hide();
    add(mScrollBar);
}

void UIRowList::placeBar(const sBar& bar, unsigned int rowCount)
{
    if (!bar.needed)
        mScrollBar->sendMessage(UIHideMessage(), this);
    else
    {
        mScrollBar->setSize(makeSize(0, bar.height));
        mScrollBar->setPosition(sPoint(bar.right - static_cast<int>(mScrollBar->getSize().width), bar.top));
        if (!isBarVisible())
            mScrollBar->setBarPosition(0);
        mScrollBar->sendMessage(UIShowMessage(), this);
    }
    mScrollBar->setMaximum(rowCount ? static_cast<int>(rowCount) * RowHeight - 1 : 0);
    mScrollBar->setBarRange(static_cast<unsigned int>(std::max(bar.range, 0)));
}

bool UIRowList::isBarVisible() const
{
    return mScrollBar->isVisible();
}

int UIRowList::getScroll() const
{
    return isBarVisible() ? mScrollBar->getBarPosition() : 0;
}

unsigned int UIRowList::getRowAt(int y) const
{
    return static_cast<unsigned int>(y - mRowTop + getScroll()) / RowHeight;
}

UIRowList::sVisibleRows UIRowList::getVisibleRows(unsigned int rowCount) const
{
    const sRect visible = getDrawRegion() + (sPoint::Zero - getAbsPosition());
    const int top = mRowTop - getScroll();
    const int count = static_cast<int>(rowCount);
    const int begin = std::clamp((visible.top - top) / RowHeight, 0, count);
    const int end = std::clamp((visible.bottom - top + RowHeight - 1) / RowHeight, begin, count);
    return {static_cast<unsigned int>(begin), static_cast<unsigned int>(end), top + begin * RowHeight};
}

void UIRowList::highlightPrevious()
{
    if (mSelectRow > 0)
        highlight(mSelectRow - 1);
}
