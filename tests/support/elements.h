#pragma once

#include "ui/uibase.h"

#include <vector>

// An element that stands where the test puts it and counts what reaches it.
class ProbeElement : public UIBase
{
public:
    ProbeElement(unsigned int width, unsigned int height, unsigned int attribute = 0) : UIBase(attribute)
    {
        setSize({width, height});
    }

    void eventPaint(UIPainter*) override { ++mPainted; }
    void eventMouseWheel(const sPoint& amount) override { mWheel += amount; }
    void eventMouseMove(const sPoint&) override { ++mMoved; }

    unsigned int mPainted = 0;
    unsigned int mMoved = 0;
    sPoint mWheel = sPoint::Zero;
};

// Where the children of an element are, relative to it.
inline std::vector<sRect> getRegions(const UIBase& parent)
{
    std::vector<sRect> regions;
    for (UIBase::iterator child = parent.getChildrenBegin(); child != parent.getChildrenEnd(); ++child)
        regions.push_back((*child)->getRelRegion());
    return regions;
}

// The child of that number.
inline UIBase* getChild(const UIBase& parent, int index)
{
    return *(parent.getChildrenBegin() + index);
}

// As a frame does it, for a root as large as the view.
inline void updateFrame(UIBase& root)
{
    constexpr sRect View(0, 0, 1024, 768);
    root.update(1.0f);
    root.updateRegion(View, View);
}
