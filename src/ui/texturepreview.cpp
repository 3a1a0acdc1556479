#include "ui/texturepreview.h"

#include "render/texture.h"
#include "resource/textureresource.h"
#include "ui/textureviewerwindow.h"
#include "ui/uipainter.h"
#include "ui/uisystem.h"

Texture* TexturePreview::getTexture(ResourceBase* resource)
{
    const TextureResource* picture = resource ? resource->cast<TextureResource>() : nullptr;
    return picture ? picture->getTexture() : nullptr;
}

void TexturePreview::stretch(UIPainter* painter, const sRect& rect, Texture* texture, eBlendMode mode)
{
    painter->setBlendMode(mode);
    painter->setTextureFiltering(UIPainter::eTextureFiltering::Linear);
    painter->setTexture(texture);
    painter->drawRect(rect, sColor::White, sTexcoord(0, 0),
                      sTexcoord(static_cast<int>(texture->getWidth()), static_cast<int>(texture->getHeight())));
    painter->setBlendMode(eBlendMode::Opaque);
}

void TexturePreview::paint(UIPainter* painter, const sRect& rect, Texture* texture)
{
    painter->drawRect(rect, sColor::Black);
    if (texture)
        stretch(painter, rect, texture, eBlendMode::Alpha);
}

void TexturePreview::open(Texture* texture)
{
    TextureViewerWindow* window = new TextureViewerWindow;
    window->setTexture(texture);
    UISystem::getInstance()->addWindow(window);
}
