#include "reflection/objectproperty.h"
#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "resource/textureresource.h"
#include "sequencer/control.h"
#include "tests/support/elements.h"
#include "ui/uienumcontrol.h"
#include "ui/uiflagcontrol.h"
#include "ui/uiflaggroupcontrol.h"
#include "ui/uikeycode.h"
#include "ui/uiparametercontrol.h"
#include "ui/uipulldownlist.h"
#include "ui/uisystem.h"

#include <gtest/gtest.h>

#include <tuple>

namespace
{
using enum UIKeyCode::eCode;
using Keys = std::vector<unsigned int>;

constexpr unsigned int Whole = UIControl::WholeValue;
constexpr unsigned int S = 0x1000; // added to a key, the shift key
constexpr sEnumInfo EnumTable[] = {{"None", 0}, {"Two", 2}, {"Minus", 0xFFFFFFFF}};
constexpr sMaskInfo MaskTable[] = {{"Low", 3}, {"High", 5}};

// Stands around the control under test.
class EditCounter : public UIBase
{
public:
    void eventBeginEdit() override { ++mEdits.first; }
    void eventEndEdit() override { ++mEdits.second; }

    void notifyRow(unsigned int row) { mRow = row; }

    std::pair<int, int> mEdits;
    unsigned int mRow = 0;
};
}

class UIControlTest : public testing::Test
{
protected:
    ~UIControlTest() override
    {
        mParent.removeChildren();
        mUISystem->destroy();
    }

    template <typename T>
    PropertyBase* bind(T& value, const char* name = "Name")
    {
        PropertyBase* property = new ReferenceProperty<T>(name, &value);
        mProperties.add(property);
        return property;
    }

    // The control under test from now on.
    template <typename Control>
    Control* use(Control* control)
    {
        mParent.removeChildren();
        mParent.mEdits = {};
        mParent.add(control);
        mParent.setSize(control->getSize());
        return control;
    }

    void press(UIBase* control, unsigned int key) { control->sendMessage(UIKeyDownMessage(key % S, key / S)); }

    void type(UIBase* control, const Keys& keys)
    {
        mUISystem->focus(control);
        for (const unsigned int key : keys)
            press(control, key);
        mUISystem->defocus();
    }

    void click(UIBase* control, unsigned int button = 1, const sPoint& position = sPoint(2, 2))
    {
        control->sendMessage(UIMouseUpMessage(position, button));
    }

    // The texts on the screen, with blanks between them.
    std::string paint()
    {
        std::string texts;
        for (const sRecordedDraw& draw : runFrame(mSystems, mParent))
            if (const std::string text = getText(draw); !text.empty())
                texts += (texts.empty() ? "" : " ") + text;
        return texts;
    }

    HeadlessSystems mSystems;
    UISystem* mUISystem = UISystem::create();
    PropertyList mProperties;
    EditCounter mParent;
};

TEST_F(UIControlTest, ATextIsEditedByItsKeys)
{
    const std::tuple<const char*, Keys, const char*> cases[] = {
        {"abc", {End, '\\', '\\' + S, ']', ']' + S, '-', '.', '0' + S, ' ', ','}, "abc\\_\\|-.0"},
        {"abc", {BackSpace}, "abc"},
        {"abc", {End, BackSpace, Delete}, "ab"},
        {"abc", {Home, BackSpace, Delete}, "bc"},
        {"abcd", {LeftArrow + S, 'X'}, "xd"},
        {"abcd", {End, LeftArrow + S, LeftArrow + S, Delete}, "ab"},
        {"abcd", {Home, RightArrow + S, RightArrow + S, LeftArrow + S, 'X'}, "xbcd"},
        {"abcd", {LeftArrow, LeftArrow, Home + S, 'X'}, "xcd"},
        {"ab", {Home, LeftArrow, 'X', RightArrow, RightArrow, RightArrow, 'Y'}, "xaby"},
        {"abcd", {'X', Return, 'Y'}, "x"},
    };
    AutoString text;
    for (const auto& [from, keys, to] : cases)
    {
        text = from;
        type(use(new UITextControl(bind(text), false, Whole)), keys);
        EXPECT_STREQ(text.c_str(), to);
        EXPECT_EQ(mParent.mEdits, std::pair(1, 1));
    }
}

