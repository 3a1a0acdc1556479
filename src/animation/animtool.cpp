#include "animation/animtool.h"

#include "animation/animationform.h"
#include "animation/animprimitive.h"
#include "animation/animresource.h"
#include "animation/animsequencer.h"
#include "animation/textureform.h"
#include "ui/uisplitter.h"

REFLECT(AnimTool, eTypeAttribute::None, "SequencerTool");

namespace
{
constexpr unsigned int TextureWidth = 256;
constexpr unsigned int TimelineHeight = 128;
}

AnimTool::AnimTool(AnimResource* resource) : SequencerTool(resource)
{
    setManagedResource<SequencerTool>("Animation Resource", AnimResource::getStaticTypeInfo(), this,
                                      &SequencerTool::getResource, &SequencerTool::setResource);
    getSplitter()->remove();
    mAnimationForm = new AnimationForm(this);
    mTextureForm = new TextureForm(this);
    mInnerSplitter = new UISplitter(mAnimationForm, mTextureForm, UISplitter::eSplitDirection::Beside, TextureWidth,
                                    UISplitter::eSplitBase::Second);
    mOuterSplitter = new UISplitter(mInnerSplitter, getSplitter(), UISplitter::eSplitDirection::Above, TimelineHeight,
                                    UISplitter::eSplitBase::Second);
    addClient(mOuterSplitter);

    setTitle("Animation Tool");
    setSize({512, 512});
    setMinimumSize({256, 160});
}

AnimResource* AnimTool::getAnimResource() const
{
    SequencerResourceIntermediate* sequence = getSequence();
    return sequence ? sequence->cast<AnimResource>() : nullptr;
}

const AnimSequencer* AnimTool::getAnimSequencer() const
{
    const Sequencer* sequencer = getSequencer();
    return sequencer ? sequencer->cast<AnimSequencer>() : nullptr;
}

const TypeInfo* AnimTool::getSequencerTypeInfo() const
{
    return AnimSequencer::getStaticTypeInfo();
}

const TypeInfo* AnimTool::getRootTypeInfo() const
{
    return AnimPrimitive::getStaticTypeInfo();
}

void AnimTool::updateLayout()
{
    const sRect region = getPaneRegion();
    mOuterSplitter->setPosition(sPoint(region.left, region.top));
    mOuterSplitter->setSize({region.getWidth(), region.getHeight()});
}
