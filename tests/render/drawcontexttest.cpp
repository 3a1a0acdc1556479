#include "render/drawcontext.h"

#include "render/texture.h"
#include "tests/support/renderfixture.h"

namespace
{
class DrawContextTest : public RenderFixture
{
protected:
    void addQuad() { RenderFixture::addQuad(mContext, sRect(0, 0, 8, 8), sColor::White); }

    // The commands that the context has made so far.
    std::vector<const sCommand*> recorded()
    {
        mSystem->pushContext(mContext);
        return sorted();
    }

    DrawContext* mContext = mSystem->popContext();
};
}

TEST_F(DrawContextTest, BatchesVerticesUntilTheStateChanges)
{
    addQuad();
    addQuad();
    mContext->setBlendMode(eBlendMode::Alpha);
    addQuad();
    mContext->setBlendMode(eBlendMode::Opaque);
    mContext->setBlendMode(eBlendMode::Alpha);
    addQuad();
    const auto commands = recorded();
    ASSERT_EQ(commands.size(), 3u) << "a setter ends the batch even if the former value comes back";
    const auto* first = static_cast<const sDrawCommand*>(commands[0]);
    EXPECT_EQ(first->state.vertexNum, 8u);
    EXPECT_EQ(first->state.getBlendMode(), eBlendMode::Opaque) << "the state of the vertices, not the later one";
}

TEST_F(DrawContextTest, MakesTheKeyOfViewLevelAndSubLevel)
{
    constexpr unsigned int cases[][4] = {
        {0, 0, 0, 0},
        {5, 0x123, 0x4567, 0x51234567},
        {6, 0xFFF, 0x1FFFF, 0x6FFFFFFF},
        {1, 0x1001, 0, 0x20010000},
        {1, 0x4002, 0, 0x10020000},
    };
    for (const auto& [view, level, subLevel, key] : cases)
    {
        mContext->setView(view);
        mContext->setDrawLevel(level, subLevel);
        EXPECT_EQ(mContext->getState().key, key);
    }
    mContext->setView(4);
    EXPECT_EQ(mContext->getState().key, 0x40020000u) << "a new view keeps the levels";
}

TEST_F(DrawContextTest, PlacesVerticesByMultiplesOfTheirStride)
{
    const auto* memory = static_cast<const unsigned char*>(mSystem->getCommandMemory());
    for (unsigned int i = 0; i < 600; ++i)
    {
        mContext->setVertexDecl(eVertexDecl(i % 3 != 0));
        mContext->allocateVertices(ePrimitiveType::Triangles, 1 + i);
    }
    unsigned int vertexNum = 0;
    for (const sCommand* command : recorded())
    {
        const auto* draw = static_cast<const sDrawCommand*>(command);
        const auto offset = static_cast<const unsigned char*>(draw->vertices) - memory;
        EXPECT_EQ(offset % getDeviceStride(draw->state.getVertexDecl()), 0);
        vertexNum += draw->state.vertexNum;
        EXPECT_LE(draw->state.vertexNum, 1365u) << "a full heap ends the batch";
    }
    EXPECT_EQ(vertexNum, 600u * 601 / 2);
}

TEST_F(DrawContextTest, KeepsBothKindsOfVerticesInOrderAcrossBlocks)
{
    constexpr int Num = 12000;
    for (int i = 0; i < Num; ++i)
    {
        if (i / 3000 % 2)
            *static_cast<sPlainVertex*>(mContext->allocateVertices(ePrimitiveType::Triangles, 1)) = {{i, 0}, {}};
        else
            *static_cast<sPlainDeviceVertex*>(mContext->allocateDeviceVertices(ePrimitiveType::Triangles, 1)) = {
                static_cast<float>(i), 0.0f, 0.0f, {}};
    }
    int next = 0;
    for (const sCommand* command : recorded())
    {
        const auto* draw = static_cast<const sDrawCommand*>(command);
        ASSERT_LE(draw->state.vertexNum, 1365u) << "batches of both kinds end at the same number";
        for (unsigned int i = 0; i < draw->state.vertexNum; ++i)
            ASSERT_EQ(static_cast<const sPlainDeviceVertex*>(draw->vertices)[i].x, static_cast<float>(next++));
    }
    EXPECT_EQ(next, Num);
}

TEST_F(DrawContextTest, AClearOvertakesEarlierDrawsOfItsKey)
{
    addQuad();
    mContext->setDrawLevel(1, 0);
    addQuad();
    mContext->clear(sRect(0, 0, 4, 4), sColor::Blue);
    const auto commands = recorded();
    ASSERT_EQ(commands.size(), 3u);
    EXPECT_EQ(commands[0]->kind, eCommand::Draw);
    EXPECT_EQ(commands[1]->kind, eCommand::Clear);
    EXPECT_EQ(static_cast<const sClearCommand*>(commands[1])->color, sColor::Blue);
    EXPECT_EQ(commands[2]->key, commands[1]->key);
}

TEST_F(DrawContextTest, StopsOnWhatItCannotRecord)
{
    EXPECT_DEATH(mContext->setView(7), "Invalid view.");
    EXPECT_DEATH(mContext->allocateVertices(ePrimitiveType::Quads, 0), "Undefined vertex declaration.");
    EXPECT_DEATH(mContext->allocateVertices(ePrimitiveType::Points, 1366), "do not have enough memory");
}
