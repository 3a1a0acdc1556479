#include "render/texture.h"

#include "tests/support/renderfixture.h"

namespace
{
class TextureTest : public RenderFixture
{
protected:
    Texture* make() { return new Texture(4, 4, false, nullptr); }
};
}

TEST_F(TextureTest, IsAtMost1024TexelsWideAndHigh)
{
    Texture* texture = new Texture(1024, 1024, true, nullptr);
    EXPECT_EQ(texture->getWidth(), 1024u);
    EXPECT_TRUE(texture->isRenderTarget());
    EXPECT_DEATH(new Texture(1025, 1, false, nullptr), "Requesed texture size is greater than 1024.");
    EXPECT_DEATH(new Texture(1, 1025, false, nullptr), "Requesed texture size is greater than 1024.");
    texture->release();
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

TEST_F(TextureTest, TheEndOfTheSystemTakesAllThatHaveEnded)
{
    for (unsigned int i = 0; i < 300; ++i)
        make()->release();
    Texture* kept = make();
    EXPECT_DEATH(mSystem->destroy(), "Texture leak.");
    kept->release();
}
