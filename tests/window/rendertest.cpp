#include "render/texture.h"
#include "tests/support/display.h"
#include "tests/support/renderfixture.h"
#include "tests/window/near.h"

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

constexpr sColor Background(77, 77, 77, 0);

// Pictures of a real graphics library, read back behind the replay.
class RenderTest : public RenderFixture
{
protected:
    RenderTest() : RenderFixture(ePlatform::SDL) {}

    // Ends the frame, keeps its picture and begins the next one.
    void show()
    {
        mSystem->pushContext(mContext);
        RenderFixture::show();
        mPicture.resize(WindowWidth * WindowHeight);
        mSystem->readPixels(sRect(WindowWidth, WindowHeight), mPicture.data());
        mContext = mSystem->popContext();
    }

    sColor pixel(int x, int y) const { return mPicture[static_cast<unsigned int>(y) * WindowWidth + x]; }

    // All of `rect` has that colour, and the ring around it has another.
    void expectFilled(const sRect& rect, sColor wanted) const
    {
        for (int y = rect.top - 1; y <= rect.bottom; ++y)
            for (int x = rect.left - 1; x <= rect.right; ++x)
            {
                const bool inside = x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
                ASSERT_EQ(isNear(pixel(x, y), wanted), inside) << x << ", " << y;
            }
    }

    void addQuad(const sRect& rect, sColor color) { RenderFixture::addQuad(mContext, rect, color); }

    void setView(const sRect& rect)
    {
        mContext->setViewport(rect);
        mContext->setScissorRect(rect);
        mContext->setProjectionRect(rect);
    }

    void addTexturedQuad(Texture* texture, const sRect& rect, int width, int height)
    {
        mContext->setVertexDecl(eVertexDecl::Textured);
        mContext->setTexture(texture);
        mContext->setTextureFiltering(eTextureFiltering::Nearest);
        auto* vertex = static_cast<sTexturedVertex*>(mContext->allocateVertices(ePrimitiveType::Quads, 4));
        for (int corner = 0; corner < 4; ++corner)
        {
            const int right = corner % 2;
            const int lower = corner / 2;
            *vertex++ = {{right ? rect.right : rect.left, lower ? rect.bottom : rect.top},
                         sColor::White,
                         static_cast<short>(right * width),
                         static_cast<short>(lower * height)};
        }
        mContext->setVertexDecl(eVertexDecl::Plain);
    }

    // Each texel of a picture of 2 by 2, drawn 8 by 8 pixels large.
    void expectTexels(int left, int top, const sColor (&texels)[4]) const
    {
        for (int i = 0; i < 4; ++i)
        {
            const sRect texel(left + i % 2 * 8, top + i / 2 * 8, left + i % 2 * 8 + 8, top + i / 2 * 8 + 8);
            EXPECT_TRUE(isNear(pixel(texel.left, texel.top), texels[i])) << i;
            EXPECT_TRUE(isNear(pixel(texel.right - 1, texel.bottom - 1), texels[i])) << i;
        }
    }

    static constexpr sColor Texels[4] = {sColor::Red, sColor::Green, sColor::Blue, sColor::Yellow};

    DrawContext* mContext = mSystem->popContext();
    std::vector<sColor> mPicture;
};
}

TEST_F(RenderTest, ClearsAtTheirPlaceAndInTheirScissor)
{
    mContext->clear(sRect(10, 20, 30, 50), sColor::Red);
    mContext->setScissorRect(sRect(100, 100, 200, 200));
    addQuad(sRect(0, 0, 1, 1), sColor::White);
    show();
    EXPECT_TRUE(isNear(pixel(0, 0), Background));
    expectFilled(sRect(10, 20, 30, 50), sColor::Red);

    mContext->setScissorRect(sRect(0, 0, 100, 100));
    addQuad(sRect(0, 0, 100, 100), sColor::White);
    mContext->setDrawLevel(1, 0);
    mContext->clear(sRect(0, 668, 100, 768), sColor::Blue);
    mContext->setDrawLevel(2, 0);
    mContext->clear(sRect(90, 80, 120, 120), sColor::Green);
    show();
    EXPECT_TRUE(isNear(pixel(50, 700), Background));
    EXPECT_TRUE(isNear(pixel(50, 50), sColor::Blue)) << "a box with the rectangle's numbers is cleared in its place";
    expectFilled(sRect(90, 80, 100, 100), sColor::Green);
}

