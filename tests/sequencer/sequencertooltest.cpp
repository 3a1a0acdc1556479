#include "sequencer/sequencertool.h"

#include "sequencer/sequenceform.h"
#include "sequencer/sequencerkey.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/trackform.h"
#include "sequencer/uitrack.h"
#include "tests/sequencer/sequenceprobe.h"
#include "tests/support/elements.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/held.h"

#include <gtest/gtest.h>

#include <memory>

// The editor of a sequence of two probes, behind a few frames. The first track "T" has lanes "s32" and "f32", the
// second one "U" has none.
class SequencerToolTest : public testing::Test
{
protected:
    SequencerToolTest()
    {
        mSequence->addKeys<int>({{10, 1}, {20, 2}, {30, 3}});
        mSequence->addProbeLane("f32");
        mSequence->addTrack(SequenceProbe::getStaticTypeInfo(), "U");
        mSequence->clearModify();
        mTool = mInterface.add(new SequencerTool(mSequence.get()));
        mInterface.runFrames(3);
        mSequence->clearUpdate();
        mInterface.runFrame();
    }

    ~SequencerToolTest() override { mInterface.mSystem->removeAllWindow(); }

    SequencerTrack* getTrack(const char* name = "T") { return mSequence->findTrack(name); }
    SequencerLane* getLane(const char* name = "s32") { return mSequence->findLane("T", name); }

    SequenceProbe& getProbe(unsigned int track) { return *mTool->getLiveObject(track)->cast<SequenceProbe>(); }

    // Where a row is, on either side; the left one is found first.
    UIBase* getNames(SequencerTrack* track) { return mTool->findKey(track); }
    SequencerTool::SequenceForm& getSequenceForm()
    {
        const UIBase* splitter = getNames(getTrack())->getParent()->getParent()->getParent();
        return *getChild<SequencerTool::SequenceForm>(*splitter, 1);
    }
    UIBase* getFrames(SequencerTrack* track) { return getSequenceForm().findKey(track); }
    UIBase* getLaneFrames(int place) { return getChild(*getFrames(getTrack()), place); }

    void click(const UIBase& element, const sPoint& offset)
    {
        mInterface.click(element.getAbsPosition() + offset);
        mInterface.runFrame();
    }
    void extract() { click(*getNames(getTrack()), ExtractBox); }
    void drag(const UIBase& element, const sPoint& from, const sPoint& to)
    {
        const sPoint origin = element.getAbsPosition();
        mInterface.press(origin + from);
        mInterface.movePointer(origin + to);
        mInterface.runFrame();
    }

    static constexpr sPoint ExtractBox{4, 19};

    HeadlessInterface mInterface;
    Held<TestSequence> mSequence{new TestSequence(0, 300)};
    SequencerTool* mTool;
};

TEST_F(SequencerToolTest, RowsOfBothSidesAreAsHighAsTheirLanes)
{
    const auto heights = [this]
    {
        std::vector<unsigned int> all;
        for (SequencerTrack* track : {getTrack(), getTrack("U")})
            for (UIBase* row : {getNames(track), getFrames(track)})
                all.push_back(row->getSize().height);
        return all;
    };
    mTool->active();
    EXPECT_EQ(heights(), (std::vector<unsigned int>{24, 24, 24, 24}));
    extract();
    click(*getNames(getTrack("U")), ExtractBox);
    EXPECT_EQ(heights(), (std::vector<unsigned int>{89, 89, 25, 25}));
    const UIBase* lane = getLaneFrames(1);
    EXPECT_EQ(lane->getRelRegion(), sRect(1, 56, static_cast<int>(getFrames(getTrack())->getSize().width) - 1, 88));
    extract();
    EXPECT_EQ(heights(), (std::vector<unsigned int>{24, 24, 25, 25}));
    extract(), extract();
    EXPECT_EQ(heights(), (std::vector<unsigned int>{24, 24, 25, 25})) << "each of two quick presses counts";
}

TEST_F(SequencerToolTest, TheHeadFollowsTheMouseAndGoesOnBeyondTheEdges)
{
    const SequencerTool::SequenceForm& form = getSequenceForm();
    const int width = static_cast<int>(form.getSize().width);
    const struct
    {
        int x;
        unsigned int frames;
        unsigned int expected;
    } steps[] = {{100, 1, 100}, {width, 1, 101}, {width + 32, 2, 111}, {-1, 3, 108}, {-33, 4, 88}, {-400, 30, 0}};

    mTool->active();
    drag(form, sPoint(40, 31), sPoint(50, 31));
    EXPECT_EQ(mTool->getCurrentFrame(), 50u);
    for (const auto& step : steps)
    {
        mInterface.movePointer(form.getAbsPosition() + sPoint(step.x, 200));
        mInterface.runFrames(step.frames);
        EXPECT_EQ(mTool->getCurrentFrame(), step.expected) << step.x;
        mTool->setCurrentFrame(step.expected);
        form.getTrackForm()->setScrollBarPosition(sPoint::Zero);
    }
    mInterface.release();
    mInterface.movePointer(form.getAbsPosition() + sPoint(70, 20));
    mInterface.runFrame();
    EXPECT_EQ(mTool->getCurrentFrame(), 0u) << "a release ends the drag";
    click(form, sPoint(60, 32));
    EXPECT_EQ(mTool->getCurrentFrame(), 0u) << "below the ruler there is no drag";
    click(form, sPoint(50, 31)), click(form, sPoint(60, 31));
    EXPECT_EQ(mTool->getCurrentFrame(), 60u) << "also a quick second press is a drag";
}

