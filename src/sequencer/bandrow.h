#pragma once

#include "reflection/objectlist.h"
#include "sequencer/rubberband.h"
#include "ui/uilinerun.h"
#include "ui/uimessage.h"

// A row of the right side with elements on its frames, the keys of a lane or the markers. A press deselects, and
// dragging a band selects the first element, in their order, that it covers. The row's class names the elements.
template <typename Row, typename Element>
class BandRow : public Row
{
public:
    using Row::Row;

    void eventPaint(UIPainter* painter) override
    {
        paintElements(painter);
        mBand.paint(painter);
        Row::eventPaint(painter);
    }

    void eventMouseMove(const sPoint& position) override
    {
        if (!this->isDragging() || !isFirst(this->getDragButton()))
            return;
        mBand.drag(*this, position);
        Element* covered = findCovered();
        if (covered != getSelectElement())
            select(covered);
    }

    void eventMouseDown(const sPoint& /*position*/, unsigned int button) override
    {
        if (isFirst(button))
            select(nullptr);
    }

    // Any release ends the capture of the mouse, and so the drag.
    void eventMouseUp(const sPoint& /*position*/, unsigned int /*button*/) override { mBand.reset(); }

protected:
    // Null for none at all.
    virtual const ObjectList* getElements() const = 0;
    virtual const Element* getSelectElement() const = 0;
    virtual void select(Element* element) = 0;

private:
    static bool isFirst(unsigned int button) { return button & UIMouseDownMessage::FirstButton; }

    // On purpose: in the row's own pixels, so that the keys of a lane stand as far right as its row is set in.
    static int getX(const Element& element, int scroll) { return static_cast<int>(element.getFrame()) - scroll; }

    template <typename Visitor>
    void forEachElement(Visitor&& visit) const
    {
        const ObjectList* elements = getElements();
        if (!elements)
            return;
        for (ObjectBase* object : *elements)
            visit(*static_cast<Element*>(object));
    }

    Element* findCovered() const
    {
        const int scroll = this->getScroll();
        Element* covered = nullptr;
        forEachElement(
            [&](Element& element)
            {
                if (!covered && mBand.covers(getX(element, scroll)))
                    covered = &element;
            });
        return covered;
    }

    void paintElements(UIPainter* painter) const
    {
        const int width = static_cast<int>(this->getSize().width);
        const int height = static_cast<int>(this->getSize().height);
        const int scroll = this->getScroll();
        const Element* selected = getSelectElement();
        UILineRun lines(*painter);
        forEachElement(
            [&](const Element& element)
            {
                const int x = getX(element, scroll);
                const sColor color = &element == selected ? sColor::Green : sColor::Black;
                if (x >= 0 && x < width && lines.hasRoom())
                    lines.add(sPoint(x, 0), sPoint(x, height), color);
            });
    }

    RubberBand mBand;
};
