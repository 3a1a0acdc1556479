#include "ui/uisplitter.h"

#include "tests/support/elements.h"
#include "tests/support/probe.h"

#include <gtest/gtest.h>

TEST(UISplitterTest, DividesItsAreaAndFollowsTheDraggedGap)
{
    using enum UISplitter::eSplitDirection;
    using enum UISplitter::eSplitBase;
    const struct
    {
        UISplitter::eSplitDirection direction;
        UISplitter::eSplitBase base;
        unsigned int size;
        sRect first, second;
        int position;
        unsigned int draggedSize;
    } cases[] = {
        {Above, First, 40, {0, 0, 200, 36}, {0, 40, 200, 100}, 60, 60},
        {Above, Second, 40, {0, 0, 200, 60}, {0, 64, 200, 100}, 60, 40},
        {Beside, First, 40, {0, 0, 36, 100}, {40, 0, 200, 100}, 5, 14},
        {Beside, Second, 40, {0, 0, 160, 100}, {164, 0, 200, 100}, 60, 140},
        {Above, First, 3, {0, 0, 200, 20}, {0, 8, 200, 100}, -1, 24}, // 8, and the pane's own minimum.
        {Above, First, 150, {0, 0, 200, 146}, {0, 150, 200, 150}, 100, 100},
        {Above, Second, 150, {0, 0, 200, 0}, {0, -46, 200, 100}, -1, 24},
        {Above, Second, 40, {0, 0, 200, 60}, {0, 64, 200, 100}, 100, 100},
    };
    ProbeLog log;
    Probe<UIBase> parent(log, "parent");
    for (const auto& row : cases)
    {
        UIBase* panes[] = {new UIBase, new UIBase};
        panes[row.base == Second]->setMinimumSize({10, 20});
        UISplitter* splitter = new UISplitter(panes[0], panes[1], row.direction, row.size, row.base);
        splitter->setSize({200, 100});
        parent.add(splitter);
        splitter->update(1.0f);
        EXPECT_EQ(getRegions(*splitter), (std::vector<sRect>{row.first, row.second})) << row.size;

        const sPoint position = row.direction == Beside ? sPoint(row.position, 50) : sPoint(50, row.position);
        splitter->sendMessage(UIMouseDownMessage(sPoint(38, 38), 2));
        splitter->sendMessage(UIMouseMoveMessage(sPoint(60, 60)));
        EXPECT_EQ(takeLog(log), "parent.move(60,60)") << "not dragged with the first button";
        splitter->sendMessage(UIMouseDownMessage(sPoint(38, 38), 3));
        splitter->sendMessage(UIMouseMoveMessage(position));
        EXPECT_EQ(splitter->getSplitSize(), row.draggedSize) << row.position;
        splitter->sendMessage(UIMouseWheelMessage(sPoint(0, 3)));
        EXPECT_EQ(takeLog(log), "parent.wheel(0,3)");
    }
}
