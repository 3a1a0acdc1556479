#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "io/stream.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "sequencer/sequenceruniquekey.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "tests/support/lanes.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

namespace
{
// A lane for a control of the track's class, with two keys.
void addKeys(AnimResource& animation, const char* track, const char* control, unsigned int frame, unsigned int last)
{
    addLane(animation, track, control);
    for (unsigned int at : {frame, last})
        animation.addKey(track, control, at, *control == 'R' ? eInterpolateType::Trigger : eInterpolateType::Linear);
}
}

class AnimResourceTest : public testing::Test
{
protected:
    Bytes save(AnimResource& resource, const std::string& name) const
    {
        {
            TextFileStream stream(mSystems.getFile(name).c_str(), FileStream::Write);
            EXPECT_TRUE(resource.save(stream));
        }
        return mSystems.read(name);
    }

    HeadlessSystems mSystems;
};

TEST_F(AnimResourceTest, ComesBackFromItsDocumentWithItsTexture)
{
    mSystems.write("native/cells.tex", makeFile(sTex{}));
    auto* texture = ResourceSystem::getInstance()->createResource<TextureResource>("cells");
    {
        AnimResource walk;
        SequencerResource other;
        walk.setTexture(texture);
        walk.setTexture(&other);
        EXPECT_TRUE(walk.getTexture() == nullptr && walk.getExtraSize() == 0) << "not a texture";
        walk.setTexture(texture);
        texture->release();
        walk.setTexture(walk.getTexture());
        EXPECT_EQ(texture->getReferenceCount(), 1) << "the only one is not let go on the way";
        texture->addRef();
        EXPECT_STREQ(reinterpret_cast<const char*>(walk.getExtraData()), "native/cells.tex");

        walk.addTrack(AnimCell::getStaticTypeInfo(), "Cell");
        for (const char* control : {"Position", "UV", "Size", "Color", "Attribute"})
            addKeys(walk, "Cell", control, 3, 60);
        const sPoint position(-3, 4);
        walk.setKeyParameter("Cell", "Position", 3, &position);
        const Bytes first = save(walk, "intermediate/walk.asq.xml");

        auto* read = ResourceSystem::getInstance()->createResource<AnimResource>("walk");
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->getTexture(), texture);
        EXPECT_FALSE(read->isModified()) << "the texture does not count as an edit";
        EXPECT_EQ(*static_cast<sPoint*>(read->findKey("Cell", "Position", 3)->getParameter()), position);
        EXPECT_EQ(save(*read, "intermediate/again.asq.xml"), first);
        read->release();
    }
    EXPECT_EQ(texture->getReferenceCount(), 1);
    texture->release();
    EXPECT_EQ(SequencerResource().getExtraIntermediateType(0), AnimResource::getStaticTypeInfo());
}

// A lane fetches a resource from its key's frame on, and not when the head passes that frame by.
TEST_F(AnimResourceTest, IsFetchedByALaneOfAnother)
{
    AnimResource inner;
    save(inner, "intermediate/inner.asq.xml");
    auto* fetched = ResourceSystem::getInstance()->createResource<AnimResource>("inner");
    ASSERT_NE(fetched, nullptr);
    for (const auto& [delta, expected] : {std::pair(1.0f, "---+++"), std::pair(1.5f, "------")})
    {
        AnimResource outer;
        outer.addTrack(AnimSequencer::getStaticTypeInfo(), "Inner");
        addKeys(outer, "Inner", "Resource", 0, 4);
        auto* key = static_cast<SequencerUniqueKey<ResourceBase>*>(outer.findKey("Inner", "Resource", 4));
        key->setResource(fetched);
        outer.updateKeyParameter("Inner", "Resource", *key);
        outer.clearUpdate();
        EXPECT_TRUE(outer.isConsistent());

        AnimSequencer sequencer;
        sequencer.setResource(&outer);
        sequencer.play();
        std::string steps;
        for (int step = 1; step <= 6; ++step)
        {
            sequencer.update(sFixed(delta));
            const auto& nested = static_cast<Sequencer&>(*sequencer.getTrackArray()[0].object);
            steps += nested.getResource() == fetched ? "+" : "-";
        }
        EXPECT_EQ(steps, expected);
    }
    EXPECT_EQ(fetched->getReferenceCount(), 1);
    fetched->release();
}
