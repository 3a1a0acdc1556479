#include "render/commandjoin.h"

#include "render/texture.h"
#include "tests/support/renderfixture.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>

namespace
{
constexpr sTexcoord Solid{15, 15};

class CommandJoinTest : public RenderFixture
{
protected:
    using Record = std::function<void(DrawContext&)>;

    CommandJoinTest() { mJoin.setSolidTexel(mFont.get(), Solid); }

    // What becomes of a frame: a word for each command, with its number of vertices; joined draws stand in brackets.
    std::string join(const Record& record)
    {
        mSystem->preprocess();
        DrawContext* context = mSystem->popContext();
        context->setScissorRect(mWindow);
        record(*context);
        mSystem->pushContext(context);
        const std::vector<const sCommand*> before = sorted();

        auto* memory = static_cast<unsigned char*>(const_cast<void*>(mSystem->getCommandMemory()));
        const unsigned int used =
            static_cast<unsigned int>(static_cast<unsigned char*>(mSystem->allocateCommandBuffer(0)) - memory);
        sCommandMemory room = {memory, used, used + 0x10000, 0, mRoom.data(), mRoomNum};
        const sCommand* const* list = mJoin.join(mSystem->getSortedCommand(), mWindow, room);
        EXPECT_LE(room.used, room.capacity);
        EXPECT_EQ(room.first % 80, 0u);
        return describe(list, before);
    }

    std::string describe(const sCommand* const* list, const std::vector<const sCommand*>& before)
    {
        std::string text;
        for (; (*list)->kind != eCommand::End; ++list)
        {
            const auto& draw = static_cast<const sDrawCommand&>(**list);
            const bool own = std::any_of(before.begin(), before.end(),
                                         [list](const sCommand* command) { return isSame(*command, **list); });
            if ((*list)->kind == eCommand::Clear)
                text += "clear ";
            else
                text += (own ? "" : "[") + std::to_string(draw.state.vertexNum) + (own ? " " : "] ");
            if (!own)
                mLastJoined = draw;
        }
        return text;
    }

    // A draw may have been moved as a whole.
    static bool isSame(const sCommand& a, const sCommand& b)
    {
        if (a.kind != eCommand::Draw || b.kind != eCommand::Draw)
            return &a == &b;
        const auto& first = static_cast<const sDrawCommand&>(a);
        const auto& second = static_cast<const sDrawCommand&>(b);
        const unsigned int size = getDeviceStride(first.state.getVertexDecl()) * first.state.vertexNum;
        return std::memcmp(&first.state, &second.state, sizeof(sDrawState)) == 0 && first.scissor == second.scissor &&
               std::memcmp(first.vertices, second.vertices, size) == 0;
    }

    static void addLine(DrawContext& context, const sPoint& a, const sPoint& b)
    {
        auto* vertex = static_cast<sPlainVertex*>(context.allocateVertices(ePrimitiveType::Lines, 2));
        vertex[0] = {{a.x, a.y}, sColor::White};
        vertex[1] = {{b.x, b.y}, sColor::White};
    }

    // A picture of 6 by 8 texels from (2, 4) on.
    void addGlyph(DrawContext& context, const sPoint& place, Texture* texture, int width = 6,
                  eTextureFiltering filtering = eTextureFiltering::Nearest)
    {
        context.setVertexDecl(eVertexDecl::Textured);
        context.setTexture(texture);
        context.setTextureFiltering(filtering);
        const eBlendMode blend = context.getState().blendMode;
        context.setBlendMode(eBlendMode::Alpha);
        auto* vertex = static_cast<sTexturedVertex*>(context.allocateVertices(ePrimitiveType::Quads, 4));
        for (int i = 0; i < 4; ++i)
            vertex[i] = {{place.x + i % 2 * width, place.y + i / 2 * 8},
                         sColor::White,
                         static_cast<short>(2 + i % 2 * 6),
                         static_cast<short>(4 + i / 2 * 8)};
        context.setBlendMode(blend);
        context.setVertexDecl(eVertexDecl::Plain);
    }

    static void addBox(DrawContext& context, sColor color = sColor::White)
    {
        addQuad(&context, sRect(10, 10, 20, 20), color);
    }

    const sRect mWindow{WindowWidth, WindowHeight};
    CommandJoin mJoin{64};
    const Held<Texture> mFont{new Texture(16, 16, false, nullptr)};
    const Held<Texture> mOther{new Texture(16, 16, false, nullptr)};
    std::vector<sJoinedDeviceVertex> mRoom = std::vector<sJoinedDeviceVertex>(0x8000);
    unsigned int mRoomNum = 5000;
    sDrawCommand mLastJoined = {};
};
}

