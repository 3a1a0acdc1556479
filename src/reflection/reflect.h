#pragma once

#include "reflection/typeinfo.h"

// A record whose newInstance() makes an X, through X's own operator new and with its default arguments; an abstract
// class and a singleton make none.
template <typename X, eTypeAttribute Attribute = eTypeAttribute::None>
class UniqueTypeInfo : public TypeInfo
{
public:
    UniqueTypeInfo(const char* name, const char* baseName)
        : TypeInfo(name, baseName, static_cast<unsigned int>(Attribute))
    {
    }

    ObjectBase* newInstance() const override
    {
        if constexpr (Attribute == eTypeAttribute::None)
            return new X;
        else
            return nullptr;
    }
};

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
        static UniqueTypeInfo<X, attribute> mUniqueTypeInfo;                                                           \
    };                                                                                                                 \
    template <>                                                                                                        \
    UniqueTypeInfo<Class, attribute> ObjectTypeInfo##Class<Class>::mUniqueTypeInfo(#Class, baseName);                  \
    TypeInfo* Class::getStaticTypeInfo()                                                                               \
    {                                                                                                                  \
        return &ObjectTypeInfo##Class<Class>::mUniqueTypeInfo;                                                         \
    }                                                                                                                  \
    const TypeInfo* Class::getTypeInfo() const                                                                         \
    {                                                                                                                  \
        return getStaticTypeInfo();                                                                                    \
    }                                                                                                                  \
    static_assert(true)
