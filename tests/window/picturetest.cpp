#include "application/application.h"
#include "application/systemmanager.h"
#include "application/viewer.h"
#include "render/rendersystem.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "tests/support/display.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "tests/support/referencepicture.h"
#include "tests/window/near.h"
#include "tests/window/sampleplace.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

constexpr int Width = ReferencePicture::Width;
constexpr int Height = ReferencePicture::Height;
constexpr sColor Background = ReferencePicture::Background;
constexpr Application::sInitializer Initializer = {"Picture", Width, Height, 60, 20, 240};

bool isNearAfterBlends(sColor found, sColor wanted)
{
    return isNear(found, wanted, 2);
}

class WindowApplication : public SamplePlace, public Application
{
public:
    WindowApplication() : Application(&Initializer) { createDrawingSystems(); }

    void setup() override {}
    void update(float) override {}

    // The picture of a whole frame, read before it is shown.
    std::vector<sColor> show(const std::function<void()>& draw) const
    {
        SystemManager::getInstance()->preprocess();
        draw();
        SystemManager::getInstance()->postprocess();
        RenderSystem::getInstance()->executeCommand();
        std::vector<sColor> picture(Width * Height);
        RenderSystem::getInstance()->readPixels(sRect(Width, Height), picture.data());
        return picture;
    }
};
}

class PictureTest : public testing::Test
{
protected:
    // What a painter without an origin draws.
    std::vector<sColor> paint(const std::function<void(UIPainter&)>& draw)
    {
        return mApplication.show(
            [&draw]
            {
                DrawContext* context = RenderSystem::getInstance()->popContext();
                UIPainter painter(context, 0);
                draw(painter);
                RenderSystem::getInstance()->pushContext(context);
            });
    }

    WindowApplication mApplication;
};

TEST_F(PictureTest, ShowsTheFramesOfWalkAsTheFileSays)
{
    const std::unique_ptr<Viewer> viewer = Viewer::create("walk");
    ASSERT_TRUE(viewer);
    unsigned int played = 0;
    for (const unsigned int frame : {1u, 20u, 45u, 100u, 359u})
    {
        for (; played < frame; ++played)
            viewer->update(1.0f);
        const ReferencePicture reference(SAMPLE_DIRECTORY, "walk", frame);
        const std::vector<sColor>& wanted = reference.getPixels();
        const std::vector<sColor> found = mApplication.show([&] { viewer->draw(); });
        EXPECT_GE(std::ranges::count_if(wanted, [](sColor pixel) { return pixel != Background; }), 2000) << frame;
        EXPECT_TRUE(std::ranges::equal(found, wanted, isNearAfterBlends)) << frame;
    }
}

TEST_F(PictureTest, ShowsANativePictureThreePixelsFurtherRight)
{
    Bytes pixels;
    for (unsigned char x = 0; x < 8; ++x)
        pixels = pixels + Bytes{static_cast<unsigned char>(x * 30), 100, 200, 255};
    writeBytes(mApplication / "intermediate/row.tga", makeFile(sTga{8, 1, pixels}));
    TextureResource* row = ResourceSystem::getInstance()->createResource<TextureResource>("row");
    ASSERT_NE(row->getTexture(), nullptr);
    const std::vector<sColor> picture = paint(
        [row](UIPainter& painter)
        {
            painter.setTexture(row->getTexture());
            painter.drawRect({0, 0, 8, 1}, sColor::White, {0, 0}, {8, 1});
        });
    row->release();
    for (unsigned int x = 3; x < 8; ++x)
        EXPECT_EQ(picture[x].r, (x - 3) * 30) << x;
    EXPECT_EQ(picture[0].r, 'T') << "the header comes first";
}

namespace
{
// Everything that a painter draws, each piece somewhere and in a region of its own that may cut it.
void paintAtRandom(UIPainter& painter)
{
    std::mt19937 random(1);
    const auto number = [&random](int begin, int end)
    {
        return begin + static_cast<int>(random() % static_cast<unsigned int>(end - begin));
    };
    const auto point = [&number]
    {
        return sPoint(number(-30, 130), number(-30, 80));
    };
    const auto color = [&]
    {
        return sColor(number(0, 256) & 255, number(0, 256) & 255, 90, 255);
    };
    for (int i = 0; i < 2000; ++i)
    {
        const sPoint origin(number(-20, Width), number(-20, Height));
        const sPoint corner = origin + point();
        painter.setRegion(sRect(origin.x, origin.y, corner.x, corner.y) & sRect(Width, Height), origin);
        painter.setBlendMode(i % 3 ? eBlendMode::Opaque : eBlendMode::Alpha);
        const sPoint place = point();
        const sRect rect(place.x, place.y, place.x + number(-2, 90), place.y + number(-2, 40));
        switch (i % 8)
        {
        case 0: painter.drawRect(rect, color()); break;
        case 1: painter.drawConvexRect(rect); break;
        case 2: painter.drawString(rect, "The quick brown fox", color(), UIPainter::eAlignment::CenterMiddle); break;
        case 3: painter.drawString(place, "jumps over the lazy dog", color()); break;
        case 4: painter.drawGroup(rect, "Group", color()); break;
        case 5: painter.drawTriangle(place, point(), point(), color()); break;
        case 6: painter.drawRect(rect, color(), color(), color(), color()); break;
        case 7:
            const int length = number(-50, 50);
            const int rise = i % 48 < 24 ? length : -length;
            const sPoint ends[] = {point(), {place.x, place.y - length}, {place.x - length, place.y - rise}};
            painter.drawLine(place, ends[i / 8 % 3], color());
            break;
        }
    }
}
}

TEST_F(PictureTest, JoiningDrawsChangesNothingButTheEndsOfCutLines)
{
    RenderSystem* system = RenderSystem::getInstance();
    system->setJoinEnable(false);
    const std::vector<sColor> plain = paint(paintAtRandom);
    const unsigned int drawNum = system->getDrawCommandNum();
    system->setJoinEnable(true);
    const std::vector<sColor> joined = paint(paintAtRandom);
    EXPECT_EQ(system->getDrawCommandNum(), drawNum);
    EXPECT_GT(system->getSavedDrawNum(), drawNum / 3);

    int differenceNum = 0;
    for (std::size_t i = 0; i < plain.size(); ++i)
        differenceNum += plain[i] != joined[i];
    EXPECT_LE(differenceNum, 3);
    EXPECT_GT(std::count_if(plain.begin(), plain.end(), [](sColor pixel) { return pixel != Background; }), 100000);
}

TEST_F(PictureTest, ShowsTextUprightInTheGlyphsOfTheFont)
{
    const std::vector<sColor> picture =
        paint([](UIPainter& painter) { painter.drawString(sPoint(0, 0), "L,", sColor::Red); });
    const char* const rows[] = {"............", "#...........", "#...........", "#...........",
                                "#...........", "#...........", "#...........", "#.......#...",
                                "#####...#...", ".......#....", "............", "............"};
    for (std::size_t y = 0; y < std::size(rows); ++y)
        for (std::size_t x = 0; x < 12; ++x)
            EXPECT_EQ(picture[y * Width + x].r > 200, rows[y][x] == '#') << x << ", " << y;
}
