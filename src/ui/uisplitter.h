#pragma once

#include "ui/uiaxis.h"
#include "ui/uicontainer.h"

// Two panes with a gap between them, which the mouse drags. One of the panes, the base, keeps its size when the
// splitter changes; the other takes what is left.
class UISplitter : public UIContainer
{
public:
    enum class eSplitDirection : unsigned int
    {
        Above = 0,
        Beside = 1,
    };

    enum class eSplitBase : unsigned int
    {
        First = 0,
        Second = 1,
    };

    // Owns the panes. `size` is that of the base pane and the gap; less than 8 becomes 8.
    UISplitter(UIBase* first, UIBase* second, eSplitDirection direction, unsigned int size, eSplitBase base);

    unsigned int getSplitSize() const { return mSplitSize; }

    void update(float deltaTime) override;
    void eventMouseMove(const sPoint& position) override;

private:
    eUIAxis getAxis() const;
    unsigned int getDraggedSize(int position) const;
    void placePane(UIBase* pane, int begin, int length);

    eSplitDirection mDirection;
    eSplitBase mBase;
    unsigned int mSplitSize;
    UIBase* mFirstPane;
    UIBase* mSecondPane;
};
