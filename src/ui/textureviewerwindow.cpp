#include "ui/textureviewerwindow.h"

#include "foundation/replacereference.h"
#include "render/texture.h"
#include "ui/uicolorcontrol.h"
#include "ui/uitexture.h"

REFLECT(TextureViewerWindow, eTypeAttribute::None, "UIWindow");

namespace
{
constexpr sSize StartSize{512, 256};
constexpr sSize PanelSize{192, 320};
}

TextureViewerWindow::TextureViewerWindow()
    : UIWindow(eStyle::Convex, TitleBar | Movable | Sizable, true, true, true, ScrollBars, nullptr),
      mPanel(new UIForm(FlowLayout)),
      mView(new UITexture)
{
    setTitle("TextureViewer");
    setSize(StartSize);

    mView->setPosition(sPoint(static_cast<int>(PanelSize.width), 0));
    addClient(mView);

    mPanel->setSize(PanelSize);
    mPanel->setClientRegion(mPanel->getOwnRegion());
    addClient(mPanel);
    mPanel->addClient(new UISizeControl(new IndirectProperty<sSize>("Size", this, &TextureViewerWindow::getTextureSize,
                                                                    &TextureViewerWindow::setTextureSize),
                                        true));
    mPanel->addClient(new UIColorControl(
        new IndirectProperty<sColor>("Color", mView, &UITexture::getColor, &UITexture::setColor), false));
}

TextureViewerWindow::~TextureViewerWindow()
{
    if (mTexture)
        mTexture->release();
}

void TextureViewerWindow::setTexture(Texture* texture)
{
    replaceReference(mTexture, texture);
    mView->setTexture(texture);
}

sSize TextureViewerWindow::getTextureSize() const
{
    return mTexture ? sSize(mTexture->getWidth(), mTexture->getHeight()) : sSize::Zero;
}
