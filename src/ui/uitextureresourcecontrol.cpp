#include "ui/uitextureresourcecontrol.h"

#include "resource/textureresource.h"
#include "ui/texturepreview.h"

namespace
{
constexpr int PreviewSize = 64;
}

UITextureResourceControl::UITextureResourceControl(PropertyBase* property, bool disable, unsigned int index)
    : UIResourceControl(property, TextureResource::getStaticTypeInfo(), disable, index)
{
    const sSize& base = getMinimumSize();
    setMinimumSize({base.width, base.height + PreviewSize});
    setDefaultSize();
}

void UITextureResourceControl::eventPaint(UIPainter* painter)
{
    UIResourceControl::eventPaint(painter);
    TexturePreview::paint(painter, getPreview(), TexturePreview::getTexture(getResource()));
}

void UITextureResourceControl::eventMouseDoubleClick(const sPoint& position, unsigned int button)
{
    if (!(button & UIMouseDownMessage::FirstButton) || !getPreview().intersect(position))
        return;
    if (Texture* texture = TexturePreview::getTexture(getResource()))
        TexturePreview::open(texture);
}

int UITextureResourceControl::getBoxTop() const
{
    return UIResourceControl::getBoxTop() + PreviewSize;
}

sRect UITextureResourceControl::getPreview() const
{
    return sRect(0, getBoxTop() - PreviewSize, PreviewSize, getBoxTop());
}
