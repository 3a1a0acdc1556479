#pragma once

#include "tests/support/headlesssystems.h"
#include "ui/uipainter.h"

#include <vector>

// An element that counts what reaches it.
class ProbeElement : public UIBase
{
public:
    explicit ProbeElement(const sSize& size, unsigned int attribute = 0) : UIBase(attribute) { setSize(size); }

    void eventPaint(UIPainter*) override { ++mPainted; }
    void eventMouseWheel(const sPoint& amount) override { mWheel += amount; }
    void eventMouseMove(const sPoint&) override { ++mMoved; }

    unsigned int mPainted = 0;
    unsigned int mMoved = 0;
    sPoint mWheel = sPoint::Zero;
};

inline UIBase* getChild(const UIBase& parent, int index)
{
    return *(parent.getChildrenBegin() + index);
}

// Where the children of an element are, relative to it.
inline std::vector<sRect> getRegions(const UIBase& parent)
{
    std::vector<sRect> regions;
    for (UIBase::iterator child = parent.getChildrenBegin(); child != parent.getChildrenEnd(); ++child)
        regions.push_back((*child)->getRelRegion());
    return regions;
}

// As a frame does it, for a root that is shown as a whole.
inline void updateFrame(UIBase& root)
{
    root.update(1.0f);
    root.updateRegion(sRect::Max, sRect::Max);
}

inline std::vector<sRecordedDraw> paintFrame(const HeadlessSystems& systems, UIBase& root)
{
    updateFrame(root);
    return systems.record(
        [&root](DrawContext& context)
        {
            UIPainter painter(&context, 0);
            root.sendMessage(UIPaintMessage(&painter));
        });
}
