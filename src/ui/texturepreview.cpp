#include "ui/texturepreview.h"

#include "render/texture.h"
#include "resource/textureresource.h"
#include "ui/textureviewerwindow.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

namespace
{
void drawWhole(UIPainter* painter, const sRect& rect, Texture* texture)
{
    painter->setTextureFiltering(UIPainter::eTextureFiltering::Linear);
    painter->setTexture(texture);
    painter->drawRect(rect, sColor::White, sTexcoord(0, 0),
                      sTexcoord(static_cast<int>(texture->getWidth()), static_cast<int>(texture->getHeight())));
}
}

Texture* TexturePreview::getTexture(ResourceBase* resource)
{
    const TextureResource* picture = resource ? resource->cast<TextureResource>() : nullptr;
    return picture ? picture->getTexture() : nullptr;
}

void TexturePreview::paint(UIPainter* painter, const sRect& rect, Texture* texture)
{
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
    drawWhole(painter, rect, texture);
}

void TexturePreview::paintOverBlack(UIPainter* painter, const sRect& rect, Texture* texture)
{
    painter->drawRect(rect, sColor::Black);
    painter->setBlendMode(UIPainter::eBlendMode::Alpha);
    drawWhole(painter, rect, texture);
    painter->setBlendMode(UIPainter::eBlendMode::Opaque);
}

void TexturePreview::open(Texture* texture)
{
    TextureViewerWindow* window = new TextureViewerWindow;
    window->setTexture(texture);
    UISystem::getInstance()->addWindow(window);
}
