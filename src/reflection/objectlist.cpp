#include "reflection/objectlist.h"

#include "foundation/dev.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/objectproperty.h"
#include "reflection/objecttag.h"
#include "reflection/propertylist.h"
#include "reflection/valuetext.h"

#include <cstdlib>

REFLECT(ObjectList, eTypeAttribute::None, "ObjectBase");

namespace
{
constexpr long long NoCount = -1;

// The number of elements that the open tag announces; NoCount when it announces none that can be believed.
long long readCount(const XmlReader* reader)
{
    const char* text = reader->getAttributeText("list_count");
    if (!text)
        return NoCount;

    char* end;
    const long long count = std::strtoll(text, &end, 10);
    const bool believable = end != text && count >= 0 && count <= ObjectList::MaximumLoadedCount;
    return believable ? count : NoCount;
}

// On purpose: the number in the tag is an identity and no type id, so stable contents are never read back.
void readStableElement(XmlReader* reader, ObjectBase* element, unsigned int index)
{
    const char* id = reader->getAttributeText("id");
    if (!id)
        DEV_TRACE("element%d id not found.\n", static_cast<int>(index));
    if (!element)
        DEV_TRACE("Content is NULL.\n");
    else if (id && parseValue<unsigned int>(id) == element->getTypeInfo()->getID())
        element->deserialize(reader);
    else if (id)
        DEV_TRACE("TypeID mismatch.\n");
}

ObjectBase* readNewElement(XmlReader* reader, unsigned int id)
{
    if (!reader->claimRoom())
        return nullptr;
    ObjectBase* object = makeNamedInstance(reader);
    if (!object)
    {
        DEV_TRACE("typeinfo not found.\n");
        return nullptr;
    }
    reader->registerObject(object, id);
    object->deserialize(reader);
    return object;
}

ObjectBase* readOwnedElement(XmlReader* reader, unsigned int index)
{
    const unsigned int id = readIdentity(reader);
    if (!id)
    {
        DEV_TRACE("element%d id not found.\n", static_cast<int>(index));
        return nullptr;
    }

    ObjectBase* known = reader->findObject(id);
    if (!known)
        return readNewElement(reader, id);

    // The contents stand in the first tag of an object. Reading others into it would delete what its lists own,
    // which the reader still knows.
    if (!reader->hasTags())
        known->deserialize(reader);
    return known;
}
}

ObjectList::ObjectList() = default;

ObjectList::~ObjectList()
{
    deleteOwned();
}

void ObjectList::setContentStability(bool stable)
{
    if (!empty())
        dev_assert("List is not empty.", __FILE__, __LINE__);
    mContentStability = stable;
}

void ObjectList::setCount(unsigned int count)
{
    deleteOwned();
    clear();
    reserve(count);
    for (unsigned int i = 0; i < count; ++i)
        addLast(nullptr);
}

ObjectBase* ObjectList::getObject() const
{
    return *getSelected();
}

void ObjectList::setObject(ObjectBase* object)
{
    const Iterator place = getSelected();
    if (*place == object)
        return;
    if (!mContentStability)
        delete *place;
    place.getNode()->set(object);
}

void ObjectList::makePropertyList(PropertyList& list)
{
    list.addIndirect("count", this, &ObjectList::size, &ObjectList::setCount);

    // On purpose: a name that no tag can have. These properties are for display and never go to a document.
    list.addReference("stable contents", mContentStability);

    for (const ObjectBase* object : mObject)
    {
        list.addReference("index", mIndex);
        list.add(new IndirectObjectProperty("member", object ? object->getTypeInfo() : nullptr, this,
                                            &ObjectList::getObject, &ObjectList::setObject));
    }
}

// On purpose: a list that the document knows already writes its elements again, and a null element uses up its number.
void ObjectList::serialize(XmlWriter* writer, bool stable, unsigned int)
{
    char buffer[ValueTextSize];
    const unsigned int id = writeIdentity(writer, this);
    writer->addAttribute("list_count", formatValue(buffer, size()));
    writeStability(writer, this, id, stable);

    unsigned int index = 0;
    for (ObjectBase* object : mObject)
    {
        if (object)
        {
            writer->openTag(formatElementName(buffer, index));
            object->serialize(writer, mContentStability, index);
            writer->closeTag();
        }
        ++index;
    }
}

void ObjectList::deserialize(XmlReader* reader)
{
    if (mContentStability)
        deserializeStable(reader);
    else
        deserializeOwned(reader);
}

void ObjectList::deserializeStable(XmlReader* reader)
{
    if (readCount(reader) != size())
    {
        DEV_TRACE("Object count mismatch.\n");
        return;
    }

    forEachElementTag(reader,
                      [reader](Iterator place, unsigned int index) { readStableElement(reader, *place, index); });
}

void ObjectList::deserializeOwned(XmlReader* reader)
{
    const long long count = readCount(reader);
    if (count == NoCount || !reader->claimPlaces(static_cast<unsigned int>(count)))
    {
        DEV_TRACE("count not found.\n");
        setCount(0);
        return;
    }

    setCount(static_cast<unsigned int>(count));
    forEachElementTag(reader, [reader](Iterator place, unsigned int index)
                      { place.getNode()->set(readOwnedElement(reader, index)); });
}

template <typename Visitor>
void ObjectList::forEachElementTag(XmlReader* reader, Visitor&& visitor)
{
    char buffer[ValueTextSize];
    unsigned int index = 0;
    for (Iterator place = begin(); place != end(); ++place, ++index)
    {
        if (!reader->openTag(formatElementName(buffer, index)))
            continue;
        visitor(place, index);
        reader->closeTag();
    }
}

void ObjectList::deleteOwned()
{
    if (mContentStability)
        return;
    for (ObjectBase* object : mObject)
        delete object;
}

ObjectList::Iterator ObjectList::getSelected() const
{
    if (mIndex >= size())
        dev_assert("Index overflow.", __FILE__, __LINE__);
    return begin() + static_cast<int>(mIndex);
}
