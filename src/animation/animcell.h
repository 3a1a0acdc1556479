#pragma once

#include "animation/animprimitive.h"
#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "foundation/ssize.h"

// A rectangle of the animation's texture, shown at scale 1. A new one is white, visible and of no size.
class AnimCell : public AnimPrimitive
{
public:
    // Bits of the attribute. A flip exchanges the edges of the rectangle on the screen.
    static constexpr unsigned int Visible = 1;
    static constexpr unsigned int HFlip = 2;
    static constexpr unsigned int VFlip = 4;

    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    // The centre, in pixels from the origin of the animation.
    void setPosition(const sPoint& position) { mPosition = position; }
    const sPoint& getPosition() const { return mPosition; }

    // The top left corner in the texture, in texels.
    void setUV(const sTexcoord& uv) { mUV = uv; }
    const sTexcoord& getUV() const { return mUV; }

    // In pixels and in texels.
    void setSize(const sSize& size) { mSize = size; }
    const sSize& getSize() const { return mSize; }

    void setAttribute(unsigned int attribute) { mAttribute = attribute; }
    unsigned int getAttribute() const { return mAttribute; }

    const sColor& getColor() const { return mColor; }

    void makePropertyList(PropertyList& list) override;
    void makeControlList(List<ControlBase>& list) override;

private:
    static UniqueTypeInfo<AnimCell> mTypeInfo;

    sPoint mPosition = sPoint::Zero;
    sTexcoord mUV = sTexcoord::Zero;
    sSize mSize = sSize::Zero;
    sColor mColor = sColor::White;
    unsigned int mAttribute = Visible;
};
