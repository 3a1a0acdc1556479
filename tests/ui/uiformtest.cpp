#include "ui/uiform.h"

#include "tests/support/elements.h"
#include "tests/support/headlesssystems.h"
#include "ui/uicolor.h"
#include "ui/uigroup.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

namespace
{
constexpr unsigned int Row = UIBase::RowElement;
constexpr unsigned int Scrolled = UIForm::ScrollBars | UIForm::FlowLayout;

class ListeningForm : public UIForm
{
public:
    using UIForm::UIForm;

    void eventMouseWheel(const sPoint& amount) override { mWheel = amount; }

    sPoint mWheel = sPoint::Zero;
};

sRect belowTitle(const sRect& region)
{
    return region + sPoint(0, 16);
}
}

class UIFormTest : public testing::Test
{
protected:
    static void fit(UIForm& form, unsigned int width, unsigned int height)
    {
        form.setSize({width, height});
        form.setClientRegion(form.getOwnRegion());
    }

    static UIBase* addClient(UIForm& form, unsigned int width, unsigned int height, unsigned int attribute = 0)
    {
        UIBase* client = new ProbeElement(width, height, attribute);
        form.addClient(client);
        return client;
    }

    static UIBase* getBar(const UIForm& form, int index) { return getChild(form, index); }
};

// Both layouts place the same elements; the second column is behind an element that has begun a row.
TEST_F(UIFormTest, FlowsInRowsAndDiffersFromAGroupBehindAWrap)
{
    const struct
    {
        unsigned int width, height, attribute;
        sRect inForm;
        int leftInGroup;
    } cases[] = {
        {120, 10, 0, {0, 2, 120, 12}, 0},  // Too wide for any row: a row of its own.
        {20, 10, 0, {0, 14, 20, 24}, 0},   // No room behind it.
        {30, 20, 0, {22, 14, 52, 34}, 20}, // Behind a wrap.
        {44, 5, 0, {54, 14, 98, 19}, 52},  // Ends with its gap at the limit, in the form.
        {5, 6, Row, {0, 34, 100, 40}, 0},  // No gap above it.
        {5, 8, Row, {0, 40, 100, 48}, 0},  {50, 10, 0, {0, 50, 50, 60}, 0}, {46, 10, 0, {52, 50, 98, 60}, 52},
    };
    UIForm form(UIForm::FlowLayout);
    fit(form, 100, 100);
    UIGroup group("Title");
    std::vector<sRect> inForm;
    std::vector<sRect> inGroup;
    for (const auto& row : cases)
    {
        addClient(form, row.width, row.height, row.attribute);
        group.add(new ProbeElement(row.width, row.height, row.attribute));
        inForm.push_back(row.inForm);
        const int width = row.attribute ? 120 : static_cast<int>(row.inForm.getWidth());
        inGroup.push_back(belowTitle({row.leftInGroup, row.inForm.top, row.leftInGroup + width, row.inForm.bottom}));
    }
    form.update(1.0f);
    group.align(100);
    EXPECT_EQ(getRegions(*getChild(form, 0)), inForm);
    EXPECT_EQ(getRegions(group), inGroup);
    EXPECT_EQ(group.getSize(), sSize(120, 76)) << "what is too wide widens the group, and its row elements";
}

TEST_F(UIFormTest, GivesAGroupItsWidthAndTakesTheHeightOfItsContent)
{
    UIForm form(UIForm::FlowLayout);
    fit(form, 100, 100);
    UIGroup* group = new UIGroup(nullptr);
    group->setAttribute(Row);
    group->add(new ProbeElement(60, 10));
    group->add(new ProbeElement(60, 10));
    form.addClient(group);
    UIBase* next = addClient(form, 10, 10);
    form.update(1.0f);
    EXPECT_EQ(group->getSize(), sSize(100, 38));
    EXPECT_EQ(next->getPosition(), sPoint(0, 40));

    fit(form, 200, 100);
    form.update(1.0f);
    EXPECT_EQ(group->getSize(), sSize(200, 26));
}

TEST_F(UIFormTest, ShowsBarsForWhatDoesNotFit)
{
    constexpr unsigned int Both = UIForm::HorizontalBarUsed | UIForm::VerticalBarUsed;
    const struct
    {
        sSize plain;
        unsigned int rowHeight;
        unsigned int status;
        sRect holder, horizontal, vertical;
        unsigned int rowWidth;
    } cases[] = {
        {{50, 50}, 50, 0, {2, 20, 102, 120}, {}, {}, 100},
        {{50, 50}, 51, UIForm::VerticalBarUsed, {2, 20, 88, 120}, {}, {88, 20, 100, 120}, 86},
        {{110, 50}, 10, UIForm::HorizontalBarUsed, {2, 20, 102, 106}, {2, 106, 102, 118}, {}, 110},
        {{110, 50}, 80, Both, {2, 20, 88, 106}, {2, 106, 88, 118}, {88, 20, 100, 106}, 110},
        {{90, 50}, 51, Both, {2, 20, 88, 106}, {2, 106, 88, 118}, {88, 20, 100, 106}, 90},
    };
    for (const auto& row : cases)
    {
        UIForm form(Scrolled);
        form.setSize({104, 122});
        form.setClientRegion({2, 20, 102, 120});
        addClient(form, row.plain.width, row.plain.height);
        UIBase* whole = addClient(form, 10, row.rowHeight, Row);
        form.update(1.0f);
        EXPECT_EQ(form.getFormStatus(), row.status) << row.rowHeight;
        EXPECT_EQ(getChild(form, 2)->getRelRegion(), row.holder);
        EXPECT_EQ(whole->getSize().width, row.rowWidth);

        for (int bar = 0; bar < 2; ++bar)
        {
            const UIBase* shown = getBar(form, bar)->isVisible() ? getBar(form, bar) : nullptr;
            EXPECT_EQ(shown ? shown->getRelRegion() : sRect::Zero, bar ? row.vertical : row.horizontal) << bar;
        }
        EXPECT_EQ(form.getClientPosition(), sPoint::Zero);
    }
}

