#include "ui/uitexturecontrol.h"

#include "foundation/dev.h"
#include "reflection/typeset.h"
#include "render/texture.h"
#include "ui/texturepreview.h"

namespace
{
constexpr unsigned int ObjectType = PropertyBase::getPropertyType<ObjectBase*>();
constexpr sSize MinimumSize{64, 80};
}

UITextureControl::UITextureControl(PropertyBase* property, unsigned int index) : UIControl(property, true, index)
{
    requireType(typeRange(ObjectType, ObjectType));
    setMinimumSize(MinimumSize);
    setDefaultSize();
}

void UITextureControl::eventPaint(UIPainter* painter)
{
    const sRect own = getOwnRegion();
    paintName(painter);
    TexturePreview::paint(painter, sRect(0, NameHeight, own.right, own.bottom), getTexture());
}

void UITextureControl::eventMouseDoubleClick(const sPoint&, unsigned int button)
{
    if (!(button & UIMouseDownMessage::FirstButton))
        return;
    if (Texture* texture = getTexture())
        TexturePreview::open(texture);
}

Texture* UITextureControl::getTexture() const
{
    ObjectBase* object = getProperty()->getByType<ObjectBase*>(getIndex());
    Texture* texture = object ? object->cast<Texture>() : nullptr;
    if (object && !texture)
        dev_assert("Not Texture.", __FILE__, __LINE__);
    return texture;
}
