#include "animation/animationform.h"
#include "animation/animcell.h"
#include "animation/animsequencer.h"
#include "animation/textureform.h"
#include "resource/resourcesystem.h"
#include "resource/textureresourcetga.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "tests/support/apart.h"
#include "tests/support/display.h"
#include "tests/support/held.h"
#include "tests/support/images.h"
#include "tests/window/editordriver.h"
#include "tests/window/near.h"
#include "ui/uidesktop.h"
#include "ui/uimenu.h"
#include "ui/uisystem.h"

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

constexpr const char* Question = "Causion";
}

// In a process of its own, since each has one set of heaps. The work is a person's, in an editor.
template <typename Work>
void runEditor(const std::shared_ptr<const SampleData>& data, Work&& work)
{
    const int status = runApart(
        [&]
        {
            {
                EditorDriver driver(data);
                work(driver);
            }
            return testing::Test::HasFailure();
        });
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(EditorTest, WhatIsMadeFromNothingComesBackAndLooksTheSame)
{
    constexpr unsigned int CellNum = 3;
    constexpr unsigned int Last = 40;
    // In the texture, and where each cell is at the frames with keys.
    constexpr sRect Cells[CellNum] = {{10, 20, 70, 90}, {80, 10, 140, 60}, {20, 100, 130, 170}};
    constexpr sPoint Places[CellNum][3] = {
        {{-60, -50}, {0, -40}, {70, -60}}, {{60, 10}, {20, 30}, {-40, 50}}, {{0, 40}, {-30, 0}, {10, -10}}};
    const auto data = std::make_shared<SampleData>();
    const auto make = [&](EditorDriver& driver)
    {
        for (unsigned int track = 0; track < CellNum; ++track)
            driver.addTrack("Add Track", "AnimCell");
        driver.clickElement(driver.getPart(driver.getTool().getTextureForm(), {3, 1}));
        driver.pick("walk.tga");
        for (unsigned int track = 0; track < CellNum; ++track)
        {
            driver.clickTrack(track);
            driver.pickCell({Cells[track].left, Cells[track].top}, {Cells[track].right, Cells[track].bottom});
        }
        for (unsigned int key = 0; key < 3; ++key)
        {
            driver.seek(key * 20);
            for (unsigned int track = 0; track < CellNum; ++track)
            {
                driver.clickTrack(track);
                driver.moveObject(key ? Places[track][key - 1] : sPoint::Zero, Places[track][key]);
                EXPECT_EQ(driver.getObject<AnimCell>(track).getPosition(), Places[track][key]);
                driver.choose("Key", "Add Key All Lane");
            }
        }
        data->write("frames", driver.describeFrames(Last));
        driver.choose("File", "Save");
        EXPECT_EQ(driver.getDialogTitle(), "Save");
        driver.pick("made");
        EXPECT_FALSE(driver.getTool().isManagedResourceModified());
    };
    runEditor(data, make);

    EditorDriver driver(data, "made");
    EXPECT_EQ(driver.describeFrames(Last), data->read("frames"));
    driver.choose("File", "Save as");
    driver.pick("again");
    EXPECT_EQ(data->read("intermediate/again.asq.xml"), data->read("intermediate/made.asq.xml"));

    constexpr unsigned int Shown = 30;
    constexpr sRect Around(-90, -55, 90, 55);
    driver.seek(Shown);
    for (const char* item : {"Grid", "Curve"})
    {
        UIBase* view = driver.getTool().getAnimationForm()->getView();
        driver.click(driver.getOrigin(), WindowDriver::Right);
        driver.chooseFrom(view->getMenu(), item);
    }
    const std::vector<sColor> edited = driver.read(Around + driver.getOrigin());
    driver.clickCloseButton();
    EXPECT_EQ(driver.findTool(), nullptr);

    writeBytes(*data / "intermediate/black.tga", makeFile(sTga{1, 1, {0, 0, 0, 255}}));
    const Held<TextureResourceTGA> black(ResourceSystem::getInstance()->createResource<TextureResourceTGA>("black"));
    UISystem::getInstance()->getDesktop()->setWallpaper(black.get());
    ASSERT_TRUE(driver.play("again"));
    driver.runFrames(Shown);
    const std::vector<sColor> played = driver.read(Around + sPoint(512, 384));
    unsigned int seen = 0;
    for (std::size_t i = 0; i < played.size(); ++i)
    {
        const bool marking = edited[i] == sColor::Red || edited[i] == sColor::Yellow;
        EXPECT_TRUE(marking || isNear(played[i], edited[i])) << i;
        seen += !marking && played[i] != sColor::Black;
    }
    EXPECT_GE(seen, 3000u);
}

TEST(EditorTest, KeysAndNamesAreEditedInPlace)
{
    EditorDriver driver;
    driver.addTrack("Add Track", "AnimCell");
    driver.toggleLanes(0);
    driver.clickLane(0, 0);
    for (const unsigned int frame : {0u, 20u, 40u})
    {
        driver.seek(frame);
        driver.choose("Key", "Add Key");
    }
    const auto getFrame = [&]
    {
        return driver.getTool().getSelectKey()->getFrame();
    };
    driver.band(0, 0, 15, 25);
    ASSERT_NE(driver.getTool().getSelectKey(), nullptr);
    EXPECT_EQ(getFrame(), 20u);
    driver.enter({EditorDriver::Key, 0, 0}, "30");
    driver.enter({EditorDriver::Key, 2, 0}, "-25");
    driver.chooseRow({EditorDriver::Key, 1}, static_cast<int>(eInterpolateType::Hermite));
    EXPECT_EQ(getFrame(), 30u);
    EXPECT_EQ(driver.getTool().getSelectKey()->getInterpolateType(), eInterpolateType::Hermite);
    driver.seek(30);
    EXPECT_EQ(driver.getObject<AnimCell>(0).getPosition(), sPoint(-25, 0));

    driver.clickLane(0, 0);
    for (const auto& [key, frame] : {std::pair(KeyboardSystem::LeftArrow, 0u),
                                     {KeyboardSystem::RightArrow, 30u},
                                     {KeyboardSystem::RightArrow, 40u},
                                     {KeyboardSystem::RightArrow, 40u}})
    {
        driver.strike(key);
        EXPECT_EQ(getFrame(), frame);
    }
    driver.choose("Key", "Remove Key");
    EXPECT_EQ(driver.getSequence().findKey("Track0", "Position", 40), nullptr);
    driver.choose("Lane", "Remove Lane");
    EXPECT_EQ(driver.getTrack(0)->getLaneList().size(), 4u);
    driver.renameTrack(0, "Hero-2");
    EXPECT_STREQ(driver.getTrack(0)->getTrackName().c_str(), "Hero-2");
    driver.clickTrack(0);
    driver.choose("Track", "Remove Track");
    EXPECT_EQ(driver.getSequence().getTrackNum(), 0u);
}

TEST(EditorTest, MarkersLeadThePlayHeadAround)
{
    EditorDriver driver;
    for (const unsigned int frame : {10u, 30u})
    {
        driver.seek(frame);
        driver.choose("Marker", "Add Marker");
    }
    const auto enter = [&](int widget, const char* text)
    {
        driver.enter({EditorDriver::Marker, widget, 0}, text);
    };
    const auto setType = [&](eMarkerType type)
    {
        driver.chooseRow({EditorDriver::Marker, 2}, static_cast<int>(type));
    };
    // How often the head comes past 20 and 40.
    const auto play = [&]
    {
        std::pair<int, int> seen;
        driver.seek(0);
        driver.strike(WindowDriver::F5);
        for (int i = 0; i < 400 && driver.getTool().getSequencer()->isPlaying(); ++i)
        {
            driver.runFrames(1);
            seen.first += driver.getTool().getCurrentFrame() == 20;
            seen.second += driver.getTool().getCurrentFrame() == 40;
        }
        EXPECT_EQ(driver.getTool().getCurrentFrame(), driver.getTool().getEndFrame());
        return seen;
    };
    using Seen = std::pair<int, int>;
    enter(3, "2");
    enter(6, "Marker0");
    setType(eMarkerType::JumpTarget);
    EXPECT_EQ(play(), Seen(3, 1));
    EXPECT_EQ(play(), Seen(1, 1)) << "it is spent";
    driver.choose("Marker", "Reset Marker Count");
    EXPECT_EQ(play(), Seen(3, 1));
    driver.choose("Marker", "Reset Marker Count");
    driver.clickElement(driver.getWidget({EditorDriver::Marker, 4}));
    EXPECT_EQ(play(), Seen(3, 1));
    EXPECT_EQ(play(), Seen(3, 1)) << "it starts over once it is passed";
    enter(5, "50");
    setType(eMarkerType::JumpFrame);
    EXPECT_EQ(play(), Seen(1, 0));

    for (const auto& [start, key, frame] : {std::tuple(0u, KeyboardSystem::RightArrow, 10u),
                                            {10u, KeyboardSystem::LeftArrow, 10u},
                                            {40u, KeyboardSystem::LeftArrow, 10u}})
    {
        driver.seek(start);
        driver.strikeWith(KeyboardSystem::LeftControl, key);
        EXPECT_EQ(driver.getTool().getCurrentFrame(), frame);
    }
    enter(1, "20");
    EXPECT_EQ(driver.getTool().getSelectMarker()->getFrame(), 20u);
}

TEST(EditorTest, AnAnimationPlaysWithinAnother)
{
    enum eLane : unsigned int
    {
        Resource,
        Seek,
        Play,
        Position = 4,
        Color,
        Orientation,
    };
    EditorDriver driver;
    driver.addTrack("Add Sequencer Track");
    driver.clickElement(driver.getWidget({EditorDriver::Live, 0, 1}));
    driver.pick("walk.asq.xml");
    driver.moveObject({0, 0}, {30, 20});
    driver.toggleLanes(0);
    for (const auto& [lane, frame] :
         {std::pair(Resource, 0u), {Position, 0u}, {Color, 0u}, {Orientation, 0u}, {Play, 10u}, {Seek, 40u}})
    {
        driver.clickLane(0, lane);
        driver.seek(frame);
        driver.choose("Key", "Add Key");
    }
    // A key of a trigger that lies ahead fires in each frame up to its own.
    driver.seek(0);
    driver.strike(WindowDriver::F5);
    while (driver.getTool().getSequencer()->isPlaying())
    {
        driver.runFrames(1);
        const AnimSequencer& nested = driver.getObject<AnimSequencer>(0);
        const int frame = static_cast<int>(driver.getTool().getCurrentFrame());
        const int inside = static_cast<int>(nested.getCurrentFrame());
        EXPECT_NEAR(inside, std::max(frame - 40, 0), 3) << frame;
        EXPECT_EQ(nested.getPosition(), sPoint(30, 20));
    }
    driver.choose("File", "Save");
    driver.pick("nest");
    EXPECT_FALSE(driver.getTool().isManagedResourceModified());
}

TEST(EditorTest, NothingUnsavedIsLostWithoutAQuestion)
{
    using enum UIDialog::eReturnValue;
    const auto data = std::make_shared<SampleData>();
    EditorDriver driver(data);
    const auto ask = [&](const std::function<void()>& act, UIDialog::eReturnValue answer)
    {
        if (!driver.findTool() && !driver.edit(nullptr))
            return false;
        driver.runFrames(2);
        driver.activate(driver.getTool());
        if (!driver.getTool().isManagedResourceModified())
            driver.addTrack("Add Track", "AnimCell");
        act();
        driver.runFrames(2);
        EXPECT_EQ(driver.getDialogTitle(), Question);
        driver.answer(answer);
        return driver.findTool() != nullptr;
    };
    const auto close = [&]
    {
        driver.clickCloseButton();
    };
    const auto strikeClose = [&]
    {
        driver.strikeClose();
    };
    const auto quit = [&]
    {
        driver.pressCloseBox(), driver.requestQuit();
    };
    const auto open = [&]
    {
        driver.choose("File", "Open");
    };

    EXPECT_TRUE(ask(close, Cancel));
    EXPECT_FALSE(ask(close, No));
    EXPECT_TRUE(ask(strikeClose, Yes));
    driver.pick("one");
    EXPECT_EQ(driver.findTool(), nullptr);
    EXPECT_NE(data->read("intermediate/one.asq.xml"), "");

    EXPECT_TRUE(ask(open, No));
    EXPECT_EQ(driver.getDialogTitle(), "Load");
    driver.pick("walk");
    EXPECT_EQ(driver.getSequence().getTrackNum(), 3u);
    driver.clickCloseButton();
    EXPECT_EQ(driver.findTool(), nullptr) << "nothing to ask about";

    EXPECT_TRUE(ask(quit, Cancel));
    EXPECT_TRUE(ask(quit, Yes));
    driver.pick("two");
    driver.runToEnd();
    EXPECT_NE(data->read("intermediate/two.asq.xml"), "");
}

// The four ways in which one of two has the edit and one of them is closed.
TEST(EditorTest, TwoEditorsOfOneAnimationLoseNothingUnasked)
{
    using enum UIDialog::eReturnValue;
    const auto data = std::make_shared<SampleData>();
    EditorDriver driver(data, "walk");
    unsigned int laneNum = driver.getTrack(0)->getLaneList().size();
    driver.clickCloseButton();
    const auto isAsked = [&](UIDialog::eReturnValue answer)
    {
        driver.clickCloseButton();
        const bool asked = driver.getDialogTitle() == Question;
        if (asked)
            driver.answer(answer);
        return asked;
    };
    for (const auto& [editor, closed] : {std::pair(0, 0), {0, 1}, {1, 0}, {1, 1}})
    {
        AnimTool* tools[2];
        for (AnimTool*& tool : tools)
        {
            EXPECT_TRUE(driver.edit(nullptr));
            driver.runFrames(2);
            tool = UISystem::getInstance()->getWindowList()[0]->cast<AnimTool>();
            driver.activate(*tool);
            driver.open("walk");
            driver.toggleLanes(0);
            driver.clickLane(0, 0);
            EXPECT_NE(tool->getSelectKey(), nullptr);
            driver.dragBy(tool->getAbsPosition() + sPoint(100, 8), {tool == tools[0] ? 480 : 0, 160});
        }
        ASSERT_EQ(tools[0]->getResource(), tools[1]->getResource());
        ASSERT_EQ(driver.getTrack(0)->getLaneList().size(), laneNum);

        driver.activate(*tools[editor]);
        driver.choose("Lane", "Remove Lane");
        EXPECT_EQ(tools[!editor]->getSelectLane(), nullptr) << "it is gone";
        driver.activate(*tools[closed]);
        EXPECT_TRUE(isAsked(No));
        ASSERT_EQ(driver.findTool(), tools[!closed]);
        driver.activate(*tools[!closed]);
        EXPECT_TRUE(isAsked(Cancel)) << "it has the edit still";
        driver.activate(*tools[!closed]);
        driver.choose("File", "Save");
        EXPECT_FALSE(isAsked(Cancel));
        EXPECT_EQ(driver.findTool(), nullptr);
        --laneNum;
    }
}

TEST(EditorTest, ColoursAndWallpaperAreThereTheNextTimeAndUnwantedWorkIsNot)
{
    const auto data = std::make_shared<SampleData>();
    const std::string walk = data->read("intermediate/walk.asq.xml");
    const auto change = [](EditorDriver& driver)
    {
        const auto chooseFromDesktop = [&driver](const char* item)
        {
            driver.click({6, 400}, WindowDriver::Right);
            driver.chooseFrom(UISystem::getInstance()->getDesktop()->getMenu(), item);
            driver.runFrames(2);
        };
        chooseFromDesktop("Change Wallpaper");
        driver.pick("walk.tga");
        driver.activate(driver.getTool());
        driver.open("walk");
        driver.choose("Track", "Add Sequencer Track");

        chooseFromDesktop("SystemManager");
        const UIWindow& inspector = *UISystem::getInstance()->getWindowList()[0]->cast<UIWindow>();
        driver.enlarge(inspector);
        for (const auto& [channel, amount] : {std::pair(1, 200), {2, -200}})
            driver.dragBy(driver.getCenter(driver.getPart(&inspector, {2, 7, 3, 4 + channel})), {amount, 0});

        driver.pressCloseBox(), driver.requestQuit();
        driver.runFrames(2);
        EXPECT_EQ(driver.getDialogTitle(), Question);
        driver.answer(UIDialog::No);
        driver.runToEnd();
    };
    runEditor(data, change);
    EXPECT_EQ(data->read("intermediate/walk.asq.xml"), walk);
    EditorDriver driver(data);
    const ResourceBase* wallpaper = UISystem::getInstance()->getDesktop()->getWallpaper();
    ASSERT_NE(wallpaper, nullptr);
    EXPECT_STREQ(wallpaper->getPath().c_str(), "intermediate/walk.tga");
    const sRect window = driver.getTool().getAbsRegion();
    EXPECT_EQ(driver.read(sPoint(window.left + 5, window.bottom - 5)), sColor::Green);
    EXPECT_EQ(driver.read(sPoint(6, 200)), sColor::Black) << "the corner of the picture, and not of the desktop";
}
