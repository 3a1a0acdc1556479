#pragma once

#include "reflection/typeinfo.h"

class ControlBase;
class PropertyList;
class UIBase;
class XmlReader;
class XmlWriter;
template <typename T>
class List;

// The root of everything that can be saved, loaded, browsed and edited generically. An object names its record and
// lists its state as properties on request; everything generic is written once against that list.
class ObjectBase
{
public:
    virtual ~ObjectBase() = default;
    virtual const TypeInfo* getTypeInfo() const;

    // Appends the properties of this object, those of its base class first.
    virtual void makePropertyList(PropertyList& list);

    // Appends controls, each made by `new` and owned by the caller.
    virtual void makeControlList(List<ControlBase>& list);

    // Appends ready-made elements that edit this object, each made by `new` and owned by the caller.
    virtual void makeUIList(List<UIBase>& list);

    // Writes this object into the tag that is open in `writer`. `index` is the place in a list, for those who care.
    virtual void serialize(XmlWriter* writer, bool stable, unsigned int index);

    // Reads this object from the tag that is open in `reader`. What does not match is traced and keeps its value.
    virtual void deserialize(XmlReader* reader);

    static TypeInfo* getStaticTypeInfo() { return &mUniqueTypeInfo; }

    // Writes each property as a child tag.
    void serializeProperties(XmlWriter* writer);

    // Copies the integers and objects that `source` and this object have in common by name and type.
    void copyProperties(ObjectBase* source);

    // This object as a T when its record is derived from T's, else null: the only tested downcast.
    template <typename T>
    T* cast()
    {
        return getTypeInfo()->isDerivedFrom(T::getStaticTypeInfo()) ? static_cast<T*>(this) : nullptr;
    }

    template <typename T>
    const T* cast() const
    {
        return getTypeInfo()->isDerivedFrom(T::getStaticTypeInfo()) ? static_cast<const T*>(this) : nullptr;
    }

    static TypeInfo mUniqueTypeInfo;
};