TEST_F(SequencerToolTest, ABandSelectsTheFirstKeyThatItCoversTogetherWithItsLane)
{
    const struct
    {
        int from;
        int to;
        unsigned int scroll;
        unsigned int key; // 0 for none
    } bands[] = {{5, 25, 0, 10}, {25, 11, 0, 20}, {10, 10, 0, 0}, {1, 10, 0, 0}, {31, 60, 0, 0}, {10, 11, 20, 30}};

    mTool->active();
    extract();
    mTool->setSelectLane(getLane("f32"));
    for (const auto& band : bands)
    {
        getSequenceForm().getTrackForm()->setScrollBarPosition(sPoint(static_cast<int>(band.scroll), 0));
        drag(*getLaneFrames(0), sPoint(band.from, 20), sPoint(band.to, 5));
        const SequencerKey* key = mTool->getSelectKey();
        EXPECT_EQ(key ? key->getFrame() : 0, band.key) << band.from;
        EXPECT_EQ(mTool->getSelectLane(), getLane());
        mInterface.release();
        EXPECT_EQ(mTool->getSelectKey(), key) << "a release changes nothing";
    }
    click(*getLaneFrames(0), sPoint(10, 10));
    EXPECT_EQ(mTool->getSelectKey(), nullptr) << "a press deselects";
}

TEST_F(SequencerToolTest, AFocusedRowIsSelectedAndBandsOfMarkersSelectThem)
{
    mTool->active();
    extract();
    click(*getNames(getTrack("U")), sPoint(2, 2));
    EXPECT_EQ(mTool->getSelectTrack(), getTrack("U"));
    EXPECT_EQ(mTool->getSelectTrackIndex(), 1u);
    click(*getLaneFrames(1), sPoint(2, 2));
    EXPECT_EQ(mTool->getSelectLane(), getLane("f32"));
    EXPECT_EQ(mTool->getSelectTrack(), getTrack());

    mTool->setCurrentFrame(40);
    mTool->eventAddMarker();
    mTool->setSelectTrack(getTrack());
    drag(*getChild(*getFrames(getTrack())->getParent(), 0), sPoint(30, 4), sPoint(41, 8));
    EXPECT_TRUE(mTool->isMarkerTrackSelected());
    ASSERT_NE(mTool->getSelectMarker(), nullptr);
    EXPECT_EQ(mTool->getSelectMarker()->getFrame(), 40u);
}

TEST_F(SequencerToolTest, WhatHasNoKeysStaysOnTheScreenWhenObjectsAreMadeAnew)
{
    getProbe(0).get<int>() = 77;
    getProbe(0).get<float>() = 0.5f;
    getProbe(1).get<sPoint>() = sPoint(3, 4);
    {
        const SequencerTool::OwnEdit edit(*mTool);
        mSequence->addTrack(SequenceProbe::getStaticTypeInfo(), "V");
    }
    mInterface.runFrame();
    EXPECT_EQ(getProbe(0).get<int>(), 1) << "a lane with keys gives the value";
    EXPECT_EQ(getProbe(0).get<float>(), 0.5f) << "a lane without keys does not";
    EXPECT_EQ(getProbe(1).get<sPoint>(), sPoint(3, 4));

    mSequence->removeAllKey("T", "s32");
    getProbe(0).get<float>() = 0.25f;
    mTool->setCurrentFrame(5);
    EXPECT_EQ(getProbe(0).get<int>(), 1);
    EXPECT_EQ(getProbe(0).get<float>(), 0.25f) << "seeking keeps it as well";

    mSequence->removeTrack("T");
    mSequence->addTrack(Sequencer::getStaticTypeInfo(), "W");
    mInterface.runFrame();
    ASSERT_NE(mTool->getLiveObject(2), nullptr);
    EXPECT_EQ(getProbe(0).get<float>(), 0.25f) << "the class at the place decides";
    EXPECT_EQ(mTool->getLiveObject(2)->getTypeInfo(), Sequencer::getStaticTypeInfo());
}

TEST_F(SequencerToolTest, WhatNoFileHoldsAndTheNameOfAnotherTrackAreRefused)
{
    mTool->setEndFrame(9000);
    EXPECT_EQ(mTool->getEndFrame(), 4095u);
    mTool->setFPS(3);
    EXPECT_EQ(mTool->getFPS(), 15u);
    mInterface.runFrames(2);
    mSequence->clearModify();
    for (const char* name : {"", "U", "a|b", "a b"})
    {
        mTool->renameTrack(*getTrack(), name);
        EXPECT_FALSE(mTool->isManagedResourceModified()) << name;
    }
    mTool->renameTrack(*getTrack(), "Walker");
    EXPECT_NE(getTrack("Walker"), nullptr);
    EXPECT_FALSE(mSequence->isModified()) << "the sequence does not know";
    EXPECT_TRUE(mTool->isManagedResourceModified()) << "the tool does";
}
