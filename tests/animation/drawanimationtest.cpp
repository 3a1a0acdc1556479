#include "animation/drawanimation.h"

#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "foundation/smatrix.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

// An animation with a cell, another animation of one cell, and a further cell.
class DrawAnimationTest : public testing::Test
{
protected:
    using Lines = std::vector<std::string>;

    DrawAnimationTest()
    {
        for (const char* name : {"Cell", "Nested", "Last"})
            mOuter.addTrack(TypeInfo::find(*name == 'N' ? "AnimSequencer" : "AnimCell"), name);
        mInner.addTrack(AnimCell::getStaticTypeInfo(), "Cell");
        for (const auto& [resource, name] : {std::pair(&mOuter, "outer"), std::pair(&mInner, "inner")})
        {
            mSystems.write(std::string("native/") + name + ".tex", makeFile(sTex{}));
            auto* texture = ResourceSystem::getInstance()->createResource<TextureResource>(name);
            resource->setTexture(texture);
            texture->release();
        }
        mSequencer.setResource(&mOuter);
    }

    ~DrawAnimationTest() override
    {
        mSequencer.setResource(nullptr);
        mOuter.setTexture(nullptr);
        mInner.setTexture(nullptr);
    }

    template <typename T>
    static T& get(const Sequencer& sequencer, unsigned int track)
    {
        return *sequencer.getTrackArray()[track].object->cast<T>();
    }

    // A cell of 20 by 10 at (3, 4) of the texture.
    static AnimCell& place(AnimCell& cell, const sPoint& position)
    {
        cell.setPosition(position);
        cell.setSize({20, 10});
        cell.setUV({3, 4});
        return cell;
    }

    // A line for each cell of a size: its corners from the origin, each with its texel, in the order of strips.
    Lines draw()
    {
        Lines lines;
        for (const sRecordedDraw& recorded : mSystems.record(
                 [&](DrawContext& context)
                 {
                     UIPainter painter(&context, 7);
                     drawAnimation(painter, mSequencer, sMatrix::Identity, sColor::Blue);
                 }))
        {
            for (std::size_t i = 0; i < recorded.vertices.size(); i += 6)
                lines.push_back(describe(&recorded.vertices[i], recorded.command.texture));
        }
        std::erase_if(lines, [](const std::string& line) { return line.empty(); });
        return lines;
    }

    std::string describe(const sTexturedDeviceVertex* vertex, const Texture* texture) const
    {
        const auto* outer = static_cast<const TextureResource*>(mOuter.getTexture());
        std::string text = outer && texture == outer->getTexture() ? "outer" : "inner";
        for (unsigned int corner : {0, 1, 2, 5})
        {
            const sTexturedDeviceVertex& at = vertex[corner];
            text += " " + std::to_string(static_cast<int>(at.x) - AnimationOrigin) + "," +
                    std::to_string(static_cast<int>(at.y) - AnimationOrigin) + ":" + std::to_string(at.s) + "," +
                    std::to_string(at.t);
            EXPECT_EQ(at.color, sColor::White) << "no cell is tinted";
        }
        for (unsigned int shared : {1, 2})
            EXPECT_TRUE(vertex[shared].x == vertex[shared + 2].x && vertex[shared].t == vertex[shared + 2].t);
        return vertex[0].s == vertex[5].s ? "" : text;
    }

    HeadlessSystems mSystems;
    AnimResource mOuter;
    AnimResource mInner;
    AnimSequencer mSequencer;
};

TEST_F(DrawAnimationTest, DrawsACellAroundItsPosition)
{
    AnimCell& cell = place(get<AnimCell>(mSequencer, 0), {5, 7});
    EXPECT_EQ(draw(), Lines{"outer -5,2:3,4 15,2:23,4 -5,12:3,14 15,12:23,14"});
    cell.setAttribute(AnimCell::Visible | AnimCell::HFlip);
    EXPECT_EQ(draw(), Lines{"outer 15,2:3,4 -5,2:23,4 15,12:3,14 -5,12:23,14"});
    cell.setAttribute(AnimCell::Visible | AnimCell::VFlip);
    EXPECT_EQ(draw(), Lines{"outer -5,12:3,4 15,12:23,4 -5,2:3,14 15,2:23,14"});
    cell.setAttribute(AnimCell::HFlip);
    EXPECT_EQ(draw(), Lines());
    cell.setAttribute(AnimCell::Visible);
    mOuter.setTexture(nullptr);
    EXPECT_EQ(draw(), Lines());
    mSequencer.setResource(nullptr);
    EXPECT_EQ(draw(), Lines());
}

TEST_F(DrawAnimationTest, CarriesTransformAndTextureOfEachAnimation)
{
    AnimSequencer& nested = get<AnimSequencer>(mSequencer, 1);
    nested.setResource(&mInner);
    nested.setPosition({100, 0});
    nested.setColor(sColor::Red);
    place(get<AnimCell>(nested, 0), {0, 0});
    place(get<AnimCell>(mSequencer, 2), {0, 0});
    mSequencer.setPosition({0, 50});
    mSequencer.setOrientation(256);
    EXPECT_EQ(draw(), (Lines{"inner 5,140:3,4 5,160:23,4 -5,140:3,14 -5,160:23,14",
                             "outer 5,40:3,4 5,60:23,4 -5,40:3,14 -5,60:23,14"}));

    SequencerResourceIntermediate plain;
    plain.addTrack(AnimCell::getStaticTypeInfo(), "Cell");
    nested.setResource(&plain);
    place(get<AnimCell>(nested, 0), {0, 0});
    EXPECT_EQ(draw().size(), 1u) << "a sequence without a texture has no cells to show";
    nested.setResource(nullptr);
}

TEST_F(DrawAnimationTest, MoreCellsThanTheFrameHoldsAreLeftOut)
{
    mSystems.record(
        [&](DrawContext& context)
        {
            UIPainter painter(&context, 7);
            for (unsigned int i = 0; i < 30000; ++i)
                drawAnimation(painter, mSequencer, sMatrix::Identity, sColor::White);
            EXPECT_FALSE(painter.hasRoom());
        });
}
