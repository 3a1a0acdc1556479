#include "benchmarks/render/drawing/scene.h"
#include "benchmarks/render/drawing/worker.h"

#include <SFML/Graphics.hpp>
#include <SFML/OpenGL.hpp>

// All sprites as one vertex array.
int main(int argumentNum, char** arguments)
{
    const sScene scene = makeScene(argumentNum, arguments);
    sf::RenderWindow window(sf::VideoMode(sScene::WindowWidth, sScene::WindowHeight), "SFML", sf::Style::None);
    sf::Texture texture;
    if (!texture.create(sScene::TextureSize, sScene::TextureSize))
        return 1;
    texture.update(makePixels(0).data());
    texture.setSmooth(scene.finish);
    sf::VertexArray array(sf::Quads, scene.sprites.size() * 4);

    return serve([] {},
                 [&]
                 {
                     sf::Vertex* vertex = &array[0];
                     constexpr float Size = sScene::SpriteSize;
                     for (const sSprite& sprite : scene.sprites)
                     {
                         const float x = sprite.x;
                         const float y = sprite.y;
                         const sf::Color color(sprite.color[0], sprite.color[1], sprite.color[2], sprite.color[3]);
                         vertex[0] = sf::Vertex({x, y}, color, {0, 0});
                         vertex[1] = sf::Vertex({x + Size, y}, color, {Size, 0});
                         vertex[2] = sf::Vertex({x + Size, y + Size}, color, {Size, Size});
                         vertex[3] = sf::Vertex({x, y + Size}, color, {0, Size});
                         vertex += 4;
                     }
                     window.clear();
                     window.draw(array, &texture);
                     if (scene.finish)
                         glFinish();
                     else
                         glFlush();
                 });
}
