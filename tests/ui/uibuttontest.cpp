#include "ui/uibutton.h"

#include "foundation/blockallocator.h"
#include "tests/support/elements.h"
#include "ui/uicolor.h"

#include <gtest/gtest.h>

namespace
{
using eBorderStyle = UIBase::eBorderStyle;
using eButtonType = UISystemButton::eButtonType;
using eDirection = UISpinButton::eDirection;

struct sReceiver
{
    void click(UIButton* button) { clicked.push_back(button); }
    void other(UIButton*) {}

    std::vector<UIButton*> clicked;
};
}

TEST(UIButtonTest, ClicksWhenTheFirstButtonComesUpOverIt)
{
    constexpr struct
    {
        unsigned int pressed, released;
        sPoint position;
        bool concave, clicks;
    } Rows[] = {
        {1, 1, {5, 5}, true, true},    {1, 1, {0, 0}, true, true},    {1, 1, {40, 20}, true, true},
        {1, 1, {41, 20}, true, false}, {1, 1, {5, -1}, true, false},  {1, 2, {5, 5}, true, false},
        {1, 3, {5, 5}, true, false},   {1, 255, {5, 5}, true, false}, {2, 2, {5, 5}, false, false},
        {3, 3, {5, 5}, false, false},
    };
    sReceiver receiver;
    UIButton button(&receiver, &sReceiver::click, nullptr);
    button.setSize({40, 20});
    for (bool enabled : {true, false})
        for (const auto& row : Rows)
        {
            enabled ? button.enable() : button.disable();
            receiver.clicked.clear();
            button.sendMessage(UIMouseDownMessage({5, 5}, row.pressed));
            button.sendMessage(UIMouseMoveMessage({90, 90}));
            EXPECT_EQ(button.getBorderStyle(), row.concave ? eBorderStyle::Concave : eBorderStyle::Convex);
            button.sendMessage(UIMouseUpMessage(row.position, row.released));
            EXPECT_EQ(button.getBorderStyle(), eBorderStyle::Convex);
            EXPECT_EQ(receiver.clicked, std::vector<UIButton*>(row.clicks, &button))
                << row.pressed << " " << row.released;
        }
}

TEST(UIButtonTest, OwnsOneHandlerAndDoesWithoutAny)
{
    const unsigned int used = FunctorBase::getAllocator().getUsedSize();
    {
        sReceiver receiver;
        UISpinButton button(eDirection::Up);
        button.sendMessage(UIMouseUpMessage(sPoint::Zero, 1));
        button.setFunction(&receiver, &sReceiver::other);
        button.setFunction(&receiver, &sReceiver::click);
        button.sendMessage(UIMouseUpMessage(sPoint::Zero, 1));
        EXPECT_EQ(receiver.clicked.size(), 1u);
    }
    EXPECT_EQ(FunctorBase::getAllocator().getUsedSize(), used);
}

TEST(UIButtonTest, PaintsItsGlyphOverItsFace)
{
    HeadlessSystems systems;
    // The corners of what is painted in the colour of the font.
    const auto paint = [&systems](UIButton& button)
    {
        button.setSize({20, 14});
        std::string corners;
        for (const sRecordedDraw& draw : runFrame(systems, button))
            for (const sTexturedDeviceVertex& vertex : draw.vertices)
                if (vertex.color == UIPainter::getColors().mFontColor)
                    corners += std::to_string(static_cast<int>(vertex.x)) + "," +
                               std::to_string(static_cast<int>(vertex.y)) + " ";
        return corners;
    };

    UISpinButton left(eDirection::Left), right(eDirection::Right), up(eDirection::Up), down(eDirection::Down);
    UIPulldownButton pulldown;
    UISystemButton maximize, minimize(eButtonType::Minimize), normalize(eButtonType::Normalize),
        close(eButtonType::Close);
    const std::pair<UIButton*, const char*> glyphs[] = {
        {&left, "3,7 17,3 17,11 "},       {&right, "17,7 3,3 3,11 "},
        {&up, "10,3 3,11 17,11 "},        {&down, "10,11 3,3 17,3 "},
        {&pulldown, "10,11 3,3 17,3 "},   {&maximize, "2,2 17,2 2,3 17,3 2,4 2,11 17,2 17,11 2,11 18,11 "},
        {&minimize, "2,11 18,11 "},       {&normalize, "2,7 18,7 "},
        {&close, "4,4 17,11 4,10 17,3 "},
    };
    for (const auto& [glyph, corners] : glyphs)
        EXPECT_EQ(paint(*glyph), corners);
    EXPECT_EQ(UISystemButton().getMinimumSize(), sSize(14, 14));
    EXPECT_EQ(UIPulldownButton().getMinimumSize(), sSize::Zero);

    UIButton button;
    EXPECT_EQ(paint(button), "");
    button.setCaption("x");
    EXPECT_EQ(paint(button), "7,1 13,1 7,13 13,13 ");
}
