#pragma once

#include "reflection/property.h"
#include "ui/uibase.h"

// An element bound to a property, or to one element of an array property. It holds no value: it asks the property with
// each paint, and writes through it on commit, so that what changes elsewhere shows at once. Each edit lies between a
// begin and an end message, which rise through the parents. The object behind the property outlives the control.
class UIControl : public UIBase
{
public:
    // As an index: the plain value, or the property's current element.
    static constexpr unsigned int WholeValue = PropertyBase::CurrentElement;

    // Shares the ownership of the property, which may be null. A disabled control only shows.
    UIControl(PropertyBase* property, bool disable, unsigned int index, unsigned int attribute = 0);
    ~UIControl() override;

    PropertyBase* getProperty() const { return mpProperty; }
    unsigned int getIndex() const { return mIndex; }
    bool isEditing() const { return mEditing; }

    // The name of the property, or for an element of an array its index; null when there is no name.
    AutoString getName() const;

    // The minimum size, made wide enough for the name.
    void setDefaultSize();

    // Lays the children out in each frame.
    void update(float deltaTime) override;
    void eventBeginEdit() override;
    void eventEndEdit() override;

    virtual void align() {}

protected:
    // Stops with `message` on a property whose type is not in the set of typeset.h.
    void requireType(unsigned int types, const char* message = "Property type missmatch.") const;

    // Does nothing to a child that is there already, since most children are in most frames.
    static void place(UIBase* child, const sPoint& position, const sSize& size);

    // getName() without an allocation. `buffer` has ValueTextSize characters; the result is null without a name.
    const char* getLabel(char* buffer) const;

    // What a name above the value takes.
    static constexpr unsigned int NameHeight = 16;

    // The name, which must be there: as a line of text, above the value if nothing else is said, and in the frame of a
    // group around the whole control.
    void paintName(UIPainter* painter, const sRect& rect) const;
    void paintName(UIPainter* painter) const;
    void paintGroup(UIPainter* painter) const;

private:
    const char* requireLabel(char* buffer) const;

    PropertyBase* mpProperty;
    unsigned int mIndex;
    bool mEditing = false;
};