TEST_F(CommandJoinTest, MakesOneDrawOfQuadsLinesTrianglesAndText)
{
    const Record record = [this](DrawContext& context)
    {
        addBox(context);
        addLine(context, {0, 5}, {9, 5});
        addLine(context, {9, 6}, {0, 6});
        addLine(context, {3, 2}, {3, 9});
        addLine(context, {3, 2}, {5, 0});
        addGlyph(context, {30, 40}, mFont.get());
        auto* vertex = static_cast<sPlainVertex*>(context.allocateVertices(ePrimitiveType::Triangles, 3));
        for (int i = 0; i < 3; ++i)
            vertex[i] = {{50 + i, 60 + i * i}, sColor::White};
    };
    EXPECT_EQ(join(record), "[32] ");
    EXPECT_EQ(mLastJoined.texture, mFont.get());

    mJoin.setEnable(false);
    EXPECT_EQ(join(record), "4 8 4 3 ");
}

TEST_F(CommandJoinTest, LeavesAloneWhatItCannotDrawToTheSamePicture)
{
    const auto drawCase = [this](DrawContext& context, int number)
    {
        switch (number)
        {
        case 0: addLine(context, {0, 0}, {5, 6}); return;
        case 1: addBox(context, {1, 2, 3, 254}); return;
        case 2: addGlyph(context, {0, 0}, mOther.get()); return;
        case 3: addGlyph(context, {0, 0}, mFont.get(), 6, eTextureFiltering::Linear); return;
        case 4: context.setBlendMode(eBlendMode::Scaled); break;
        case 5: context.setProjectionRect(sRect(0, 0, 100, 100)); break;
        case 6: context.setRenderTarget(mOther.get()); break;
        // A scaled picture that is cut, and a blend of colours that is.
        case 7:
            context.setScissorRect(sRect(1, 0, 20, 20));
            addGlyph(context, {0, 0}, mFont.get(), 7);
            return;
        case 8:
            context.setScissorRect(sRect(12, 0, 20, 20));
            addBox(context);
            auto* vertex = static_cast<sPlainVertex*>(context.allocateVertices(ePrimitiveType::Quads, 4));
            for (int i = 0; i < 4; ++i)
                vertex[i] = {{i % 2 * 20, i / 2 * 20}, {static_cast<unsigned char>(i), 0, 0, 255}};
            return;
        }
        addBox(context);
    };
    for (int number = 0; number < 9; ++number)
    {
        const std::string list = join(
            [&](DrawContext& context)
            {
                addBox(context);
                addLine(context, {0, 0}, {0, 5});
                context.setDrawLevel(1, 0);
                drawCase(context, number);
            });
        EXPECT_EQ(list.substr(0, 4), "[8] ") << number;
        EXPECT_NE(list, "[8] ") << number;
        EXPECT_EQ(list.find('[', 1), std::string::npos) << number << ": " << list;
    }
}

TEST_F(CommandJoinTest, AClearFindsTheScissorOfTheLastDraw)
{
    const sRect scissor(1, 2, 3, 4);
    EXPECT_EQ(join(
                  [&](DrawContext& context)
                  {
                      addBox(context);
                      context.setScissorRect(scissor);
                      addBox(context);
                      context.setDrawLevel(1, 0);
                      context.clear(sRect(10, 10), sColor::Red);
                      context.setRenderTarget(mOther.get());
                      context.setDrawLevel(2, 0);
                      context.clear(sRect(10, 10), sColor::Red);
                      context.setRenderTarget(nullptr);
                      context.setDrawLevel(3, 0);
                      addBox(context);
                      addLine(context, {0, 0}, {0, 5});
                  }),
              "[4] [0] clear clear 4 2 ")
        << "and behind a clear of another target nothing is where the window says";
    EXPECT_EQ(mLastJoined.scissor, scissor);
}

TEST_F(CommandJoinTest, FullMemoryAndFullDrawsBeginAnewOrStayPlain)
{
    const auto addMany = [](DrawContext& context, unsigned int number)
    {
        for (unsigned int i = 0; i < number; ++i)
        {
            context.setScissorRect(sRect(0, 0, 100 + static_cast<int>(i % 2), 100));
            for (int line = 0; line < 500; ++line)
                addLine(context, {0, line % 90}, {50, line % 90});
        }
    };
    mRoomNum = 0x8000;
    EXPECT_EQ(join([&](DrawContext& context) { addMany(context, 10); }), "[16000] [4000] ");
    mRoomNum = 5000;
    EXPECT_EQ(join([&](DrawContext& context) { addMany(context, 4); }), "[4000] 1000 1000 ");
    mRoomNum = 0;
    EXPECT_EQ(join([&](DrawContext& context) { addMany(context, 2); }), "1000 1000 ");
    mRoomNum = 5000;
    mJoin.setSolidTexel(nullptr, Solid);
    EXPECT_EQ(join([&](DrawContext& context) { addMany(context, 2); }), "1000 1000 ");
}
