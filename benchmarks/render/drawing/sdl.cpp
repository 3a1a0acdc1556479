#include "benchmarks/render/drawing/scene.h"
#include "benchmarks/render/drawing/worker.h"

#include <SDL.h>
#include <SDL_opengl.h>

// One texture: all sprites as one RenderGeometry. Several: a RenderCopyF for each sprite.
namespace
{
void drawGeometry(SDL_Renderer* renderer, SDL_Texture* texture, const sScene& scene, std::vector<SDL_Vertex>& vertices,
                  const std::vector<int>& indices)
{
    constexpr float Texel = 1.0f / sScene::TextureSize;
    SDL_Vertex* vertex = vertices.data();
    for (const sSprite& sprite : scene.sprites)
    {
        const SDL_Color color = {sprite.color[0], sprite.color[1], sprite.color[2], sprite.color[3]};
        forEachCorner(sprite,
                      [&](short x, short y, short s, short t)
                      {
                          *vertex++ = {{static_cast<float>(x), static_cast<float>(y)},
                                       color,
                                       {static_cast<float>(s) * Texel, static_cast<float>(t) * Texel}};
                      });
    }
    SDL_RenderGeometry(renderer, texture, vertices.data(), static_cast<int>(vertices.size()), indices.data(),
                       static_cast<int>(indices.size()));
}

void drawCopies(SDL_Renderer* renderer, SDL_Texture* const* textures, const sScene& scene)
{
    constexpr int Size = sScene::SpriteSize;
    const SDL_Rect source = {0, 0, Size, Size};
    for (const sSprite& sprite : scene.sprites)
    {
        SDL_Texture* texture = textures[sprite.texture];
        const SDL_FRect target = {static_cast<float>(sprite.x), static_cast<float>(sprite.y), Size, Size};
        SDL_SetTextureBlendMode(texture, sprite.blend ? SDL_BLENDMODE_ADD : SDL_BLENDMODE_BLEND);
        SDL_SetTextureColorMod(texture, sprite.color[0], sprite.color[1], sprite.color[2]);
        SDL_SetTextureAlphaMod(texture, sprite.color[3]);
        SDL_RenderCopyF(renderer, texture, &source, &target);
    }
}
}

int main(int argumentNum, char** arguments)
{
    const sScene scene = makeScene(argumentNum, arguments);
    SDL_SetHint(SDL_HINT_RENDER_DRIVER, "opengl");
    SDL_SetHint(SDL_HINT_RENDER_BATCHING, "1");
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, scene.finish ? "linear" : "nearest");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Window* window = SDL_CreateWindow("SDL", 0, 0, sScene::WindowWidth, sScene::WindowHeight, SDL_WINDOW_OPENGL);
    SDL_Renderer* renderer = window ? SDL_CreateRenderer(window, -1, SDL_RENDERER_ACCELERATED) : nullptr;
    if (!renderer)
        return 1;

    SDL_Texture* textures[sScene::MaximumTextureNum];
    for (unsigned int i = 0; i < sScene::MaximumTextureNum; ++i)
    {
        textures[i] = SDL_CreateTexture(renderer, SDL_PIXELFORMAT_RGBA32, SDL_TEXTUREACCESS_STATIC, sScene::TextureSize,
                                        sScene::TextureSize);
        SDL_UpdateTexture(textures[i], nullptr, makePixels(i).data(), sScene::TextureSize * 4);
        SDL_SetTextureBlendMode(textures[i], SDL_BLENDMODE_BLEND);
    }
    std::vector<SDL_Vertex> vertices(scene.sprites.size() * 4);
    std::vector<int> indices;
    for (unsigned int i = 0; i < scene.spriteNum * 4; i += 4)
    {
        for (unsigned int corner : {0u, 1u, 2u, 1u, 2u, 3u})
            indices.push_back(static_cast<int>(i + corner));
    }
    const auto end = reinterpret_cast<void (*)()>(SDL_GL_GetProcAddress(scene.finish ? "glFinish" : "glFlush"));
    return serve([] {},
                 [&]
                 {
                     SDL_RenderClear(renderer);
                     if (scene.textureNum == 1)
                         drawGeometry(renderer, textures[0], scene, vertices, indices);
                     else
                         drawCopies(renderer, textures, scene);
                     SDL_RenderFlush(renderer);
                     end();
                 });
}
