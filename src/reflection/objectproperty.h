#pragma once

#include "reflection/objectbase.h"
#include "reflection/property.h"

class TypeInfo;

// A property whose value is another object. A stable object is a part of its owner: loading fills it in place and
// never makes, rebinds or deletes it. A non-stable one is a reference to something with a life of its own: loading
// makes it or finds it among those already read, and binds the pointer.
class ObjectPropertyIntermediate : public TypedProperty<ObjectBase*>
{
public:
    using TypedProperty<ObjectBase*>::TypedProperty;

    const char* getTypeName() const override;

    // The object's own tag content; nothing for a null object.
    void writeUniqueAttributes(XmlWriter* writer) override;
    void readUniqueAttributes(XmlReader* reader) override;

    // The name of the object's class, or "null".
    const char* getString(char* buffer, unsigned int index) const override;

    virtual bool isStableObject() const = 0;

private:
    void readStable(XmlReader* reader);
    void readReference(XmlReader* reader);
};

class ObjectProperty : public ObjectPropertyIntermediate
{
public:
    // An embedded object; stable.
    ObjectProperty(const char* name, ObjectBase* object, unsigned int count = 0);

    // A pointer field. `T` has ObjectBase as its first base.
    template <typename T>
    ObjectProperty(const char* name, T** pointer, bool stable, unsigned int count = 0)
        : ObjectPropertyIntermediate(name, count), mppPointer(reinterpret_cast<ObjectBase**>(pointer)), mStable(stable)
    {
        static_assert(std::is_base_of_v<ObjectBase, T>);
    }

    // An index steps by the size of the root class, so only element 0 means anything for larger classes.
    ObjectBase* get(unsigned int index) const override;

    // Copies the value's contents into a stable object. A non-stable pointer is rebound, and its old object neither
    // released nor deleted.
    void set(ObjectBase* value, unsigned int index) override;

    bool isStableObject() const override { return mStable; }

private:
    ObjectBase* getBase() const;

    ObjectBase* mpObject = nullptr;
    ObjectBase** mppPointer = nullptr;
    bool mStable;
};

// The object is reached through a getter and a setter of its owner; never stable.
class IndirectObjectProperty : public ObjectPropertyIntermediate
{
public:
    // `type`, the class that the owner expects, may be null; nothing is held against it.
    template <typename X>
    IndirectObjectProperty(const char* name, [[maybe_unused]] const TypeInfo* type, X* object,
                           ObjectBase* (X::*getter)() const, void (X::*setter)(ObjectBase*), unsigned int count = 0)
        : ObjectPropertyIntermediate(name, count), mpAccessor(new Accessor<X, ObjectBase*>(object, getter, setter))
    {
    }

    ObjectBase* get(unsigned int index) const override { return mpAccessor->get(index); }
    void set(ObjectBase* value, unsigned int index) override { mpAccessor->set(value, index); }
    unsigned int getIndex() const override { return mpAccessor->getIndex(); }
    void setIndex(unsigned int index) override { mpAccessor->setIndex(index); }
    bool isStableObject() const override { return false; }

private:
    std::unique_ptr<AccessorBase<ObjectBase*>> mpAccessor;
};
