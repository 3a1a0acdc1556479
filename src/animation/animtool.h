#pragma once

#include "sequencer/sequencertool.h"

class AnimResource;
class AnimSequencer;

// The editor of cell animations: the timeline of a sequence, and above it the animation as it looks at the present
// frame beside the texture that its cells are cut from. Both panes write the live objects alone; a key records what
// they show when it is added.
class AnimTool : public SequencerTool
{
    REFLECTED(AnimTool)

public:
    class AnimationForm;
    class TextureForm;

    // Takes a reference; null is an editor without an animation.
    explicit AnimTool(AnimResource* resource = nullptr);

    // Null while there is none.
    AnimResource* getAnimResource() const;
    const AnimSequencer* getAnimSequencer() const;

    AnimationForm* getAnimationForm() const { return mAnimationForm; }
    TextureForm* getTextureForm() const { return mTextureForm; }

    const TypeInfo* getSequencerTypeInfo() const override;
    const TypeInfo* getRootTypeInfo() const override;
    void updateLayout() override;

private:
    AnimationForm* mAnimationForm;
    TextureForm* mTextureForm;
    UISplitter* mOuterSplitter;
    UISplitter* mInnerSplitter;
};
