#include "ui/uicomponentcontrol.h"

#include "tests/support/elements.h"
#include "ui/uicolorcontrol.h"
#include "ui/uicontrolarray.h"

#include <gtest/gtest.h>

#include <cstring>

namespace
{
constexpr unsigned int ElementNum = 4;

template <typename T>
PropertyBase* share(T (&values)[ElementNum])
{
    return new ReferenceProperty<T>("Values", values, ElementNum);
}

// Each row of the control of element 2 gets its own number.
template <typename Control, typename T>
void expectOwnRows(const std::vector<std::string>& names)
{
    T values[ElementNum] = {};
    T expected[ElementNum] = {};
    const Control control(share(values), false, 2);
    for (int row = 0; row < static_cast<int>(names.size()); ++row)
    {
        EXPECT_EQ(getChild<UIControl>(control, row)->getProperty()->getName(), names[static_cast<unsigned int>(row)]);
        getChild<UIControl>(control, row)->getProperty()->setString(std::to_string(row + 1).c_str());
    }
    float number = 0.0f;
    const auto expect = [&]<typename Part>(Part& part)
    {
        part = static_cast<Part>(++number);
    };
    std::apply([&](auto... component) { (expect(expected[2].*component.target), ...); }, ValueTraits<T>::components);
    EXPECT_EQ(std::memcmp(values, expected, sizeof(values)), 0) << names[0];
}

// Hears the edits of what lies in it.
struct EditListener : UIBase
{
    void eventBeginEdit() override { mEdits += '('; }
    void eventEndEdit() override { mEdits += ')'; }

    std::string mEdits;
};
}

TEST(UIComponentControlTest, EachRowEditsItsNumberOfItsElementAlone)
{
    expectOwnRows<UISizeControl, sSize>({"Width", "Height"});
    expectOwnRows<UIPointControl, sPoint>({"X", "Y"});
    expectOwnRows<UIRectControl, sRect>({"Left", "Top", "Right", "Bottom"});
    expectOwnRows<UITexcoordControl, sTexcoord>({"U", "V"});
    expectOwnRows<UIVectorControl, sVector>({"X", "Y"});
    expectOwnRows<UIColorControl, sColor>({"Red", "Green", "Blue", "Alpha"});
    expectOwnRows<UIColorControl, sColorF>({"Red", "Green", "Blue", "Alpha"});

    sPoint points[ElementNum] = {};
    EXPECT_DEATH(UISizeControl(share(points), false), "Property type missmatch.");
}

TEST(UIComponentControlTest, BoxesAndSlidersFillTheFrame)
{
    sSize size[ElementNum] = {};
    sColor color[ElementNum] = {};
    UISizeControl sizeControl(share(size), false);
    sizeControl.setSize({100, 60});
    sizeControl.align();
    EXPECT_EQ(getRegions(sizeControl), (std::vector<sRect>{{24, 16, 92, 32}, {24, 34, 92, 50}}));

    UIColorControl colorControl(share(color), false);
    EXPECT_EQ(getChild<UIControl>(colorControl, 1)->getRelRegion(), sRect(152, 34, 184, 50));
    EXPECT_EQ(getChild<UIControl>(colorControl, 5)->getRelRegion(), sRect(20, 38, 148, 46))
        << "the whole line can be seen";
}

TEST(UIColorControlTest, ASliderSetsItsChannelFromThePressToAnyRelease)
{
    constexpr int Red = 4;
    constexpr unsigned int First = UIMouseDownMessage::FirstButton;
    sColorF colors[ElementNum] = {{0.0f, 0.5f, 1.0f, 1.0f}};
    EditListener listener;
    listener.add(new UIColorControl(share(colors), false, 0));
    UIControl* slider = getChild<UIControl>(listener, 0, Red);

    slider->sendMessage(UIMouseDownMessage(sPoint(64, 4), First));
    EXPECT_EQ(colors[0], sColorF(sColor(128, 127, 255, 255))) << "the others are rounded too";
    for (const auto& [x, red] : {std::pair(-5, 0.0f), {1, 2.0f}, {400, 255.0f}})
    {
        slider->sendMessage(UIMouseMoveMessage(sPoint(x, 4)));
        EXPECT_EQ(colors[0].r, red / 255.0f) << x;
    }
    slider->sendMessage(UIMouseUpMessage(sPoint::Zero, 255));
    slider->sendMessage(UIMouseMoveMessage(sPoint::Zero));
    EXPECT_EQ(colors[0].r, 1.0f) << "moved behind the release";
    EXPECT_EQ(listener.mEdits, "()");

    sColor fixed[ElementNum] = {};
    const UIColorControl readOnly(share(fixed), true, 0);
    getChild<UIControl>(readOnly, Red)->sendMessage(UIMouseDownMessage(sPoint(64, 4), First));
    EXPECT_EQ(fixed[0].r, 0);
}

TEST(UIControlArrayTest, ShowsEveryElementInAFrameThatHoldsThem)
{
    sSize sizes[ElementNum] = {};
    UIControlArray array(share(sizes), true);
    array.setSize({190, 0});
    const UIBase& holder = *getChild(array, 0, 0);
    ASSERT_EQ(holder.getChildCount(), ElementNum);
    EXPECT_FALSE(getChild<UIControl>(holder, 3)->isEnabled());
    EXPECT_EQ(getChild<UIControl>(holder, 3)->getPosition(), sPoint(82, 62)) << "two in a row";
    EXPECT_EQ(array.getSize(), sSize(190, 122 + 24));
}
