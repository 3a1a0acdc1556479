#pragma once

#include "reflection/typeinfo.h"

#include <type_traits>

// A record whose newInstance() makes an X, through X's own operator new and with its default arguments.
template <typename X>
class UniqueTypeInfo : public TypeInfo
{
public:
    UniqueTypeInfo(const char* name, const char* baseName, unsigned int attribute = 0)
        : TypeInfo(name, baseName, attribute)
    {
    }

    ObjectBase* newInstance() const override { return new X; }
};

// Of an abstract class and of a singleton nothing makes an instance.
template <typename X, eTypeAttribute Attribute>
using TypeRecord = std::conditional_t<Attribute == eTypeAttribute::None, UniqueTypeInfo<X>, TypeInfo>;

// Stands first in a class derived from ObjectBase and declares what answers for its record.
#define REFLECTED(Class)                                                                                               \
public:                                                                                                                \
    static TypeInfo* getStaticTypeInfo();                                                                              \
    const TypeInfo* getTypeInfo() const override;                                                                      \
                                                                                                                       \
private:

// Stands once in the class's source file and registers the record, under the class's name, below the named parent.
// The bodies stand here and not in the class: they may be seen only behind the specialisation.
#define REFLECT(Class, attribute, baseName)                                                                            \
    template <typename X>                                                                                              \
    struct ObjectTypeInfo##Class                                                                                       \
    {                                                                                                                  \
        static TypeRecord<X, attribute> mUniqueTypeInfo;                                                               \
    };                                                                                                                 \
    template <>                                                                                                        \
    TypeRecord<Class, attribute> ObjectTypeInfo##Class<Class>::mUniqueTypeInfo(#Class, baseName,                       \
                                                                               static_cast<unsigned int>(attribute));  \
    TypeInfo* Class::getStaticTypeInfo()                                                                               \
    {                                                                                                                  \
        return &ObjectTypeInfo##Class<Class>::mUniqueTypeInfo;                                                         \
    }                                                                                                                  \
    const TypeInfo* Class::getTypeInfo() const                                                                         \
    {                                                                                                                  \
        return getStaticTypeInfo();                                                                                    \
    }                                                                                                                  \
    static_assert(true)
