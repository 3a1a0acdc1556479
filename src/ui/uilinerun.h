#pragma once

#include "tool/colorline.h"
#include "ui/uipainter.h"

// Lines that go to a painter many at once, in the order in which they are added: the last of them at the end of the
// run. What else is drawn meanwhile may lie behind them.
class UILineRun
{
public:
    explicit UILineRun(UIPainter& painter) : mPainter(painter) {}
    ~UILineRun() { flush(); }

    UILineRun(const UILineRun&) = delete;
    UILineRun& operator=(const UILineRun&) = delete;

    void add(const sPoint& from, const sPoint& to, sColor color)
    {
        mLine[mNum++] = {from, to, color};
        if (mNum == MaximumNum)
            flush();
    }

    // As that of a painter.
    void addFrame(const sRect& rect, sColor color)
    {
        forEachEdge(rect, [&](const sPoint& from, const sPoint& to, bool) { add(from, to, color); });
    }

    // As the painter's, which is asked for all lines that go to it at once.
    bool hasRoom() const { return mNum != 0 || mPainter.hasRoom(); }

private:
    static constexpr unsigned int MaximumNum = 64;

    void flush()
    {
        if (mNum != 0)
            mPainter.drawLines(mLine, mNum);
        mNum = 0;
    }

    UIPainter& mPainter;
    unsigned int mNum = 0;
    sColorLine mLine[MaximumNum];
};
