#include "ui/uitexture.h"

#include "render/texture.h"
#include "tests/support/elements.h"

#include <gtest/gtest.h>

namespace
{
struct UITextureTest : testing::Test
{
    // The element shares the texture.
    void show(unsigned int width, unsigned int height)
    {
        Texture* texture = new Texture(width, height, false, nullptr);
        mView.setTexture(texture);
        texture->release();
    }

    sSize turn(int amount, int count = 1)
    {
        for (int i = 0; i < count; ++i)
            mView.sendMessage(UIMouseWheelMessage(sPoint(0, amount)));
        return mView.getSize();
    }

    HeadlessSystems mSystems;
    UITexture mView;
};
}

TEST_F(UITextureTest, TheWheelEnlargesAndReducesBetweenItsLimits)
{
    turn(1); // Nothing to enlarge.
    show(256, 128);
    EXPECT_EQ(turn(1), sSize(512, 256));
    EXPECT_EQ(turn(1, 14), sSize(4096, 2048));
    EXPECT_EQ(turn(1), sSize(4096, 2048));
    show(64, 64);
    EXPECT_EQ(mView.getSize(), sSize(64, 64));
    EXPECT_EQ(turn(-1), sSize(64, 64)) << "the step in the middle";
    EXPECT_EQ(turn(-1, 3), sSize(16, 16));
    EXPECT_EQ(turn(-1), sSize(16, 16));
    EXPECT_EQ(turn(1), sSize(21, 21));
    mView.setTexture(nullptr);
    EXPECT_EQ(mView.getSize(), sSize(16, 16));
}

TEST_F(UITextureTest, TheMenuChoosesTheChannels)
{
    show(32, 16);
    mView.setColor(sColor(10, 20, 30, 40));
    const struct
    {
        const char* item;
        sColor shown;
        eBlendMode blendMode;
    } cases[] = {
        {"RGB", {10, 20, 30, 40}, eBlendMode::Opaque}, {"Red", {10, 0, 0, 1}, eBlendMode::Opaque},
        {"Green", {0, 20, 0, 1}, eBlendMode::Opaque},  {"Blue", {0, 0, 30, 1}, eBlendMode::Opaque},
        {"RGBA", {10, 20, 30, 40}, eBlendMode::Alpha},
    };
    UIMenu* menu = mView.getMenu()->findSubMenu("ColorMode");
    for (const auto& row : cases)
    {
        for (UIMenu::Item* item : menu->getItems())
            if (std::string(item->getName()) == row.item)
                item->occurEvent();
        EXPECT_TRUE(menu->isItemChecked(row.item));
        const std::vector<sRecordedDraw> draws = runFrame(mSystems, mView);
        ASSERT_EQ(draws.size(), 2u);
        EXPECT_EQ(draws[1].vertices[3].color, row.shown) << row.item;
        EXPECT_EQ(draws[1].command.state.getBlendMode(), row.blendMode);
        EXPECT_EQ(sPoint(draws[1].vertices[3].s, draws[1].vertices[3].t), sPoint(32, 16));
    }
}
