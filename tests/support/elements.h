#pragma once

#include "tests/support/headlesssystems.h"
#include "ui/uibase.h"
#include "ui/uipainter.h"

inline UIBase* makeElement(const sSize& size, unsigned int attribute = 0)
{
    UIBase* element = new UIBase(attribute);
    element->setSize(size);
    return element;
}

// The child of that place, or with further places one below it.
template <typename T = UIBase, typename... Places>
T* getChild(const UIBase& parent, int place, Places... below)
{
    UIBase* child = *(parent.getChildrenBegin() + place);
    if constexpr (sizeof...(below) != 0)
        return getChild<T>(*child, below...);
    else
        return static_cast<T*>(child);
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

// The text of a draw; empty for one that draws none.
inline std::string getText(const sRecordedDraw& draw)
{
    std::string text;
    if (draw.command.state.getVertexDecl() == eVertexDecl::Textured)
        for (std::size_t i = 0; i < draw.vertices.size(); i += 4)
            text += static_cast<char>(' ' + draw.vertices[i].s / 6 + draw.vertices[i].t / 12 * 16);
    return text;
}
