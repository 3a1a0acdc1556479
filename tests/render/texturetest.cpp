#include "render/texture.h"

#include "tests/support/renderfixture.h"

namespace
{
using TextureTest = RenderFixture;

Texture* make()
{
    return new Texture(4, 4, false, nullptr);
}
}

TEST_F(TextureTest, OutlivesItsLastReferenceUntilAReplay)
{
    Texture* texture = make();
    texture->addRef();
    texture->release();
    EXPECT_TRUE(texture->isValid());

    DrawContext* context = mSystem->popContext();
    context->setTexture(texture);
    context->setTexture(nullptr);
    texture->release();
    EXPECT_FALSE(texture->isValid()) << "a recorded use does not hold it back";
    EXPECT_EQ(mSystem->getTextureNum(), 1u);
    show();
    EXPECT_EQ(mSystem->getTextureNum(), 0u);
}

TEST_F(TextureTest, OfTwoNeighboursTheSecondWaitsForTheNextReplay)
{
    Texture* textures[] = {make(), make(), make(), make()};
    for (Texture* texture : {textures[0], textures[1], textures[3]})
        texture->release();
    show();
    EXPECT_EQ(mSystem->getTextureNum(), 2u);
    show();
    EXPECT_EQ(mSystem->getTextureNum(), 1u);
    textures[2]->release();
}
