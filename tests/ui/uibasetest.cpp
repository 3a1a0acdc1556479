#include "ui/uibase.h"

#include "tests/support/elements.h"
#include "tests/support/probe.h"

#include <gtest/gtest.h>

namespace
{
using Element = Probe<UIBase>;

// An element of a rectangle.
struct Patch : UIBase
{
    explicit Patch(const sRect& rect, unsigned int attribute = 0) : UIBase(attribute)
    {
        setPosition({rect.left, rect.top});
        setSize({rect.getWidth(), rect.getHeight()});
    }
};

constexpr unsigned int Floating = UIBase::FloatingElement;

void layOut(UIBase& root)
{
    root.updateRegion(sRect(0, 0, 1024, 768), sRect(0, 0, 1024, 768));
}
}

class UIBaseTest : public testing::Test
{
protected:
    // Owned by the parent.
    Element* add(UIBase& parent, const char* name, unsigned int attribute = 0)
    {
        Element* element = new Element(mLog, name, attribute);
        parent.add(element);
        return element;
    }

    Patch* addPatch(UIBase& parent, const sRect& rect, unsigned int attribute = 0)
    {
        Patch* patch = new Patch(rect, attribute);
        parent.add(patch);
        return patch;
    }

    std::string take() { return takeLog(mLog); }

    ProbeLog mLog;
    Element mRoot{mLog, "root"};
};

TEST_F(UIBaseTest, LaysChildrenOutWithinWhatIsVisibleOfTheParent)
{
    HeadlessSystems systems;
    mRoot.setPosition({100, 100});
    mRoot.setSize({50, 50});
    Patch* child = addPatch(mRoot, {40, 40, 60, 60});
    Patch* grandchild = addPatch(*child, {15, 5, 20, 90});
    Patch* floating = addPatch(mRoot, {-10, 30, 2000, 40}, Floating);
    layOut(mRoot);
    EXPECT_EQ(child->getAbsRegion(), sRect(140, 140, 160, 160));
    EXPECT_EQ(child->getDrawRegion(), sRect(140, 140, 150, 150));
    EXPECT_EQ(grandchild->getDrawRegion(), sRect::Zero);
    EXPECT_EQ(floating->getDrawRegion(), sRect(90, 130, 1024, 140)) << "up to the bounds of the view";

    floating->remove();
    EXPECT_FALSE(mRoot.hasFloating());
    delete floating;
    addPatch(mRoot, {-5, 10, 5, 12});
    EXPECT_EQ(mRoot.getChildrenRegion(), sRect(-5, 0, 60, 60)) << "the origin is part of it";
}

TEST_F(UIBaseTest, FindsTheDeepestElementUnderAPoint)
{
    HeadlessSystems systems;
    mRoot.setPosition({10, 10});
    mRoot.setSize({100, 100});
    Patch* lower = addPatch(mRoot, {0, 0, 40, 40});
    Patch* inner = addPatch(*lower, {20, 20, 90, 30});
    Patch* upper = addPatch(mRoot, {30, 0, 60, 40});
    Patch* clipped = addPatch(mRoot, {200, 200, 220, 220});
    Patch* holder = addPatch(mRoot, {0, 90, 10, 95});
    Patch* floating = addPatch(*holder, {0, 0, 8, 80}, Floating);
    addPatch(mRoot, {0, 90, 10, 95});
    layOut(mRoot);

    const std::pair<sPoint, UIBase*> cases[] = {
        {{9, 50}, nullptr},    {{12, 12}, lower},     {{35, 35}, inner},    {{45, 35}, upper},     {{70, 10}, upper},
        {{71, 10}, &mRoot},    {{110, 50}, &mRoot},   {{111, 50}, nullptr}, {{215, 215}, nullptr}, {{0, 0}, nullptr},
        {{12, 102}, floating}, {{12, 170}, floating}, {{200, 20}, nullptr}, {{19, 103}, holder},
    };
    for (const auto& [point, hit] : cases)
        EXPECT_EQ(mRoot.intersect(point, sRect::Max), hit) << point.x << ", " << point.y;
    EXPECT_EQ(clipped->intersect({0, 0}, sRect(0, 0, 20, 20)), nullptr) << "nothing in common is no point in common";

    floating->hide();
    EXPECT_EQ(mRoot.intersect({12, 170}, sRect::Max), nullptr);
    EXPECT_TRUE(mRoot.hasFloating()) << "a hidden one counts";
    floating->setAttribute(0);
    floating->show();
    EXPECT_FALSE(mRoot.hasFloating());
    lower->disable();
    EXPECT_EQ(mRoot.intersect({12, 12}, sRect::Max), lower);
}

TEST_F(UIBaseTest, DelegatedMessagesRiseAsTheyAre)
{
    Element* middle = add(mRoot, "middle");
    Element* leaf = add(*middle, "leaf");
    leaf->setPosition({7, 7});
    leaf->mHook = [&]
    {
        leaf->delegate();
        leaf->sendMessage(UIShowMessage());
    };
    leaf->sendMessage(UIMouseDownMessage({3, 4}, 2));
    EXPECT_EQ(take(), "leaf.down(3,4):2 middle.down(3,4):2") << "positions are not rebased, nor is the wish forgotten";

    mRoot.mHook = [this]
    {
        mRoot.delegate();
    };
    mRoot.sendMessage(UIMouseMoveMessage({1, 1}));
    leaf->mHook = nullptr;
    leaf->sendMessage(UIMouseUpMessage({0, 0}, 1));
    EXPECT_EQ(take(), "root.move(1,1) leaf.up(0,0):1") << "a wish ends with its message";
    middle->sendMessage(UIBeginEditMessage());
    middle->sendMessage(UIEndEditMessage());
    EXPECT_EQ(take(), "middle.begin root.begin middle.end root.end") << "edits rise by themselves";
}
