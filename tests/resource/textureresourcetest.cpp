#include "resource/textureresource.h"

#include "io/stream.h"
#include "render/texture.h"
#include "resource/resourcesystem.h"
#include "resource/textureresourcebmp.h"
#include "resource/textureresourcetga.h"
#include "tests/support/headlesssystems.h"
#include "tests/support/images.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

class TextureResourceTest : public testing::Test
{
protected:
    // Loads a picture file outside the registry.
    template <typename T>
    Held<T> load(const Bytes& file, bool& loaded)
    {
        mSystems.write("intermediate/picture", file);
        Held<T> resource(new T);
        BinaryFileStream stream(mSystems.getFile("intermediate/picture").c_str(), FileStream::Read);
        loaded = resource->load(stream);
        return resource;
    }

    template <typename T>
    bool loads(const Bytes& file)
    {
        bool loaded = false;
        const Held<T> resource = load<T>(file, loaded);
        EXPECT_EQ(resource->getTexture() != nullptr, loaded);
        return loaded;
    }

    // The native file that a source file is converted into.
    template <typename T>
    Bytes convert(const Bytes& file)
    {
        bool loaded = false;
        const Held<T> resource = load<T>(file, loaded);
        EXPECT_TRUE(loaded);
        {
            BinaryFileStream stream(mSystems.getFile("native/picture").c_str(), FileStream::Write);
            EXPECT_TRUE(resource->convert(stream));
        }
        return mSystems.read("native/picture");
    }

    HeadlessSystems mSystems;
};

TEST_F(TextureResourceTest, TurnsEachOriginOfATgaIntoRowsFromTheTop)
{
    const Bytes a = {1, 2, 3, 4}, b = {5, 6, 7, 8}, c = {9, 10, 11, 12}, d = {13, 14, 15, 16};
    const std::pair<unsigned int, Bytes> rows[] = {
        {0x28, a + b + c + d}, {0x08, c + d + a + b}, {0x30, b + a + d + c}, {0x10, d + c + b + a}};
    for (const auto& [descriptor, pixels] : rows)
        EXPECT_EQ(convert<TextureResourceTGA>(makeFile(sTga{2, 2, a + b + c + d, descriptor})),
                  makeFile(sTex{2, 2, pixels}))
            << descriptor;
}

TEST_F(TextureResourceTest, ConvertsEachDepthOfABitmapInItsOwnWay)
{
    const Bytes palette = {10, 20, 30, 40, 50, 60, 70, 80};
    Bytes wide;
    for (unsigned int x = 0; x < 32; ++x)
        wide = wide + Bytes{10, 20, 30, 255};
    const std::tuple<const char*, sBmp, Bytes> rows[] = {
        {"1 bit: 33 columns take 8 bytes, alpha is forced",
         {33, -1, 1, palette, {0, 0, 0, 0, 0x80, 0, 0, 0}},
         wide + Bytes{50, 60, 70, 255}},
        {"4 bits: the high half first, the entry as it stands",
         {2, -1, 4, palette, {0x10, 0, 0, 0}},
         {50, 60, 70, 80, 10, 20, 30, 40}},
        {"4 bits: entries that the file does not hold are 0", {1, -1, 4, palette, {0xF0, 0, 0, 0}}, {0, 0, 0, 0}},
        {"8 bits: the entry as it stands", {1, -1, 8, palette, {1, 0, 0, 0}}, {50, 60, 70, 80}},
        {"16 bits: red is 0, green 0 or 8", {2, -1, 16, {}, {0xFF, 0xFF, 0x1F, 0}}, {0, 8, 248, 255, 0, 0, 248, 255}},
        {"24 bits: red and blue change places", {1, -1, 24, {}, {1, 2, 3, 0}}, {3, 2, 1, 255}},
        {"32 bits: read in steps of three", {2, -1, 32, {}, {1, 2, 3, 4, 5, 6, 7, 8}}, {3, 2, 1, 255, 6, 5, 4, 255}},
        {"2 bits: nothing is converted", {1, -1, 2, {}, {}}, {0, 0, 0, 0}},
        {"rows from the bottom", {1, 2, 24, {}, {1, 2, 3, 0, 4, 5, 6, 0}}, {6, 5, 4, 255, 3, 2, 1, 255}},
        {"rows from the top", {1, -2, 24, {}, {1, 2, 3, 0, 4, 5, 6, 0}}, {3, 2, 1, 255, 6, 5, 4, 255}},
    };
    for (const auto& [what, bitmap, pixels] : rows)
    {
        const auto [width, height] = std::pair(bitmap.width, std::abs(bitmap.height));
        EXPECT_EQ(convert<TextureResourceBMP>(makeFile(bitmap)),
                  makeFile(sTex{static_cast<unsigned int>(width), static_cast<unsigned int>(height), pixels}))
            << what;
    }
}

TEST_F(TextureResourceTest, SaysWhyItRefusesAFile)
{
    const auto expectRefused = [this]<typename T>(const char* text, const Bytes& file)
    {
        TraceCapture trace;
        EXPECT_FALSE(loads<T>(file)) << text;
        EXPECT_NE(trace.take().find(text), std::string::npos) << text;
    };
    const std::pair<const char*, sTga> tgas[] = {
        {"TextureTGA : No support format.\n", {.type = 10}},
        {"TextureTGA : Only support 32bits.\n", {.depth = 24}},
        {"Size is not within 1 to 1024.\n", {.width = 0}},
        {"Size is not within 1 to 1024.\n", {.height = 1025, .pixels = Bytes(1025 * 4)}},
        {"TextureTGA : Pixels are missing.\n", {.width = 2}},
    };
    for (const auto& [text, picture] : tgas)
        expectRefused.operator()<TextureResourceTGA>(text, makeFile(picture));
    const std::pair<const char*, sBmp> bmps[] = {
        {"TextureResourceBMP : No bitmap.\n", {.magic = 0x4142}},
        {"TextureResourceBMP : Could not read compression bitmap.\n", {.compression = 1}},
        {"Size is not within 1 to 1024.\n", {.height = -2147483647 - 1}},
        {"TextureResourceBMP : Pixels are missing.\n", {.width = 2}},
    };
    for (const auto& [text, picture] : bmps)
        expectRefused.operator()<TextureResourceBMP>(text, makeFile(picture));
}

// Every picture cut at every length, and with every bit turned, is either loaded whole or refused.
TEST_F(TextureResourceTest, SurvivesCutAndDamagedFiles)
{
    const Bytes palette = {10, 20, 30, 40, 50, 60, 70, 80};
    const auto attack = [](const Bytes& file, const auto& loads)
    {
        TraceCapture trace;
        EXPECT_TRUE(loads(file));
        for (std::size_t length = 0; length < file.size(); ++length)
            EXPECT_FALSE(loads(Bytes(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length)))) << length;
        for (std::size_t bit = 0; bit < file.size() * 8; ++bit)
        {
            Bytes damaged = file;
            damaged[bit / 8] ^= static_cast<unsigned char>(1 << bit % 8);
            loads(damaged);
        }
    };
    attack(makeFile(sTex{2, 2, Bytes(16)}), [this](const Bytes& file) { return loads<TextureResource>(file); });
    attack(makeFile(sTga{2, 2, Bytes(16)}), [this](const Bytes& file) { return loads<TextureResourceTGA>(file); });
    for (const unsigned int bits : {1, 4, 8, 16, 24, 32})
        attack(makeFile(sBmp{1, 2, bits, palette, Bytes(bits == 16 ? 4 : 8)}),
               [this](const Bytes& file) { return loads<TextureResourceBMP>(file); });
}
