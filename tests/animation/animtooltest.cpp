#include "animation/animtool.h"

#include "animation/animationform.h"
#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "animation/drawanimation.h"
#include "animation/textureform.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "sequencer/sequencertrack.h"
#include "tests/support/headlessinterface.h"
#include "tests/support/held.h"
#include "tests/support/images.h"

#include <gtest/gtest.h>

namespace
{
constexpr unsigned char SpaceUsage = 44;
constexpr unsigned char HomeUsage = 74;
constexpr unsigned int TextureSize = 64;
constexpr sPoint Origin{AnimationOrigin, AnimationOrigin};
}

// The editor on two cells and an animation within the animation, used with mouse and keys.
class AnimToolTest : public testing::Test
{
protected:
    enum eTrack : unsigned int
    {
        First,
        Second,
        Nested,
    };

    AnimToolTest()
    {
        Held<AnimResource> animation(ResourceSystem::getInstance()->createResource<AnimResource>(nullptr));
        animation->addTrack(AnimCell::getStaticTypeInfo(), "First");
        animation->addTrack(AnimCell::getStaticTypeInfo(), "Second");
        animation->addTrack(AnimSequencer::getStaticTypeInfo(), "Nested");
        mTool = mInterface.add(new AnimTool);
        mTool->setSize({900, 700});
        mInterface.runFrames(2);
        mTool->setResource(animation.get());
        mInterface.runFrames(2);
        animation->clearModify();
        for (eTrack track : {First, Second})
            getCell(track).setSize({40, 20});
    }

    const AnimTool::AnimationForm::AnimationView& getAnimation() const { return *mTool->getAnimationForm()->getView(); }
    const AnimTool::TextureForm::TextureView& getPicture() const { return *mTool->getTextureForm()->getView(); }

    template <typename T>
    T& getObject(eTrack track) const
    {
        return *mTool->getLiveObject(track)->cast<T>();
    }
    AnimCell& getCell(eTrack track) const { return getObject<AnimCell>(track); }

    void select(eTrack track)
    {
        mTool->setSelectTrack(static_cast<SequencerTrack*>(mTool->getSequence()->getTrackList()[track]));
    }

    // Puts the origin into the middle of the pane.
    void centre()
    {
        mInterface.click(mTool->getAnimationForm()->getAbsPosition());
        mInterface.pressKey(HomeUsage);
        mInterface.runFrames(2);
    }

    void loadTexture()
    {
        sTex file{.width = TextureSize, .height = TextureSize, .pixels = Bytes(4 * TextureSize * TextureSize, '\1')};
        writeBytes(mInterface.getRoot() + "/native/picture.tex", makeFile(file));
        Held<TextureResource> texture(ResourceSystem::getInstance()->createResource<TextureResource>("picture"));
        mTool->getTextureForm()->setTexture(texture.get());
        mInterface.runFrames(2);
    }

    // Between two points of the view; the press is no double click.
    void drag(const UIBase& view, const sPoint& from, const sPoint& to)
    {
        const sPoint origin = view.getAbsPosition();
        mInterface.wait(1000);
        mInterface.press(origin + from);
        mInterface.movePointer(origin + to);
        mInterface.runFrame();
        mInterface.release();
    }

    HeadlessInterface mInterface;
    AnimTool* mTool = nullptr;
};

TEST_F(AnimToolTest, MovesWhatStandsOnTheSelectedTrackWithinTheCanvas)
{
    select(First);
    centre();
    drag(getAnimation(), Origin + sPoint(20, 10), Origin + sPoint(30, 5));
    EXPECT_EQ(getCell(First).getPosition(), sPoint(10, -5));
    EXPECT_EQ(getCell(Second).getPosition(), sPoint::Zero);
    EXPECT_FALSE(mTool->getSequence()->isModified()) << "only a key records it";

    drag(getAnimation(), Origin + sPoint(31, 5), Origin + sPoint(50, 50));
    EXPECT_EQ(getCell(First).getPosition(), sPoint(10, -5)) << "beside the cell";

    mTool->getSequence()->setModify();
    mInterface.runFrames(2);
    EXPECT_EQ(getCell(First).getPosition(), sPoint(10, -5)) << "the cell made anew stands where the old one did";
    select(First);
    getCell(First).setSize({1024, 1024});
    getCell(First).setPosition({-400, 400});
    drag(getAnimation(), Origin, Origin + sPoint(-200, 200));
    EXPECT_EQ(getCell(First).getPosition(), sPoint(-512, 511));

    select(Nested);
    drag(getAnimation(), Origin - sPoint(16, 16), Origin + sPoint(0, 8));
    EXPECT_EQ(getObject<AnimSequencer>(Nested).getPosition(), sPoint(16, 24));
}

TEST_F(AnimToolTest, ScrollsWithTheSpaceKeyAndComesBackWithHome)
{
    select(First);
    centre();
    const sPoint centred = mTool->getAnimationForm()->getScrollBarPosition();
    mInterface.setKey(SpaceUsage, true);
    mInterface.runFrame();
    drag(getAnimation(), Origin, Origin + sPoint(-30, 20));
    EXPECT_EQ(mTool->getAnimationForm()->getScrollBarPosition(), centred + sPoint(30, -20));
    EXPECT_EQ(getCell(First).getPosition(), sPoint::Zero);
    mInterface.setKey(SpaceUsage, false);
    centre();
    EXPECT_EQ(mTool->getAnimationForm()->getScrollBarPosition(), centred);
}

TEST_F(AnimToolTest, PicksThePartOfTheTextureInAnyDirection)
{
    loadTexture();
    EXPECT_EQ(getPicture().getSize(), sSize(TextureSize, TextureSize));
    select(Second);
    drag(getPicture(), {10, 12}, {4, 2});
    EXPECT_EQ(getCell(Second).getUV(), sTexcoord(4, 2));
    EXPECT_EQ(getCell(Second).getSize(), sSize(6, 10));
    drag(getPicture(), {10, 12}, {-40, 14});
    EXPECT_EQ(getCell(Second).getUV(), sTexcoord(0, 12)) << "nothing lies left of the texture";
}
