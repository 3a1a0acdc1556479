#include "reflection/resourceproperty.h"

#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "resource/resourcebase.h"
#include "resource/resourcesystem.h"

#include <cstring>

namespace
{
bool isSaved(const char* path)
{
    return std::strncmp(path, "intermediate/", 13) == 0 || std::strncmp(path, "native/", 7) == 0;
}

// The path without its first directory and its extension; null for a resource that was never saved.
AutoString makeLogicalName(const ResourceBase& resource)
{
    const char* path = resource.getPath().c_str();
    if (!path || !isSaved(path))
        return AutoString::Null;

    AutoString name(std::strchr(path, '/') + 1);
    if (const char* extension = resource.getExtension())
    {
        const unsigned int dot = name.findLast(AutoString('.') + extension);
        if (dot != AutoString::NotFound)
            name = name.substr(0, dot);
    }
    return name;
}

// A new reference, or null with a trace.
ResourceBase* loadNamed(const char* path, const TypeInfo* type)
{
    ResourceSystem* system = ResourceSystem::getInstance();
    ResourceBase* resource = system ? system->createResource(path, type) : nullptr;

    // What has no path was made for want of a file.
    if (resource && resource->getPath())
        return resource;

    DEV_TRACE("Resource path=\"%s\" not found.\n", path);
    if (resource)
        resource->release();
    return nullptr;
}
}

const char* ResourcePropertyIntermediate::getTypeName() const
{
    return ValueTraits<ResourceBase*>::name;
}

void ResourcePropertyIntermediate::writeUniqueAttributes(XmlWriter* writer)
{
    const ResourceBase* resource = get(CurrentElement);
    if (!resource)
        return;

    // A name that the reader refuses would make the whole document unreadable.
    const AutoString name = makeLogicalName(*resource);
    if (!XmlReader::isValue(name))
    {
        DEV_TRACE("%s resource without a name to save.\n", getName());
        return;
    }
    writer->addAttribute("typeinfo", resource->getTypeInfo()->getName());
    writer->addAttribute("path", name.c_str());
}

void ResourcePropertyIntermediate::readUniqueAttributes(XmlReader* reader)
{
    const AutoString path = reader->getAttribute("path");
    if (!path)
        return;

    const TypeInfo* type = reader->findTypeInfo();
    if (!type)
    {
        DEV_TRACE("%s typeinfo not found.\n", getName());
        return;
    }

    ResourceBase* resource = loadNamed(path.c_str(), type);
    if (!resource)
        return;
    set(resource, CurrentElement);
    resource->release();
}

const char* ResourcePropertyIntermediate::getString(char*, unsigned int index) const
{
    const ResourceBase* resource = get(index);
    return resource ? resource->getPath().c_str() : "null";
}

ResourceProperty::ResourceProperty(const char* name, ResourceBase** pointer, unsigned int count)
    : ResourcePropertyIntermediate(name, count), mppPointer(pointer)
{
}

ResourceBase* ResourceProperty::get(unsigned int) const
{
    return mppPointer ? *mppPointer : nullptr;
}

void ResourceProperty::set(ResourceBase* value, unsigned int)
{
    if (*mppPointer == value)
        return;
    if (*mppPointer)
        (*mppPointer)->release();
    *mppPointer = value;
    if (value)
        value->addRef();
}

void IndirectResourceProperty::set(ResourceBase* value, unsigned int index)
{
    if (mpAccessor->get(index) != value)
        mpAccessor->set(value, index);
}
