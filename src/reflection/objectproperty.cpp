#include "reflection/objectproperty.h"

#include "io/xmlreader.h"
#include "reflection/objecttag.h"

const char* ObjectPropertyIntermediate::getTypeName() const
{
    return ValueTraits<ObjectBase*>::name;
}

void ObjectPropertyIntermediate::writeUniqueAttributes(XmlWriter* writer)
{
    if (ObjectBase* object = get(CurrentElement))
        object->serialize(writer, isStableObject(), 0);
}

void ObjectPropertyIntermediate::readUniqueAttributes(XmlReader* reader)
{
    if (!AutoString::isEqual(reader->getAttributeText("stable"), isStableObject() ? "true" : "false"))
        DEV_TRACE("%s stability missmatch.\n", getName());
    else if (isStableObject())
        readStable(reader);
    else
        readReference(reader);
}

void ObjectPropertyIntermediate::readStable(XmlReader* reader)
{
    ObjectBase* object = get(CurrentElement);
    if (!object || !AutoString::isEqual(reader->getAttributeText("typeinfo"), object->getTypeInfo()->getName()))
        DEV_TRACE("%s typeinfo missmatch.\n", getName());
    else
        object->deserialize(reader);
}

void ObjectPropertyIntermediate::readReference(XmlReader* reader)
{
    const unsigned int id = readIdentity(reader);
    if (!id)
    {
        DEV_TRACE("%s id not found.\n", getName());
        return;
    }

    // The contents stand in the first tag of an object, which has been read by now.
    if (ObjectBase* known = reader->findObject(id))
    {
        set(known, CurrentElement);
        return;
    }

    if (!reader->claimRoom())
        return;
    ObjectBase* object = makeNamedInstance(reader);
    if (!object)
    {
        DEV_TRACE("%s typeinfo not found.\n", getName());
        return;
    }

    // Registered first, so that a cycle of references closes on the object being read.
    reader->registerObject(object, id);
    set(object, CurrentElement);
    object->deserialize(reader);
}

const char* ObjectPropertyIntermediate::getString(char*, unsigned int index) const
{
    const ObjectBase* object = get(index);
    return object ? object->getTypeInfo()->getName() : "null";
}

ObjectProperty::ObjectProperty(const char* name, ObjectBase* object, unsigned int count)
    : ObjectPropertyIntermediate(name, count), mpObject(object), mStable(true)
{
}

ObjectBase* ObjectProperty::getBase() const
{
    if (mpObject)
        return mpObject;
    return mppPointer ? *mppPointer : nullptr;
}

ObjectBase* ObjectProperty::get(unsigned int index) const
{
    ObjectBase* base = getBase();
    return base ? base + resolveIndex(index) : nullptr;
}

void ObjectProperty::set(ObjectBase* value, unsigned int index)
{
    if (!mStable)
        *mppPointer = value;
    else if (ObjectBase* object = getBase(); object && value)
        object->copyProperties(value + resolveIndex(index));
}
