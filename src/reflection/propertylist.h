#pragma once

#include "foundation/list.h"
#include "reflection/property.h"

// The properties of one object, made on demand and thrown away after use. It shares the ownership of what it holds.
class PropertyList : public List<PropertyBase>
{
public:
    PropertyList() = default;
    ~PropertyList();

    // Takes a reference; a property made by `new` starts with none, so the list alone owns it then.
    void add(PropertyBase* property);

    // The common cases of add(), with the type deduced. `name` is kept, not copied.
    template <typename T>
    void addReference(const char* name, T& value)
    {
        add(new ReferenceProperty<T>(name, &value));
    }

    template <typename T, unsigned int Count>
    void addReference(const char* name, T (&values)[Count])
    {
        add(new ReferenceProperty<T>(name, values, Count));
    }

    template <typename X, typename T>
    void addIndirect(const char* name, X* object, T (X::*getter)() const, void (X::*setter)(T))
    {
        add(new IndirectProperty<T>(name, object, getter, setter));
    }

    // The first property of that name and type id, or null. Names are compared by hash.
    PropertyBase* find(unsigned int nameHash, unsigned int type) const;
    PropertyBase* find(const char* name, unsigned int type) const;
};
