#pragma once

#include "foundation/dev.h"
#include "reflection/accessor.h"
#include "reflection/valuetraits.h"

#include <memory>

class XmlReader;
class XmlWriter;

template <typename T>
class TypedProperty;

// Stands for one field of an object: a name, a type number, a number of elements, and access to the value, which
// stays in its owner. It lives by its reference count, which starts at 0, and must not outlive the field. One
// thread uses it at a time.
class PropertyBase
{
public:
    // As an index: the current element. Every other index names an element directly and is not held against the count.
    static constexpr unsigned int CurrentElement = 0xFFFFFFFF;

    // `name` is kept, not copied. A count of 0 is a plain value, N above 0 an array of N values at the same place.
    PropertyBase(unsigned int type, const char* name, unsigned int count);
    virtual ~PropertyBase() = default;

    PropertyBase(const PropertyBase&) = delete;
    PropertyBase& operator=(const PropertyBase&) = delete;

    virtual const char* getTypeName() const;

    // The value of the current element to and from the attributes of the open tag.
    virtual void writeUniqueAttributes(XmlWriter* writer);
    virtual void readUniqueAttributes(XmlReader* reader);

    virtual unsigned int getIndex() const;

    // Does nothing on a plain value; asserts an index not below the count.
    virtual void setIndex(unsigned int index);

    // The text form, in `buffer` (64 characters at least) or elsewhere: use the result. It is valid as long as the
    // value is neither changed nor destroyed. Null for types that have no text form and for an empty string.
    virtual const char* getString(char* buffer, unsigned int index) const;

    // Always writes to the current element. A text that is no number stores 0.
    virtual void setString(const char* text);

    // The numeric form of bool and the integers, sign extended; all ones for true. Other types answer 0 and ignore it.
    virtual unsigned long long getNumeric(unsigned int index) const;
    virtual void setNumeric(unsigned long long value, unsigned int index);

    unsigned int getType() const { return mType; }
    const char* getName() const { return mpName; }
    unsigned int getNameHash() const;
    unsigned int getCount() const { return mCount; }

    void addRef() { ++mReference; }
    void release();
    unsigned int getReferenceCount() const { return mReference; }

    template <typename T>
    static constexpr unsigned int getPropertyType()
    {
        return ValueTraits<T>::type;
    }

    // The typed access. It converts nothing: `T` must be exactly the type of the property.
    template <typename T>
    T getByType(unsigned int index = CurrentElement) const
    {
        if (mType != getPropertyType<T>())
            dev_assert("Type missmatch", __FILE__, __LINE__);
        return static_cast<const TypedProperty<T>*>(this)->get(index);
    }

    template <typename T>
    void setByType(T value, unsigned int index = CurrentElement)
    {
        if (mType != getPropertyType<T>())
            dev_assert("Type missmatch.", __FILE__, __LINE__);
        static_cast<TypedProperty<T>*>(this)->set(value, index);
    }

    template <typename T>
    operator T() const
    {
        return getByType<T>();
    }

    template <typename T>
    T operator=(T value)
    {
        setByType<T>(value);
        return value;
    }

    // The property to and from its open tag: common attributes, then the value or one child tag for each element.
    // Reading traces what does not fit and leaves the field as it is.
    void writeCommonAttributes(XmlWriter* writer);
    void serialize(XmlWriter* writer);
    void deserialize(XmlReader* reader);

protected:
    unsigned int resolveIndex(unsigned int index) const { return index == CurrentElement ? getIndex() : index; }

private:
    void serializeElements(XmlWriter* writer);
    void deserializeElements(XmlReader* reader);

    unsigned int mType;
    unsigned int mCount;
    unsigned int mIndex = 0;
    const char* mpName;
    unsigned int mReference = 0;
};

// The typed access that getByType and setByType rely on: every property whose number is that of `T` derives from it.
template <typename T>
class TypedProperty : public PropertyBase
{
public:
    TypedProperty(const char* name, unsigned int count) : PropertyBase(getPropertyType<T>(), name, count) {}

    virtual T get(unsigned int index) const = 0;
    virtual void set(T value, unsigned int index) = 0;
};

// The text, numeric and document forms of a plain value or a string.
template <typename T>
class PropertyIntermediate : public TypedProperty<T>
{
public:
    using TypedProperty<T>::TypedProperty;

    const char* getTypeName() const override;
    void writeUniqueAttributes(XmlWriter* writer) override;
    void readUniqueAttributes(XmlReader* reader) override;
    const char* getString(char* buffer, unsigned int index) const override;
    void setString(const char* text) override;
    unsigned long long getNumeric(unsigned int index) const override;
    void setNumeric(unsigned long long value, unsigned int index) override;

    // Where the first element lies; null when the value is reached through operations only.
    virtual T* getPointer() const { return nullptr; }
};

// The value lies at a pointer.
template <typename T>
class ReferenceProperty : public PropertyIntermediate<T>
{
public:
    ReferenceProperty(const char* name, T* pointer, unsigned int count = 0)
        : PropertyIntermediate<T>(name, count), mpPointer(pointer)
    {
    }

    T get(unsigned int index) const override { return mpPointer[this->resolveIndex(index)]; }
    void set(T value, unsigned int index) override { mpPointer[this->resolveIndex(index)] = value; }

    T* getPointer() const override { return mpPointer; }

private:
    T* mpPointer;
};

// The value is reached through a getter and a setter of its owner; it is one value whatever the count says.
template <typename T>
class IndirectProperty : public PropertyIntermediate<T>
{
public:
    template <typename X>
    IndirectProperty(const char* name, X* object, T (X::*getter)() const, void (X::*setter)(T), unsigned int count = 0)
        : PropertyIntermediate<T>(name, count), mpAccessor(new Accessor<X, T>(object, getter, setter))
    {
    }

    T get(unsigned int index) const override { return mpAccessor->get(index); }
    void set(T value, unsigned int index) override { mpAccessor->set(value, index); }

private:
    std::unique_ptr<AccessorBase<T>> mpAccessor;
};