TEST_F(UIFormTest, SurvivesASizeOfNothing)
{
    UIForm form(Scrolled);
    UIBase* client = addClient(form, 50, 50, Row);
    fit(form, 5, 5);
    form.update(1.0f);
    EXPECT_EQ(getChild(form, 2)->getSize(), sSize::Zero);
    EXPECT_EQ(client->getSize(), sSize(0, 50));
}

TEST_F(UIFormTest, ScrollsByMovingTheRegionsOfTheClients)
{
    UIForm form(Scrolled);
    fit(form, 100, 100);
    UIBase* client = addClient(form, 10, 300, Row);
    form.setPosition(sPoint(200, 300));
    updateFrame(form);
    EXPECT_EQ(form.getScrollBarRange(), sSize(0, 100));

    form.setScrollBarPosition(sPoint(0, 250));
    updateFrame(form);
    EXPECT_EQ(form.getScrollBarPosition(), sPoint(0, 200)) << "the end of the content stays in view";
    EXPECT_EQ(form.getClientPosition(), sPoint(0, -200));
    EXPECT_EQ(client->getAbsRegion(), sRect(200, 100, 286, 400));
    EXPECT_EQ(client->getDrawRegion(), sRect(200, 300, 286, 400));
    EXPECT_EQ(form.getClientExistRegion(), sRect(0, 0, 86, 300));

    client->setSize({10, 150});
    updateFrame(form);
    EXPECT_EQ(form.getClientPosition(), sPoint(0, -50));
    client->setSize({10, 100});
    updateFrame(form);
    EXPECT_EQ(form.getClientPosition(), sPoint::Zero);
    form.removeClient();
    EXPECT_EQ(getChild(form, 2)->getChildCount(), 0u);
}

TEST_F(UIFormTest, TurnsTheWheelIntoScrollingOrLetsItRise)
{
    for (const unsigned int attribute : {Scrolled, 0u})
    {
        ListeningForm form(attribute);
        fit(form, 100, 100);
        UIBase* holder = addClient(form, 300, 300)->getParent();
        form.update(1.0f);
        holder->sendMessage(UIMouseWheelMessage(sPoint(-3, -7)));
        form.update(1.0f);
        EXPECT_EQ(form.getClientPosition(), attribute ? sPoint(-3, -7) : sPoint::Zero);
        EXPECT_EQ(form.mWheel, attribute ? sPoint::Zero : sPoint(-3, -7));
    }
}

TEST_F(UIFormTest, MovesTheEdgesOfTheClientRegionWithItsSizeOnceItIsCreated)
{
    UIForm form(UIForm::FollowSize);
    form.setSize({100, 100});
    form.setClientRegion({10, 10, 90, 90});
    form.create();
    form.setSize({130, 120});
    EXPECT_EQ(form.getClientRegion(), sRect(10, 10, 120, 110));
    form.setSize({20, 0});
    EXPECT_EQ(form.getClientRegion(), sRect(10, 10, 10, -10));
}

TEST_F(UIFormTest, PaintsOfTwoThousandElementsThoseInView)
{
    HeadlessSystems systems;
    UIForm form(Scrolled | UIForm::FillClientRegion);
    fit(form, 200, 100);
    for (int i = 0; i < 2000; ++i)
        addClient(form, 10, 20, Row);
    form.update(1.0f);
    form.setScrollBarPosition(sPoint(0, 20010));
    updateFrame(form);

    const auto draws = systems.record(
        [&form](DrawContext& context)
        {
            UIPainter painter(&context, 0);
            form.sendMessage(UIPaintMessage(&painter));
        });
    const UIBase& holder = *getChild(form, 2);
    unsigned int painted = 0;
    for (UIBase::iterator client = holder.getChildrenBegin(); client != holder.getChildrenEnd(); ++client)
        painted += static_cast<ProbeElement*>(*client)->mPainted;
    EXPECT_EQ(painted, 6u);
    EXPECT_EQ(draws.front().vertices[0].color, UIColorScheme::mDefaultClientRegionColor);
}
