#pragma once

#include "tests/support/headlesssystems.h"
#include "ui/uipainter.h"

inline UIBase* makeElement(const sSize& size, unsigned int attribute = 0)
{
    UIBase* element = new UIBase(attribute);
    element->setSize(size);
    return element;
}

// Where the children of an element are, relative to it. What is hidden is nowhere.
inline std::vector<sRect> getRegions(const UIBase& parent)
{
    std::vector<sRect> regions;
    for (UIBase::iterator child = parent.getChildrenBegin(); child != parent.getChildrenEnd(); ++child)
        regions.push_back((*child)->isVisible() ? (*child)->getRelRegion() : sRect::Zero);
    return regions;
}

// As a frame does it, for a root that is shown as a whole.
inline std::vector<sRecordedDraw> runFrame(const HeadlessSystems& systems, UIBase& root)
{
    root.update(1.0f);
    root.updateRegion(sRect::Max, sRect::Max);
    return systems.record(
        [&root](DrawContext& context)
        {
            UIPainter painter(&context, 0);
            root.sendMessage(UIPaintMessage(&painter));
        });
}
