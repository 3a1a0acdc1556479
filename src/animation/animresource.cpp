#include "animation/animresource.h"

#include "animation/animprimitive.h"
#include "foundation/replacereference.h"
#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "resource/textureresource.h"
#include "sequencer/sequencer.h"

UniqueTypeInfo<AnimResource> AnimResource::mTypeInfo("AnimResource", "SequencerResourceIntermediate");

TypeInfo* AnimResource::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* AnimResource::getTypeInfo() const
{
    return &mTypeInfo;
}

AnimResource::AnimResource()
{
    setSequenceType(eSequenceType::Animation);
}

AnimResource::~AnimResource()
{
    bindTexture(nullptr);
}

const char* AnimResource::getExtension() const
{
    return "asq.xml";
}

const char* AnimResource::getFilter() const
{
    return "asq.xml|Animation Sequence";
}

// A document read anew may name another texture, or none.
void AnimResource::removeAll()
{
    bindTexture(nullptr);
    SequencerResourceIntermediate::removeAll();
}

bool AnimResource::isTrackType(const TypeInfo& type) const
{
    return type.isDerivedFrom(AnimPrimitive::getStaticTypeInfo()) || type.isDerivedFrom(Sequencer::getStaticTypeInfo());
}

void AnimResource::setTexture(ResourceBase* texture)
{
    bindTexture(texture ? texture->cast<TextureResource>() : nullptr);
    setModify();
}

ResourceBase* AnimResource::getTexture() const
{
    return mpTexture;
}

void AnimResource::bindTexture(TextureResource* texture)
{
    replaceReference(mpTexture, texture);

    const AutoString path = mpTexture ? mpTexture->getPath() : AutoString();
    setExtraData(path.c_str(), path.empty() ? 0 : path.size() + 1);
}

void AnimResource::makePropertyList(PropertyList& list)
{
    SequencerResourceIntermediate::makePropertyList(list);
    list.add(new IndirectResourceProperty("texture", this, &AnimResource::getTexture, &AnimResource::setTexture));
}
