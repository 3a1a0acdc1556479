#pragma once

#include "foundation/scolor.h"
#include "foundation/spoint.h"
#include "sequencer/sequencer.h"

// Plays an animation as a whole: with a place, a colour and an orientation of its own, so that one animation can
// stand on a track of another.
class AnimSequencer : public Sequencer
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    explicit AnimSequencer(AllocatorBase* allocator = nullptr);

    void setPosition(const sPoint& position) { mPosition = position; }
    const sPoint& getPosition() const { return mPosition; }

    void setColor(const sColor& color) { mColor = color; }
    const sColor& getColor() const { return mColor; }

    // In 1024ths of a turn.
    void setOrientation(int orientation) { mOrientation = orientation; }
    int getOrientation() const { return mOrientation; }

    void makePropertyList(PropertyList& list) override;
    void makeControlList(List<ControlBase>& list) override;

private:
    static UniqueTypeInfo<AnimSequencer> mTypeInfo;

    sPoint mPosition = sPoint::Zero;
    sColor mColor = sColor::White;
    int mOrientation = 0;
};
