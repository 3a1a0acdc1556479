#pragma once

#include "sequencer/sequencerresourceintermediate.h"

class TextureResource;

// An animation: a sequence of cells and the one texture that they are cut from, of which it holds a reference. The
// texture's path, its end included, is the extra data of the native file.
class AnimResource : public SequencerResourceIntermediate
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    AnimResource();
    ~AnimResource() override;

    const char* getExtension() const override;
    const char* getFilter() const override;
    void removeAll() override;

    // Cells and further sequencers.
    bool isTrackType(const TypeInfo& type) const override;

    // What is no texture counts as null.
    void setTexture(ResourceBase* texture);
    ResourceBase* getTexture() const;

    void makePropertyList(PropertyList& list) override;

private:
    static UniqueTypeInfo<AnimResource> mTypeInfo;

    void bindTexture(TextureResource* texture);

    TextureResource* mpTexture = nullptr;
};
