#pragma once

#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

// The same work for every candidate, made from the same numbers.
struct sSprite
{
    short x;
    short y;
    unsigned char color[4];
    unsigned int texture;
    unsigned int blend;
    unsigned int level;
};

struct sScene
{
    static constexpr unsigned int WindowWidth = 1024;
    static constexpr unsigned int WindowHeight = 768;
    static constexpr short SpriteSize = 16;
    static constexpr unsigned int TextureSize = 64;
    static constexpr unsigned int MaximumTextureNum = 8;
    static constexpr unsigned int LevelNum = 48;

    // Sprites in turn over the textures and blend modes, or each by chance where they have levels.
    unsigned int spriteNum;
    unsigned int textureNum;
    unsigned int blendNum;
    bool levels;

    // Whether the picture is waited for, or only handed over.
    bool finish;

    std::vector<sSprite> sprites;
};

// Reads what the benchmark wrote on the command line.
inline sScene makeScene(int argumentNum, char** arguments)
{
    if (argumentNum < 6)
        std::exit(2);
    const auto number = [&](int i)
    {
        return static_cast<unsigned int>(std::atoi(arguments[i]));
    };
    sScene scene = {number(1), number(2), number(3), number(4) != 0, number(5) != 0, {}};

    std::mt19937 random(1);
    for (unsigned int i = 0; i < scene.spriteNum; ++i)
    {
        sSprite sprite;
        sprite.x = static_cast<short>(random() % (sScene::WindowWidth - sScene::SpriteSize));
        sprite.y = static_cast<short>(random() % (sScene::WindowHeight - sScene::SpriteSize));
        for (unsigned char& component : sprite.color)
            component = static_cast<unsigned char>(128 + random() % 128);
        sprite.texture = (scene.levels ? static_cast<unsigned int>(random()) : i) % scene.textureNum;
        sprite.blend = i % scene.blendNum;
        sprite.level = scene.levels ? static_cast<unsigned int>(random() % sScene::LevelNum) : 0;
        scene.sprites.push_back(sprite);
    }
    return scene;
}

// The four corners in strip order, as a sprite uses its texture.
template <typename Write>
void forEachCorner(const sSprite& sprite, Write&& write)
{
    constexpr short Size = sScene::SpriteSize;
    write(sprite.x, sprite.y, short{0}, short{0});
    write(static_cast<short>(sprite.x + Size), sprite.y, Size, short{0});
    write(sprite.x, static_cast<short>(sprite.y + Size), short{0}, Size);
    write(static_cast<short>(sprite.x + Size), static_cast<short>(sprite.y + Size), Size, Size);
}

inline std::vector<unsigned char> makePixels(unsigned int seed)
{
    std::mt19937 random(seed);
    std::vector<unsigned char> pixels(sScene::TextureSize * sScene::TextureSize * 4);
    for (unsigned char& byte : pixels)
        byte = static_cast<unsigned char>(random());
    return pixels;
}
