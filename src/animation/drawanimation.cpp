#include "animation/drawanimation.h"

#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "foundation/smatrix.h"
#include "resource/textureresource.h"
#include "ui/uilinerun.h"

#include <utility>

namespace
{
Texture* findTexture(const AnimSequencer& animation)
{
    const AnimResource* resource = animation.getResource()->cast<AnimResource>();
    const ResourceBase* texture = resource ? resource->getTexture() : nullptr;
    return texture ? static_cast<const TextureResource*>(texture)->getTexture() : nullptr;
}

void bindTexture(UIPainter& painter, Texture* texture)
{
    painter.setTexture(texture);
    painter.setBlendMode(UIPainter::eBlendMode::Alpha);
    painter.setTextureFiltering(UIPainter::eTextureFiltering::Nearest);
}

sPoint transform(const sMatrix& world, int x, int y)
{
    const sVector point = world.transform(sVector(x, y));
    return sPoint(static_cast<int>(point.x) + AnimationOrigin, static_cast<int>(point.y) + AnimationOrigin);
}

void drawCell(UIPainter& painter, const AnimCell& cell, const sMatrix& world)
{
    sRect rect = getCellRect(cell);
    if (cell.getAttribute() & AnimCell::HFlip)
        std::swap(rect.left, rect.right);
    if (cell.getAttribute() & AnimCell::VFlip)
        std::swap(rect.top, rect.bottom);

    const sPoint topLeft = transform(world, rect.left, rect.top);
    const sPoint topRight = transform(world, rect.right, rect.top);
    const sPoint bottomLeft = transform(world, rect.left, rect.bottom);
    const sPoint bottomRight = transform(world, rect.right, rect.bottom);

    const sTexcoord& uv = cell.getUV();
    const int u = static_cast<int>(uv.x + cell.getSize().width);
    const int v = static_cast<int>(uv.y + cell.getSize().height);
    // On purpose: a cell has its own colour alone; the colour of the whole goes on to nested animations only.
    const sColor color = cell.getColor();
    painter.drawTriangle(topLeft, topRight, bottomLeft, color, uv, sTexcoord(u, uv.y), sTexcoord(uv.x, v));
    painter.drawTriangle(topRight, bottomLeft, bottomRight, color, sTexcoord(u, uv.y), sTexcoord(uv.x, v),
                         sTexcoord(u, v));
}
}

void drawAnimation(UIPainter& painter, const AnimSequencer& animation, const sMatrix& matrix, sColor color)
{
    if (!animation.getResource())
        return;

    const sPoint& position = animation.getPosition();
    const sMatrix local(sFixed(animation.getOrientation(), 16), sVector(position.x, position.y));
    const sMatrix world = matrix * local;
    const sColor combined = sColorF(color) * sColorF(animation.getColor());
    Texture* const texture = findTexture(animation);
    if (texture)
        bindTexture(painter, texture);

    for (unsigned int i = 0; i < animation.getTrackNum() && painter.hasRoom(); ++i)
    {
        const ObjectBase* object = animation.getTrackArray()[i].object;
        if (!object)
            continue;
        const AnimCell* cell = object->cast<AnimCell>();
        if (cell && texture && (cell->getAttribute() & AnimCell::Visible))
            drawCell(painter, *cell, world);
        if (const AnimSequencer* nested = object->cast<AnimSequencer>())
        {
            drawAnimation(painter, *nested, world, combined);
            if (texture)
                bindTexture(painter, texture);
        }
    }
}

sRect getCellRect(const AnimCell& cell)
{
    const sPoint& position = cell.getPosition();
    const sSize& size = cell.getSize();
    const unsigned int left = static_cast<unsigned int>(position.x) - size.width / 2;
    const unsigned int top = static_cast<unsigned int>(position.y) - size.height / 2;
    return sRect(static_cast<int>(left), static_cast<int>(top), static_cast<int>(left + size.width),
                 static_cast<int>(top + size.height));
}

void addCross(UILineRun& lines, const sPoint& centre, int size, sColor color)
{
    lines.add(centre - sPoint(size, 0), centre + sPoint(size, 0), color);
    lines.add(centre - sPoint(0, size), centre + sPoint(0, size), color);
}
