#include "ui/uitexture.h"

#include "render/texture.h"
#include "tests/support/elements.h"

#include <gtest/gtest.h>

namespace
{
void show(UITexture& view, unsigned int width, unsigned int height)
{
    Texture* texture = new Texture(width, height, false, nullptr);
    view.setTexture(texture);
    texture->release();
}
}

TEST(UITextureTest, TheWheelEnlargesAndReducesBetweenItsLimits)
{
    HeadlessSystems systems;
    UITexture view;
    const auto turn = [&view](int amount, int count)
    {
        for (int i = 0; i < count; ++i)
            view.sendMessage(UIMouseWheelMessage(sPoint(0, amount)));
        return view.getSize();
    };
    turn(1, 1); // Nothing to enlarge.
    show(view, 256, 128);
    EXPECT_EQ(turn(1, 1), sSize(512, 256));
    EXPECT_EQ(turn(1, 14), sSize(4096, 2048));
    EXPECT_EQ(turn(1, 1), sSize(4096, 2048));
    show(view, 64, 64);
    EXPECT_EQ(turn(-1, 1), sSize(64, 64)) << "the step in the middle";
    EXPECT_EQ(turn(-1, 3), sSize(16, 16));
    EXPECT_EQ(turn(-1, 1), sSize(16, 16));
    EXPECT_EQ(turn(1, 1), sSize(21, 21));
}

TEST(UITextureTest, TheMenuChoosesTheChannels)
{
    HeadlessSystems systems;
    UITexture view;
    show(view, 32, 16);
    view.setColor(sColor(10, 20, 30, 40));
    const sColor shown[] = {{10, 20, 30, 40}, {10, 20, 30, 40}, {10, 0, 0, 1}, {0, 20, 0, 1}, {0, 0, 30, 1}};
    const Vector<UIMenu::Item>& items = view.getMenu()->findSubMenu("ColorMode")->getItems();
    for (const unsigned int mode : {4, 3, 2, 1, 0})
    {
        items[mode]->occurEvent();
        EXPECT_TRUE(items[mode]->isChecked());
        const sRecordedDraw draw = runFrame(systems, view).back();
        EXPECT_EQ(draw.vertices[3].color, shown[mode]) << mode;
        EXPECT_EQ(draw.command.state.getBlendMode(), mode ? eBlendMode::Opaque : eBlendMode::Alpha);
        EXPECT_EQ(sPoint(draw.vertices[3].s, draw.vertices[3].t), sPoint(32, 16));
    }
}
