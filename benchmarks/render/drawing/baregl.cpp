#include "benchmarks/render/drawing/scene.h"
#include "benchmarks/render/drawing/worker.h"

#include <algorithm>
#include <cstddef>

#include <SDL.h>
#include <epoxy/gl.h>

// The plain loop that anyone would write first: sorted beforehand, one buffer, one call for each quad.
namespace
{
struct sVertex
{
    float x;
    float y;
    unsigned char color[4];
    short s;
    short t;
};
}

int main(int argumentNum, char** arguments)
{
    sScene scene = makeScene(argumentNum, arguments);
    std::stable_sort(scene.sprites.begin(), scene.sprites.end(),
                     [](const sSprite& a, const sSprite& b) { return a.level < b.level; });
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Window* window = SDL_CreateWindow("bare", 0, 0, sScene::WindowWidth, sScene::WindowHeight, SDL_WINDOW_OPENGL);
    if (!window || !SDL_GL_CreateContext(window))
        return 1;

    GLuint textures[sScene::MaximumTextureNum];
    glGenTextures(sScene::MaximumTextureNum, textures);
    for (unsigned int i = 0; i < sScene::MaximumTextureNum; ++i)
    {
        glBindTexture(GL_TEXTURE_RECTANGLE, textures[i]);
        glTexImage2D(GL_TEXTURE_RECTANGLE, 0, GL_RGBA8, sScene::TextureSize, sScene::TextureSize, 0, GL_RGBA,
                     GL_UNSIGNED_BYTE, makePixels(i).data());
    }
    GLuint buffer;
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glOrtho(0, sScene::WindowWidth, sScene::WindowHeight, 0, 0, 1);
    glEnable(GL_TEXTURE_RECTANGLE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    for (GLenum array : {GL_VERTEX_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY})
        glEnableClientState(array);

    std::vector<sVertex> vertices(scene.sprites.size() * 4);
    return serve([] {},
                 [&]
                 {
                     sVertex* vertex = vertices.data();
                     for (const sSprite& sprite : scene.sprites)
                     {
                         forEachCorner(sprite,
                                       [&](short x, short y, short s, short t)
                                       {
                                           *vertex = {static_cast<float>(x), static_cast<float>(y), {}, s, t};
                                           std::memcpy(vertex->color, sprite.color, 4);
                                           ++vertex;
                                       });
                     }
                     glClear(GL_COLOR_BUFFER_BIT);
                     glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(sVertex)),
                                  vertices.data(), GL_STREAM_DRAW);
                     const auto at = [](std::size_t offset)
                     {
                         return reinterpret_cast<void*>(offset);
                     };
                     glVertexPointer(2, GL_FLOAT, sizeof(sVertex), nullptr);
                     glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(sVertex), at(offsetof(sVertex, color)));
                     glTexCoordPointer(2, GL_SHORT, sizeof(sVertex), at(offsetof(sVertex, s)));
                     GLint first = 0;
                     for (const sSprite& sprite : scene.sprites)
                     {
                         if (scene.textureNum > 1)
                             glBindTexture(GL_TEXTURE_RECTANGLE, textures[sprite.texture]);
                         glDrawArrays(GL_TRIANGLE_STRIP, first, 4);
                         first += 4;
                     }
                     glFlush();
                 });
}
