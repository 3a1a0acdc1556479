#include "ui/uipulldownlist.h"

#include "tests/support/elements.h"

#include <gtest/gtest.h>

namespace
{
struct sReceiver
{
    void choose() {}
};

// The list has room for three items.
void fill(UIPulldownList& list, int count)
{
    list.setSize({100, 50});
    list.clearItem();
    for (int i = 0; i < count; ++i)
        list.addItem(std::string(1, static_cast<char>('a' + i % 26)).c_str());
    list.updateRegion(sRect::Max, sRect::Max);
}
}

TEST(UIPulldownListTest, KeepsTheHighlightedItemInView)
{
    HeadlessSystems systems;
    sReceiver receiver;
    UIPulldownList list(&receiver, &sReceiver::choose);
    const auto hover = [&list](int y)
    {
        list.sendMessage(UIMouseMoveMessage(sPoint(20, y)));
        return list.getSelectItem();
    };
    fill(list, 3);
    EXPECT_EQ(getRegions(list)[0], sRect::Zero) << "no bar";
    fill(list, 6);
    EXPECT_EQ(getRegions(list)[0], sRect(88, 0, 100, 50));
    for (const auto& [item, first] : {std::pair(3u, 0u), {5u, 2u}, {3u, 2u}, {2u, 2u}, {1u, 1u}, {0u, 0u}})
    {
        list.setSelectItem(item);
        hover(1);
        EXPECT_EQ(hover(0), first) << item;
    }
    list.setSelectItem(6);
    EXPECT_EQ(list.getSelectItem(), 0u);
}
