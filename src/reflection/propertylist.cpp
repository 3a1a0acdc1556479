#include "reflection/propertylist.h"

#include "foundation/utils.h"

PropertyList::~PropertyList()
{
    for (PropertyBase* property : *this)
        property->release();
}

void PropertyList::add(PropertyBase* property)
{
    property->addRef();
    addLast(property);
}

PropertyBase* PropertyList::find(unsigned int nameHash, unsigned int type) const
{
    for (PropertyBase* property : *this)
    {
        if (property->getNameHash() == nameHash && property->getType() == type)
            return property;
    }
    return nullptr;
}

PropertyBase* PropertyList::find(const char* name, unsigned int type) const
{
    return find(Utils::hash(name), type);
}
