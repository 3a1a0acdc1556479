#pragma once

#include "animation/animcanvas.h"
#include "animation/animtool.h"
#include "ui/uiform.h"

// The pane that shows the animation, with its origin in the middle of a canvas that scrolls.
class AnimTool::AnimationForm : public UIForm
{
public:
    class AnimationView;

    explicit AnimationForm(AnimTool* tool);

    AnimationView* getView() const { return mView; }

    void update(float deltaTime) override;

private:
    AnimationView* mView;
    bool mShown = false;
};

// The animation at the present frame, with a marking around what stands on each track. The object of the selected
// track can be dragged; that moves the live object and no key.
class AnimTool::AnimationForm::AnimationView : public AnimCanvas
{
public:
    enum eDrag : unsigned int
    {
        CellDrag = 1,
        AnimationDrag = 2,
        ScrollDrag = 3,
    };

    AnimationView(AnimTool* tool, AnimationForm* form);

    // Scrolls the origin into the middle of what is shown.
    void centre();

    void eventCurve() { toggleFlag(CurveOn); }

    template <const sColor& Color>
    void eventBackground()
    {
        setBackground(Color);
    }

    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;
    void eventPaint(UIPainter* painter) override;

private:
    unsigned int beginDrag(const sPoint& position, sPoint& origin) const override;
    void drag(unsigned int kind, const sPoint& position) override;

    // With the axes in white.
    void drawGrid(UIPainter* painter) const;
    void paintMarkings(UIPainter* painter) const;
};
