#include "render/replay.h"

#include "render/command.h"
#include "render/renderdevice.h"
#include "render/texture.h"
#include "tests/support/renderfixture.h"

#include <sstream>
#include <string>

namespace
{
std::string text(const sRect& rect)
{
    std::ostringstream out;
    out << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom;
    return out.str();
}

// Writes down what it is asked for; a texture is told by its width.
class RecordingDevice : public RenderDevice
{
public:
    void beginScene(const sRect&, const void*, unsigned int) override {}
    void endScene() override {}
    void clear(sColor, const sRect& rect, const sRect& target) override
    {
        add("clear " + text(rect) + " in " + text(target));
    }
    void setProjection(const sRect& rect) override { add("projection " + text(rect)); }
    void setViewport(const sRect& rect, const sRect& target) override
    {
        add("viewport " + text(rect) + " in " + text(target));
    }
    void setScissor(const sRect& rect, const sRect& target) override
    {
        add("scissor " + text(rect) + " in " + text(target));
    }
    void setBlendMode(eBlendMode mode, eBlendMode previous) override { add("blend", int(mode), int(previous)); }
    void setRenderTarget(Texture* target) override { add("target", width(target)); }
    void setTexture(Texture* texture, Texture* target) override { add("texture", width(texture), width(target)); }
    void setTextureFiltering(eTextureFiltering filtering) override { add("filtering", int(filtering)); }
    void setTextureCombineMode(eTextureCombineMode mode) override { add("combine", int(mode)); }
    void drawVertices(ePrimitiveType type, unsigned int first, unsigned int count, eVertexDecl declaration) override
    {
        add("draw " + std::to_string(int(type)), int(first), int(count), int(declaration));
    }
    sTextureHandle createTexture(unsigned int, unsigned int, bool, const void*) override { return {}; }
    void deleteTexture(const sTextureHandle&) override {}
    void bindTexture(const Texture&) override {}
    void readPixels(const sRect&, const sRect&, sColor*) override {}

    std::vector<std::string> mCalls;

private:
    static int width(Texture* texture) { return texture ? static_cast<int>(texture->getWidth()) : 0; }

    template <typename... Numbers>
    void add(std::string call, Numbers... numbers)
    {
        ((call += ' ' + std::to_string(numbers)), ...);
        mCalls.push_back(call);
    }
};

using Calls = std::vector<std::string>;

class ReplayTest : public RenderFixture
{
protected:
    // What the replay asks for beyond the three rectangles at its start.
    Calls replay(std::vector<const sCommand*> commands, unsigned int drawNum)
    {
        const sCommand end = {eCommand::End, sCommand::EndKey};
        commands.push_back(&end);
        RecordingDevice device;
        EXPECT_EQ(Replay(device, mWindow, mMemory).execute(commands.data()), drawNum);
        EXPECT_EQ(device.mCalls.at(2), "projection 0,0,100,80");
        device.mCalls.erase(device.mCalls.begin(), device.mCalls.begin() + 3);
        return device.mCalls;
    }

    const sRect mWindow{100, 80};
    unsigned char mMemory[256];
    const sDrawCommand mDraw = {
        {eCommand::Draw, 0}, {0, 3, 1, 0, 0, 4, 0}, mMemory + 32, nullptr, nullptr, mWindow, mWindow, mWindow};
    const Held<Texture> mTarget{new Texture(64, 32, true, nullptr)};
    const Held<Texture> mTexture{new Texture(16, 16, false, nullptr)};
};
}

TEST_F(ReplayTest, HandsOnlyChangesOnInAFixedOrder)
{
    sDrawCommand changed = mDraw;
    changed.state = {1, 1, 0, 1, 1, 2, 0};
    changed.vertices = mMemory + 60;
    changed.texture = mTexture.get();
    changed.target = mTarget.get();
    changed.viewport = sRect(1, 2, 3, 4);
    changed.scissor = sRect(5, 6, 7, 8);
    changed.projection = sRect(9, 10, 11, 12);
    sCommand unknown = {static_cast<eCommand>(3), 0};
    EXPECT_EQ(replay({&mDraw, &unknown, &changed, &changed, &mDraw}, 4),
              (Calls{"draw 3 2 4 0", "target 64", "blend 1 0", "texture 16 64", "filtering 0", "combine 1",
                     "viewport 1,2,3,4 in 0,0,100,80", "scissor 5,6,7,8 in 0,0,100,80", "projection 9,10,11,12",
                     "draw 1 3 2 1", "draw 1 3 2 1", "target 0", "blend 0 1", "texture 0 0",
                     "viewport 0,0,100,80 in 0,0,100,80", "scissor 0,0,100,80 in 0,0,100,80", "projection 0,0,100,80",
                     "draw 3 2 4 0"}));
}

TEST_F(ReplayTest, OnlyAClearChangesTheTargetRectangle)
{
    sDrawCommand draw = mDraw;
    draw.target = mTarget.get();
    draw.viewport = sRect(0, 0, 64, 32);
    const sClearCommand clear = {{eCommand::Clear, 0}, sColor::Red, sRect(0, 0, 64, 32), mTarget.get()};
    EXPECT_EQ(
        replay({&draw, &clear, &mDraw, &clear}, 2),
        (Calls{"target 64", "viewport 0,0,64,32 in 0,0,100,80", "draw 3 2 4 0", "clear 0,0,64,32 in 0,0,100,80",
               "target 0", "viewport 0,0,100,80 in 0,0,100,80", "draw 3 2 4 0", "target 64",
               "viewport 0,0,100,80 in 0,0,64,32", "scissor 0,0,100,80 in 0,0,64,32", "clear 0,0,64,32 in 0,0,64,32"}))
        << "a clear of the target that is set changes nothing either";
}

TEST_F(ReplayTest, EachTextureKeepsItsFiltering)
{
    sDrawCommand first = mDraw;
    first.state = {0, 3, 0, 0, 1, 4, 0};
    first.vertices = mMemory + 40;
    first.texture = mTexture.get();
    sDrawCommand second = first;
    second.texture = mTarget.get();
    sDrawCommand bare = first;
    bare.texture = nullptr;
    bare.state.filtering = 1;
    EXPECT_EQ(replay({&first, &second, &first, &bare}, 4),
              (Calls{"texture 16 0", "filtering 0", "combine 0", "draw 3 2 4 1", "texture 64 0", "filtering 0",
                     "draw 3 2 4 1", "texture 16 0", "draw 3 2 4 1", "texture 0 0", "draw 3 2 4 1"}))
        << "without a texture nothing is asked for";
    first.state.filtering = 1;
    EXPECT_EQ(replay({&first}, 1), (Calls{"texture 16 0", "filtering 1", "combine 0", "draw 3 2 4 1"}));
}