TEST_F(RenderTest, FillsExactlyThePixelsOfItsPrimitives)
{
    addQuad(sRect(10, 10, 20, 30), sColor::Red);
    auto* line = static_cast<sPlainVertex*>(mContext->allocateVertices(ePrimitiveType::Lines, 2));
    line[0] = {{40, 10}, sColor::Green};
    line[1] = {{60, 10}, sColor::Green};
    *static_cast<sPlainVertex*>(mContext->allocateVertices(ePrimitiveType::Points, 1)) = {{80, 10}, sColor::Blue};
    auto* triangle = static_cast<sPlainVertex*>(mContext->allocateVertices(ePrimitiveType::Triangles, 3));
    for (const sPoint& corner : {sPoint(100, 10), sPoint(120, 10), sPoint(100, 30)})
        *triangle++ = {{corner.x, corner.y}, sColor::White};
    show();
    expectFilled(sRect(10, 10, 20, 30), sColor::Red);
    expectFilled(sRect(40, 10, 60, 11), sColor::Green);
    expectFilled(sRect(80, 10, 81, 11), sColor::Blue);
    EXPECT_TRUE(isNear(pixel(102, 12), sColor::White));
    EXPECT_TRUE(isNear(pixel(118, 28), Background));
}

TEST_F(RenderTest, MixesByTheBlendMode)
{
    constexpr std::pair<eBlendMode, sColor> cases[] = {
        {eBlendMode::Opaque, {200, 100, 0, 128}}, {eBlendMode::Alpha, {150, 100, 100, 0}},
        {eBlendMode::Opaque, {200, 100, 0, 128}}, {eBlendMode::Scaled, {100, 50, 0, 0}},
        {eBlendMode::Subtract, {0, 0, 100, 0}},   {eBlendMode::Alpha, {150, 100, 100, 0}},
    };
    int left = 10;
    for (const auto& row : cases)
    {
        mContext->setBlendMode(eBlendMode::Opaque);
        addQuad(sRect(left, 10, left + 8, 18), sColor(100, 100, 200, 255));
        mContext->setBlendMode(row.first);
        addQuad(sRect(left, 10, left + 8, 18), sColor(200, 100, 0, 128));
        left += 20;
    }
    show();
    for (int i = 0; i < 6; ++i)
        expectFilled(sRect(10 + i * 20, 10, 18 + i * 20, 18), cases[i].second);
}

TEST_F(RenderTest, WhatIsDrawnIntoATargetStandsUprightAsATexture)
{
    const Held<Texture> target(new Texture(64, 32, true, nullptr));
    EXPECT_NE(target->getRenderTargetContext(), 0u);
    mContext->setRenderTarget(target.get());
    mContext->clear(sRect(0, 0, 64, 32), sColor::Black);
    mContext->setDrawLevel(1, 0);
    setView(sRect(64, 32));
    for (int i = 0; i < 4; ++i)
        addQuad(sRect(i % 2 * 8, i / 2 * 8, i % 2 * 8 + 8, i / 2 * 8 + 8), Texels[i]);

    mContext->setRenderTarget(nullptr);
    mContext->setDrawLevel(2, 0);
    setView(mSystem->getWindowRect());
    mContext->clear(sRect(0, 0, 1, 1), Background);
    addTexturedQuad(target.get(), sRect(100, 200, 164, 232), 64, 32);
    const Held<Texture> plain(new Texture(2, 2, false, Texels));
    addTexturedQuad(plain.get(), sRect(300, 200, 316, 216), 2, 2);
    show();
    expectTexels(100, 200, Texels);
    EXPECT_TRUE(isNear(pixel(163, 231), sColor::Black));
    expectTexels(300, 200, Texels);
    EXPECT_FALSE(target->isDirty());
}
