#pragma once

#include "ui/uiwindow.h"

class Texture;
class UITexture;

// A window with a texture, and beside it a panel that tells the texture's size and edits the colour that it is shown
// in.
class TextureViewerWindow : public UIWindow
{
    REFLECTED(TextureViewerWindow)

public:
    TextureViewerWindow();
    ~TextureViewerWindow() override;

    // Keeps a reference; null shows none.
    void setTexture(Texture* texture);

    // Zero without a texture.
    sSize getTextureSize() const;

    // On purpose: does nothing; the size is shown by a property, which has to be settable.
    void setTextureSize(sSize) {}

private:
    Texture* mTexture = nullptr;
    UIForm* mPanel;
    UITexture* mView;
};
