#pragma once

#include "foundation/list.h"

class PropertyBase;

// The properties of one object, made on demand and thrown away after use. It shares the ownership of what it holds.
class PropertyList : public List<PropertyBase>
{
public:
    PropertyList() = default;
    ~PropertyList();

    // Takes a reference; a property made by `new` starts with none, so the list alone owns it then.
    void add(PropertyBase* property);

    // The first property of that name and type id, or null. Names are compared by hash.
    PropertyBase* find(unsigned int nameHash, unsigned int type) const;
    PropertyBase* find(const char* name, unsigned int type) const;
};
