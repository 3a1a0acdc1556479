#include "ui/uibutton.h"

#include <gtest/gtest.h>

namespace
{
using eBorderStyle = UIBase::eBorderStyle;

struct sReceiver
{
    void click(UIButton* button) { clicked.push_back(button); }

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
