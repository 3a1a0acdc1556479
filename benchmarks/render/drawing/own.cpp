#include "benchmarks/render/drawing/scene.h"
#include "benchmarks/render/drawing/worker.h"
#include "foundation/jobsystem.h"
#include "platform/platform.h"
#include "render/drawcontext.h"
#include "render/rendersystem.h"
#include "render/texture.h"
#include "render/vertex.h"

#include <epoxy/gl.h>

// The swap is no part of any figure: this takes the place of the one that the platform would call.
extern "C" void SDL_GL_SwapWindow(void*)
{
}

namespace
{
void addSprite(DrawContext* context, const sSprite& sprite)
{
    constexpr short Size = sScene::SpriteSize;
    const int right = sprite.x + Size;
    const int bottom = sprite.y + Size;
    const sColor color(sprite.color[0], sprite.color[1], sprite.color[2], sprite.color[3]);
    auto* vertex = static_cast<sTexturedVertex*>(context->allocateVertices(ePrimitiveType::Quads, 4));
    vertex[0] = {{sprite.x, sprite.y}, color, 0, 0};
    vertex[1] = {{right, sprite.y}, color, Size, 0};
    vertex[2] = {{sprite.x, bottom}, color, 0, Size};
    vertex[3] = {{right, bottom}, color, Size, Size};
}

void setState(DrawContext* context, const sSprite& sprite, Texture* const* textures)
{
    context->setTexture(textures[sprite.texture]);
    context->setBlendMode(sprite.blend ? eBlendMode::Scaled : eBlendMode::Alpha);
    context->setDrawLevel(sprite.level, 0);
}

void record(DrawContext* context, const sScene& scene, Texture* const* textures)
{
    context->setVertexDecl(eVertexDecl::Textured);
    context->setTextureFiltering(scene.finish ? eTextureFiltering::Linear : eTextureFiltering::Nearest);
    context->setTexture(textures[0]);
    context->setBlendMode(eBlendMode::Alpha);
    for (const sSprite& sprite : scene.sprites)
    {
        if (scene.textureNum > 1 || scene.levels)
            setState(context, sprite, textures);
        addSprite(context, sprite);
    }
}
}

int main(int argumentNum, char** arguments)
{
    const sScene scene = makeScene(argumentNum, arguments);
    if (!Platform::create(ePlatform::SDL) ||
        !Platform::getInstance()->openWindow("own", sScene::WindowWidth, sScene::WindowHeight))
        return 1;
    JobSystem::create(0x10000, 2);
    RenderSystem* system = RenderSystem::create();
    Texture* textures[sScene::MaximumTextureNum];
    for (unsigned int i = 0; i < sScene::MaximumTextureNum; ++i)
        textures[i] = new Texture(sScene::TextureSize, sScene::TextureSize, false, makePixels(i).data());

    return serve([] {},
                 [&]
                 {
                     system->preprocess();
                     DrawContext* context = system->popContext();
                     record(context, scene, textures);
                     system->pushContext(context);
                     system->postprocess();
                     system->executeCommand();
                     if (scene.finish)
                         glFinish();
                 });
}
