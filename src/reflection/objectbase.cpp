#include "reflection/objectbase.h"

#include "foundation/dev.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objecttag.h"
#include "reflection/propertylist.h"

namespace
{
// On purpose: only integers and objects are copied, what embedded stable objects need; this is no general clone.
using CopiedTypes = TypeList<signed char, short, int, long long, unsigned char, unsigned short, unsigned int,
                             unsigned long long, ObjectBase*>;

// What assignment means is the target's affair.
void copyValue(PropertyBase* target, const PropertyBase* source)
{
    visitValueType(CopiedTypes{}, source->getType(),
                   [&]<typename T>() { target->setByType<T>(source->getByType<T>()); });
}
}

TypeInfo ObjectBase::mUniqueTypeInfo("ObjectBase", nullptr, 0);

const TypeInfo* ObjectBase::getTypeInfo() const
{
    return &mUniqueTypeInfo;
}

void ObjectBase::makePropertyList(PropertyList&)
{
}

void ObjectBase::makeControlList(List<ControlBase>&)
{
}

void ObjectBase::serialize(XmlWriter* writer, bool stable, unsigned int)
{
    const unsigned int id = writeIdentity(writer, this);
    if (writeStability(writer, this, id, stable))
        serializeProperties(writer);
}

void ObjectBase::deserialize(XmlReader* reader)
{
    PropertyList list;
    makePropertyList(list);
    for (PropertyBase* property : list)
    {
        if (!reader->openTag(property->getName()))
        {
            DEV_TRACE("Property %s not found.\n", property->getName());
            continue;
        }
        property->deserialize(reader);
        reader->closeTag();
    }
}

void ObjectBase::serializeProperties(XmlWriter* writer)
{
    PropertyList list;
    makePropertyList(list);
    for (PropertyBase* property : list)
    {
        writer->openTag(property->getName());
        property->serialize(writer);
        writer->closeTag();
    }
}

void ObjectBase::copyProperties(ObjectBase* source)
{
    PropertyList targets;
    makePropertyList(targets);
    PropertyList sources;
    source->makePropertyList(sources);

    for (const PropertyBase* property : sources)
    {
        if (PropertyBase* target = targets.find(property->getNameHash(), property->getType()))
            copyValue(target, property);
    }
}
