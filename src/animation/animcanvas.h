#pragma once

#include "ui/uibase.h"

class AnimTool;
class UIForm;

// What the two views of the animation editor have in common: a background with a grid, the space key that turns a
// drag into scrolling, and drags that a derived class gives a meaning to. The view lies in a form that scrolls it.
class AnimCanvas : public UIBase
{
public:
    enum eFlag : unsigned int
    {
        DragKind = 3, // the bits of the number of the present drag
        SpaceDown = 4,
        GridOn = 8,
        CurveOn = 16,
    };

    static constexpr unsigned int NoDrag = 0;
    static constexpr int GridSize = 16;

    unsigned int getFlags() const { return mFlags; }
    sColor getBackground() const { return mBackground; }

    void eventGrid() { mFlags ^= GridOn; }

    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;
    void eventKeyUp(unsigned int keyCode, unsigned int combinationKey) override;
    void eventDefocus() override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDoubleClick(const sPoint& position, unsigned int button) override;

protected:
    // The number of the drag that scrolls is the class's own. Tool and form outlive the view.
    AnimCanvas(const AnimTool* tool, UIForm* form, unsigned int flags, unsigned int scrollDrag);

    // The kind of drag that a press starts, which is not that of scrolling; NoDrag for none. `origin` is kept for it.
    virtual unsigned int beginDrag(const sPoint& position, sPoint& origin) const = 0;

    // Called with each move of a drag of that kind.
    virtual void drag(unsigned int kind, const sPoint& position) = 0;

    void setBackground(sColor color) { mBackground = color; }
    bool hasFlag(eFlag flag) const { return mFlags & flag; }
    void toggleFlag(eFlag flag) { mFlags ^= flag; }
    const sPoint& getDragOrigin() const { return mDragOrigin; }
    const AnimTool& getTool() const { return *mTool; }
    UIForm& getForm() const { return *mForm; }

    void paintBackground(UIPainter* painter) const;

    // Dark lines over the whole view.
    void drawGrid(UIPainter* painter) const;

private:
    const AnimTool* mTool;
    UIForm* mForm;
    sColor mBackground = sColor::Black;
    sPoint mDragOrigin = sPoint::Zero;
    unsigned int mFlags;
    unsigned int mScrollDrag;
};
