#pragma once

#include "reflection/property.h"

// A property whose value is a shared resource. A document holds its class and its logical name, from which the
// resource system finds the file again.
class ResourcePropertyIntermediate : public TypedProperty<ResourceBase*>
{
public:
    using TypedProperty<ResourceBase*>::TypedProperty;

    const char* getTypeName() const override;

    // Writes nothing for a null resource, nor, with a trace, for one that could not be found by its name again.
    void writeUniqueAttributes(XmlWriter* writer) override;

    // Loads the resource at once. Leaves the field alone when the tag names none or it cannot be had.
    void readUniqueAttributes(XmlReader* reader) override;

    // The resource's path, or "null".
    const char* getString(char* buffer, unsigned int index) const override;
};

// A pointer field, which owns one reference of what it points at.
class ResourceProperty : public ResourcePropertyIntermediate
{
public:
    ResourceProperty(const char* name, ResourceBase** pointer, unsigned int count = 0);

    // On purpose: the index means nothing here; there is one pointer.
    ResourceBase* get(unsigned int index) const override;
    void set(ResourceBase* value, unsigned int index) override;

private:
    ResourceBase** mppPointer;
};

// The resource is reached through a getter and a setter of its owner, which keeps the references.
class IndirectResourceProperty : public ResourcePropertyIntermediate
{
public:
    template <typename X>
    IndirectResourceProperty(const char* name, X* object, ResourceBase* (X::*getter)() const,
                             void (X::*setter)(ResourceBase*), unsigned int count = 0)
        : ResourcePropertyIntermediate(name, count), mpAccessor(new Accessor<X, ResourceBase*>(object, getter, setter))
    {
    }

    ResourceBase* get(unsigned int index) const override { return mpAccessor->get(index); }

    // Setting what is there already calls no setter.
    void set(ResourceBase* value, unsigned int index) override;

    unsigned int getIndex() const override { return mpAccessor->getIndex(); }
    void setIndex(unsigned int index) override { mpAccessor->setIndex(index); }

private:
    std::unique_ptr<AccessorBase<ResourceBase*>> mpAccessor;
};
