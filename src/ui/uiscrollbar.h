#pragma once

#include "ui/uiaxis.h"
#include "ui/uibase.h"

class UIButton;
class UISpinButton;

// A bar with a thumb between two arrows. Position and range are in units of the owner, who asks for them; nobody is
// told of a change. One step of the wheel or of an arrow is one unit, a click beside the thumb half a range.
class UIScrollBar : public UIBase
{
public:
    enum class eBarDirection : unsigned int
    {
        Horizontal = 0,
        Vertical = 1,
    };

    explicit UIScrollBar(eBarDirection direction);

    // On purpose: limited by the maximum and not by the maximum less the range.
    void setBarPosition(int position) { moveTo(position); }
    int getBarPosition() const { return mBarPosition; }

    // The length of the part that can be seen. Pulls the position back so that the part ends at the maximum.
    void setBarRange(unsigned int range);
    unsigned int getBarRange() const { return mBarRange; }

    void setMinimum(int minimum);
    int getMinimum() const { return mMinimum; }
    void setMaximum(int maximum);
    int getMaximum() const { return mMaximum; }

    void decrement();
    void increment();

    // The thumb; the zero rectangle if everything can be seen.
    sRect getBarRegion() const;

    // Passes an amount of the wheel on, each axis that has turned to its bar.
    static void forwardWheel(const sPoint& amount, UIScrollBar* horizontal, UIScrollBar* vertical, UIBase* sender);

    void update(float deltaTime) override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventMouseWheel(const sPoint& amount) override;

private:
    void notifySpinButton(UIButton* button);
    void moveTo(long long position);
    long long getSpan() const;
    eUIAxis getAxis() const;
    int getThickness() const;
    int getTrackLength() const;

    eBarDirection mDirection;
    int mBarPosition = 0;
    unsigned int mBarRange = 0;
    int mMinimum = 0;
    int mMaximum = 0;
    bool mBarDragging = false;
    int mDragBeginBarPosition = 0;
    UISpinButton* mDecrementButton;
    UISpinButton* mIncrementButton;
};
