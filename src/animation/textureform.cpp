#include "animation/textureform.h"

#include "animation/animcell.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "reflection/resourceproperty.h"
#include "render/texture.h"
#include "resource/textureresource.h"
#include "ui/uilinerun.h"
#include "ui/uimenu.h"
#include "ui/uiparametercontrol.h"
#include "ui/uiresourcecontrol.h"

#include <algorithm>

using TextureView = AnimTool::TextureForm::TextureView;

namespace
{
constexpr int ControlWidth = 96;
constexpr int ControlHeight = 32;
constexpr int ControlGap = 4;
constexpr int CanvasSize = 1024;

constexpr UIMenu::sRow<TextureView> MenuTable[] = {
    {"Grid", &TextureView::eventGrid, UIMenu::eItemAttribute::Check, true},
};

AnimCell* toCell(ObjectBase* object)
{
    return object ? object->cast<AnimCell>() : nullptr;
}

sRect getTextureRect(const AnimCell& cell)
{
    return sRect(cell.getSize()) + sPoint(cell.getUV().x, cell.getUV().y);
}
}

AnimTool::TextureForm::TextureForm(AnimTool* tool) : UIForm(ScrollBars), mTool(tool)
{
    setClientRegion(sRect(CanvasSize, CanvasSize) + sPoint(ControlWidth, 0));
    mView = new TextureView(mTool, this);
    addClient(mView);

    addControl(new UIResourceControl(
                   new IndirectResourceProperty("Texture", this, &TextureForm::getTexture, &TextureForm::setTexture),
                   TextureResource::getStaticTypeInfo(), false, UIControl::WholeValue),
               0);
    addControl(new UIParameterControl(
                   new IndirectProperty<unsigned int>("Width", this, &TextureForm::getWidth, &TextureForm::ignore),
                   true, UIControl::WholeValue),
               ControlHeight);
    addControl(new UIParameterControl(
                   new IndirectProperty<unsigned int>("Height", this, &TextureForm::getHeight, &TextureForm::ignore),
                   true, UIControl::WholeValue),
               2 * ControlHeight);
}

void AnimTool::TextureForm::addControl(UIBase* control, int y)
{
    control->setPosition(sPoint(0, y));
    control->setSize({ControlWidth - ControlGap, ControlHeight});
    add(control);
}

ResourceBase* AnimTool::TextureForm::getTexture() const
{
    const AnimResource* resource = mTool->getAnimResource();
    return resource ? resource->getTexture() : nullptr;
}

void AnimTool::TextureForm::setTexture(ResourceBase* texture)
{
    const OwnEdit edit(*mTool);
    if (AnimResource* resource = mTool->getAnimResource())
        resource->setTexture(texture);
}

Texture* AnimTool::TextureForm::findTexture() const
{
    const ResourceBase* texture = getTexture();
    return texture ? static_cast<const TextureResource*>(texture)->getTexture() : nullptr;
}

unsigned int AnimTool::TextureForm::getWidth() const
{
    const Texture* texture = findTexture();
    return texture ? texture->getWidth() : 0;
}

unsigned int AnimTool::TextureForm::getHeight() const
{
    const Texture* texture = findTexture();
    return texture ? texture->getHeight() : 0;
}

TextureView::TextureView(AnimTool* tool, TextureForm* form)
    : AnimCanvas(tool, form, GridOn, ScrollDrag), mTextureForm(form)
{
    UIMenu* menu = new UIMenu;
    menu->addItems(this, MenuTable);
    setMenu(menu);
}

void TextureView::update(float deltaTime)
{
    const Texture* texture = mTextureForm->findTexture();
    setSize(texture ? sSize{texture->getWidth(), texture->getHeight()} : sSize::Zero);
    AnimCanvas::update(deltaTime);
}

unsigned int TextureView::beginDrag(const sPoint& position, sPoint& origin) const
{
    if (!toCell(getTool().getSelectLiveObject()))
        return NoDrag;
    origin = position;
    return PickDrag;
}

// A texture has nothing left of or above its origin.
void TextureView::drag(unsigned int, const sPoint& position)
{
    AnimCell* cell = toCell(getTool().getSelectLiveObject());
    if (!cell)
        return;
    const sPoint from(std::max(getDragOrigin().x, 0), std::max(getDragOrigin().y, 0));
    const sPoint to(std::max(position.x, 0), std::max(position.y, 0));
    const auto [left, right] = std::minmax(from.x, to.x);
    const auto [top, bottom] = std::minmax(from.y, to.y);
    cell->setUV(sTexcoord(left, top));
    cell->setSize({static_cast<unsigned int>(right - left), static_cast<unsigned int>(bottom - top)});
}

void TextureView::eventPaint(UIPainter* painter)
{
    paintBackground(painter);
    if (Texture* texture = mTextureForm->findTexture())
    {
        painter->setBlendMode(UIPainter::eBlendMode::Alpha);
        painter->setTextureFiltering(UIPainter::eTextureFiltering::Nearest);
        painter->setTexture(texture);
        painter->drawRect(getOwnRegion(), sColor::White, sTexcoord::Zero,
                          sTexcoord(static_cast<int>(getSize().width), static_cast<int>(getSize().height)));
        painter->setBlendMode(UIPainter::eBlendMode::Opaque);
    }
    if (hasFlag(GridOn))
        drawGrid(painter);

    const AnimSequencer* sequencer = getTool().getAnimSequencer();
    UILineRun lines(*painter);
    for (unsigned int i = 0; sequencer && i < sequencer->getTrackNum() && lines.hasRoom(); ++i)
    {
        if (const AnimCell* cell = toCell(sequencer->getTrackArray()[i].object))
            lines.addFrame(getTextureRect(*cell), sColor::Red);
    }
}
