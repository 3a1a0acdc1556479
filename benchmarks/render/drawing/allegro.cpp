#include "benchmarks/render/drawing/scene.h"
#include "benchmarks/render/drawing/worker.h"

#include <allegro5/allegro.h>
#include <allegro5/allegro_opengl.h>

// Held drawing, which Allegro batches by itself.
int main(int argumentNum, char** arguments)
{
    const sScene scene = makeScene(argumentNum, arguments);
    if (!al_init())
        return 1;
    al_set_new_display_flags(ALLEGRO_OPENGL);
    al_set_new_bitmap_flags(ALLEGRO_MIN_LINEAR | ALLEGRO_MAG_LINEAR);
    ALLEGRO_DISPLAY* display = al_create_display(sScene::WindowWidth, sScene::WindowHeight);
    ALLEGRO_BITMAP* bitmap = display ? al_create_bitmap(sScene::TextureSize, sScene::TextureSize) : nullptr;
    if (!bitmap)
        return 1;
    ALLEGRO_LOCKED_REGION* region = al_lock_bitmap(bitmap, ALLEGRO_PIXEL_FORMAT_ABGR_8888_LE, ALLEGRO_LOCK_WRITEONLY);
    const std::vector<unsigned char> pixels = makePixels(0);
    for (unsigned int y = 0; y < sScene::TextureSize; ++y)
        std::memcpy(static_cast<unsigned char*>(region->data) + static_cast<int>(y) * region->pitch,
                    pixels.data() + y * sScene::TextureSize * 4, sScene::TextureSize * 4);
    al_unlock_bitmap(bitmap);
    al_set_blender(ALLEGRO_ADD, ALLEGRO_ALPHA, ALLEGRO_INVERSE_ALPHA);

    return serve([] {},
                 [&]
                 {
                     al_clear_to_color(al_map_rgb(0, 0, 0));
                     al_hold_bitmap_drawing(true);
                     for (const sSprite& sprite : scene.sprites)
                     {
                         constexpr float Size = sScene::SpriteSize;
                         al_draw_tinted_bitmap_region(
                             bitmap, al_map_rgba(sprite.color[0], sprite.color[1], sprite.color[2], sprite.color[3]), 0,
                             0, Size, Size, sprite.x, sprite.y, 0);
                     }
                     al_hold_bitmap_drawing(false);
                     if (scene.finish)
                         glFinish();
                     else
                         glFlush();
                 });
}