TEST_F(UIControlTest, ALongTextScrollsWithTheCursor)
{
    AutoString text = "abcdefghij";
    UITextControl* control = use(new UITextControl(bind(text), false, Whole));
    control->setSize({26, 16});
    EXPECT_EQ(paint(), "abcde") << "four characters, and a part of one";
    mUISystem->focus(control);
    press(control, LeftArrow);
    press(control, LeftArrow + S);
    EXPECT_EQ(paint(), "gh i j");
    press(control, Home);
    EXPECT_EQ(paint(), "abcde");
}

TEST_F(UIControlTest, ANumberIsTypedFreelyAndSteppedToItsUpperLimit)
{
    signed char s8 = 0;
    unsigned char u8 = 0;
    int s32 = 0;
    unsigned long long u64 = 0;
    float f32 = 0;
    sFixed fixed = sFixed::Zero;
    const auto box = [this](auto& value, auto... limits)
    {
        return new UINumericControl(bind(value), limits..., false, Whole);
    };
    const std::tuple<UIControl*, Keys, const char*> cases[] = {
        {box(s8), {'2', '0', '0'}, "-56"},
        {box(f32), {BackSpace}, "7.000000"},
        {box(fixed), {'-', '1', '.', '5'}, "-1.500000"},
        {box(u8), {'1', UpArrow}, "255"},
        {box(s32, 1, 16), {UpArrow}, "16"},
        {box(s32, 9, -9), {'1', DownArrow}, "6"},
        {box(u64), {UpArrow, UpArrow}, "9"},
        {box(f32, 9.0f, -9.0f), {UpArrow}, "7.100000"},
        {box(fixed, sFixed::Min, sFixed::Zero), {DownArrow}, "0.000000"},
    };
    char buffer[64];
    for (const auto& [control, keys, stored] : cases)
    {
        control->getProperty()->setString("7");
        type(use(control), keys);
        EXPECT_STREQ(control->getProperty()->getString(buffer, Whole), stored);
    }
    EXPECT_EQ(mParent.mEdits, std::pair(2, 2)) << "a step is an edit of its own";
}

TEST_F(UIControlTest, FlagsToggleTheirBitsTogetherAndKeepTheirRows)
{
    bool flag = false;
    UIBase* control = use(new UIFlagControl(bind(flag), UIFlagControl::WholeMask, false, Whole));
    click(control);
    click(control, 3);
    click(control, 1, sPoint(2, 20));
    press(control, Return + S);
    EXPECT_EQ(std::tuple(flag, mParent.mEdits), std::tuple(true, std::pair(0, 1)));
    type(control, {Return, UpArrow});
    EXPECT_EQ(std::tuple(flag, mParent.mEdits), std::tuple(false, std::pair(0, 3)));

    unsigned int mask = 8;
    UIBase* group = use(new UIFlagGroupControl(bind(mask), MaskTable, 2, false, Whole));
    const UIBase* flags = *(*group->getChildrenBegin())->getChildrenBegin();
    click(*flags->getChildrenBegin());
    EXPECT_EQ(mask, 11u);
    click(*++flags->getChildrenBegin());
    EXPECT_EQ(std::tuple(mask, mParent.mEdits.second), std::tuple(10u, 2)) << "through the form of the group";
    for (const auto& [width, height] : {std::pair(160u, 40u), {80u, 60u}, {160u, 40u}})
    {
        group->setSize({width, 0});
        paint();
        EXPECT_EQ(group->getSize(), sSize(width, height));
        EXPECT_EQ(flags->getChildrenRegion().getHeight(), height - 24);
    }
}

