#pragma once

#include "animation/animcanvas.h"
#include "animation/animtool.h"
#include "ui/uiform.h"

class ResourceBase;
class Texture;
class TextureResource;

// The pane that shows the texture of the animation and its size, and lets it be chosen.
class AnimTool::TextureForm : public UIForm
{
public:
    class TextureView;

    explicit TextureForm(AnimTool* tool);

    // Those of the animation; null, and nothing, without one.
    ResourceBase* getTexture() const;
    void setTexture(ResourceBase* texture);

    // Null also for a resource whose picture could not be had.
    Texture* findTexture() const;

    TextureView* getView() const { return mView; }

private:
    void addControl(UIBase* control, int y);

    unsigned int getWidth() const;
    unsigned int getHeight() const;
    void ignore(unsigned int) {}

    AnimTool* mTool;
    TextureView* mView;
};

// The texture at its own size, with a frame around the part that each cell shows. A drag picks the part of the
// selected track's cell.
class AnimTool::TextureForm::TextureView : public AnimCanvas
{
public:
    enum eDrag : unsigned int
    {
        PickDrag = 1,
        ScrollDrag = 2,
    };

    TextureView(AnimTool* tool, TextureForm* form);

    // As large as the texture, or of no size without one.
    void update(float deltaTime) override;
    void eventPaint(UIPainter* painter) override;

private:
    unsigned int beginDrag(const sPoint& position, sPoint& origin) const override;
    void drag(unsigned int kind, const sPoint& position) override;

    const TextureForm* mTextureForm;
};
