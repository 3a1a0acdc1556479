#include "application/application.h"
#include "application/systemmanager.h"
#include "application/viewer.h"
#include "platform/platform.h"
#include "render/rendersystem.h"
#include "resource/resourcesystem.h"
#include "resource/textureresource.h"
#include "tests/support/display.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "tests/support/referencepicture.h"
#include "tests/support/temporarydirectory.h"
#include "ui/uipainter.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{
testing::Environment* const display = testing::AddGlobalTestEnvironment(new Display);

constexpr int Width = 1024;
constexpr int Height = 768;
constexpr sColor Background(77, 77, 77, 0);
constexpr Application::sInitializer Initializer = {"Picture", Width, Height, 60, 20, 240};

// A directory of data with the samples, behind a real window.
class SamplePlace : public TemporaryDirectory
{
public:
    SamplePlace()
    {
        std::filesystem::copy(SAMPLE_DIRECTORY, *this / "intermediate", std::filesystem::copy_options::recursive);
        EXPECT_TRUE(Platform::create(ePlatform::SDL));
        Platform::forceResourceDirectory(getPath().c_str());
    }

    ~SamplePlace()
    {
        Platform::forceResourceDirectory("");
        Platform::destroy();
    }
};

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
    // Plays a sample from its start and compares the picture of some frames, in ascending order, with what its file
    // says. `upright` and `turned` are pixels that there have to be at least in each of them.
    void expectFrames(const std::string& name, const std::vector<unsigned int>& frames, int upright, int turned)
    {
        const std::unique_ptr<Viewer> viewer = Viewer::create(name.c_str());
        ASSERT_TRUE(viewer);
        unsigned int played = 0;
        for (const unsigned int frame : frames)
        {
            for (; played < frame; ++played)
                viewer->update(1.0f);
            ReferencePicture reference(Width, Height, Background);
            reference.draw(SAMPLE_DIRECTORY, name, frame);
            EXPECT_GE(reference.countUpright(), upright) << frame;
            EXPECT_GE(reference.countTurned(), turned) << frame;
            EXPECT_EQ(reference.countDifferences(mApplication.show([&] { viewer->draw(); })), 0)
                << name << ", frame " << frame;
        }
    }

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
    expectFrames("walk", {1, 20, 45, 100, 359}, 2000, 0);
}

TEST_F(PictureTest, ShowsTheFramesOfParadeAsTheFilesSay)
{
    expectFrames("parade", {30, 60, 100, 170, 200}, 6000, 1000);
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