TEST_F(UIControlTest, AnEnumWritesWhatIsChosenFromItsList)
{
    short value = 2;
    UIEnumControl* control =
        use(new UIEnumControl(bind(value), EnumTable, 3, false, Whole, &mParent, &EditCounter::notifyRow));
    EXPECT_EQ(paint(), "Name Two") << "the list is hidden";
    press(control, Return);
    UIPulldownList* list = static_cast<UIPulldownList*>(*++control->getChildrenBegin());
    EXPECT_EQ(std::tuple(list->getSelectItem(), list->getRelRegion()), std::tuple(1u, sRect(0, 32, 64, 82)));
    press(list, DownArrow);
    press(list, Return);
    EXPECT_EQ(std::tuple(value, mParent.mRow, control->getItemName()), std::tuple(-1, 2u, AutoString("Minus")));
    click(control);
    press(list, UpArrow);
    mUISystem->defocus();
    EXPECT_EQ(std::tuple(value, mParent.mEdits), std::tuple(-1, std::pair(2, 2))) << "dismissed";

    value = 7;
    EXPECT_EQ(paint(), "Name");
    click(control);
    EXPECT_EQ(list->getSelectItem(), UIPulldownList::NoRow);
}

TEST_F(UIControlTest, ADisabledControlShowsAndNeverWrites)
{
    short values[12] = {2, 0, 2};
    PropertyBase* property = new ReferenceProperty<short>("Array", values, 12);
    mProperties.add(property);
    for (UIControl* control : {static_cast<UIControl*>(new UIFlagControl(property, 1, true, 2)),
                               static_cast<UIControl*>(new UIEnumControl(property, EnumTable, 3, true, 2)),
                               static_cast<UIControl*>(new UINumericControl(property, true, 2))})
    {
        click(use(control));
        type(control, {'1', UpArrow, Return});
        EXPECT_EQ(std::tuple(values[2], mParent.mEdits), std::tuple(2, std::pair(0, 0)));
    }
    use(new UIParameterControl(property, true, 2));
    values[2] = 3;
    EXPECT_EQ(paint(), "[2] 3");
    EXPECT_EQ(property->getReferenceCount(), 3u) << "list, control and box";
}

TEST_F(UIControlTest, TheFactoryChoosesByKindLabelsAndType)
{
    unsigned int number = 0;
    bool flag = false;
    sPoint point = sPoint::Zero;
    AutoString text;
    ObjectBase object;
    ResourceBase* resource = nullptr;
    PropertyBase* resources = new ResourceProperty("Resource", &resource);
    mProperties.add(resources);
    const auto check = [](ControlBase&& control, const sSize& minimum, unsigned int childNum)
    {
        const std::unique_ptr<UIBase> element(Utils::makeUIFromControl(&control));
        EXPECT_EQ(element ? element->getMinimumSize() : sSize::Zero, minimum);
        EXPECT_EQ(element ? element->getChildCount() : 0, childNum);
    };
    check(PropertyControl(bind(number)), {48, 32}, 1);
    check(PropertyControl(bind(number), MaskTable, 2), {64, 32}, 1);
    check(PropertyControl(bind(number, nullptr), EnumTable, 3), {64, 16}, 1);
    check(PropertyControl(bind(flag)), {64, 16}, 0);
    check(PropertyControl(bind(point)), {80, 60}, 2);
    check(PropertyControl(bind(text)), {16, 16}, 0);
    check(PropertyControl(new ObjectProperty("Object", &object)), sSize::Zero, 0);
    check(PropertyControl(resources), sSize::Zero, 0);
    check(PropertyControl(resources, ObjectBase::getStaticTypeInfo()), sSize::Zero, 0);
    check(PropertyControl(resources, TextureResource::getStaticTypeInfo()), {64, 32}, 2);
    check(TriggerControl<void>("Go", nullptr), {28, 16}, 1);
}
