#include "ui/uiform.h"

#include "tests/support/elements.h"
#include "ui/uigroup.h"

#include <gtest/gtest.h>

namespace
{
constexpr unsigned int Row = UIBase::RowElement;
constexpr unsigned int Scrolled = UIForm::ScrollBars | UIForm::FlowLayout;

struct TestForm : UIForm
{
    TestForm(unsigned int attribute, const sSize& size) : UIForm(attribute)
    {
        setSize(size);
        setClientRegion(getOwnRegion());
    }

    UIBase* make(const sSize& size, unsigned int attribute = 0)
    {
        UIBase* client = makeElement(size, attribute);
        addClient(client);
        mHolder = client->getParent();
        return client;
    }

    UIBase* mHolder = nullptr;
};
}

// Both layouts place the same elements, and differ where one follows an element that has begun a row.
TEST(UIFormTest, FlowsInRowsAndDiffersFromAGroupBehindAWrap)
{
    const struct
    {
        sSize size;
        unsigned int attribute;
        sRect inForm;
        int leftInGroup;
    } cases[] = {
        {{120, 10}, 0, {0, 2, 120, 12}, 0}, // Too wide for any row: a row of its own.
        {{20, 10}, 0, {0, 14, 20, 24}, 0},   {{30, 20}, 0, {22, 14, 52, 34}, 20},
        {{44, 5}, 0, {54, 14, 98, 19}, 52}, // Ends with its gap at the limit, in the form.
        {{5, 6}, Row, {0, 34, 100, 40}, 0}, // No gap above it.
        {{5, 8}, Row, {0, 40, 100, 48}, 0},  {{50, 10}, 0, {0, 50, 50, 60}, 0},
        {{46, 10}, 0, {52, 50, 98, 60}, 52},
    };
    TestForm form(UIForm::FlowLayout, {100, 100});
    UIGroup group("Title");
    std::vector<sRect> inForm, inGroup;
    for (const auto& row : cases)
    {
        form.make(row.size, row.attribute);
        group.add(makeElement(row.size, row.attribute));
        inForm.push_back(row.inForm);
        const unsigned int width = row.attribute ? 120 : row.size.width;
        inGroup.push_back(sRect(width, row.size.height) + sPoint(row.leftInGroup, row.inForm.top + 16));
    }
    form.update(1.0f);
    group.align(100);
    EXPECT_EQ(getRegions(*form.mHolder), inForm);
    EXPECT_EQ(getRegions(group), inGroup);
    EXPECT_EQ(group.getSize(), sSize(120, 76)) << "what is too wide widens the group, and its row elements";
}

TEST(UIFormTest, ShowsBarsForWhatDoesNotFit)
{
    constexpr unsigned int Across = UIForm::HorizontalBarUsed;
    constexpr unsigned int Down = UIForm::VerticalBarUsed;
    const struct
    {
        sSize plain;
        unsigned int rowHeight, status, rowWidth;
        std::vector<sRect> barsAndHolder;
    } cases[] = {
        {{50, 50}, 50, 0, 100, {{}, {}, {2, 20, 102, 120}}},
        {{50, 50}, 51, Down, 86, {{}, {88, 20, 100, 120}, {2, 20, 88, 120}}},
        {{110, 50}, 10, Across, 110, {{2, 106, 102, 118}, {}, {2, 20, 102, 106}}},
        {{110, 50}, 80, Across | Down, 110, {{2, 106, 88, 118}, {88, 20, 100, 106}, {2, 20, 88, 106}}},
        {{90, 50}, 51, Across | Down, 90, {{2, 106, 88, 118}, {88, 20, 100, 106}, {2, 20, 88, 106}}},
    };
    for (const auto& row : cases)
    {
        TestForm form(Scrolled, {104, 122});
        form.setClientRegion({2, 20, 102, 120});
        form.make(row.plain);
        const UIBase* filling = form.make({10, row.rowHeight}, Row);
        form.update(1.0f);
        EXPECT_EQ(form.getFormStatus(), row.status) << row.rowHeight;
        EXPECT_EQ(filling->getSize().width, row.rowWidth);
        EXPECT_EQ(getRegions(form), row.barsAndHolder) << row.rowHeight;
    }

    TestForm tiny(Scrolled, {5, 5});
    tiny.make({50, 50}, Row);
    tiny.update(1.0f);
    EXPECT_EQ(getRegions(tiny)[2], sRect::Zero) << "no extent wraps below zero";
}

TEST(UIFormTest, ScrollsByMovingTheRegionsOfTheClients)
{
    TestForm form(Scrolled, {100, 100});
    UIBase* client = form.make({300, 300});
    form.setPosition(sPoint(200, 300));
    form.update(1.0f);
    form.setScrollBarPosition(sPoint(250, 250));
    form.update(1.0f);
    form.updateRegion(sRect::Max, sRect::Max);
    EXPECT_EQ(form.getScrollBarPosition(), sPoint(214, 216)) << "the end of the content stays in view";
    EXPECT_EQ(client->getAbsRegion(), sRect(-14, 86, 286, 386));
    EXPECT_EQ(client->getDrawRegion(), sRect(200, 300, 286, 386));
    EXPECT_EQ(form.getClientExistRegion(), sRect(0, 0, 300, 302));

    form.mHolder->sendMessage(UIMouseWheelMessage(sPoint(3, 7)));
    for (const auto& [size, offset] :
         {std::pair(sSize(300, 300), sPoint(-211, -209)), {sSize(10, 150), sPoint(0, -50)}})
    {
        client->setSize(size);
        form.update(1.0f);
        EXPECT_EQ(form.getClientPosition(), offset);
    }
}
