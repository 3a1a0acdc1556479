#include "reflection/typeinfo.h"

#include "foundation/autostring.h"
#include "foundation/dev.h"
#include "foundation/utils.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

namespace
{
constexpr std::ptrdiff_t DataBaseCapacity = 0x10000;
constexpr std::ptrdiff_t NameBufferSize = 0x100000;

template <typename T>
T* allocate(std::ptrdiff_t count)
{
    T* array = new (std::nothrow) T[static_cast<std::size_t>(count)];
    if (!array)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    return array;
}
}

// Set before any constructor runs, since the records of other files may come first.
constinit TypeInfo** TypeInfo::mpDataBase = nullptr;
constinit TypeInfo** TypeInfo::mpDataBasePtr = nullptr;
constinit char* TypeInfo::mpNameBuffer = nullptr;
constinit char* TypeInfo::mpNameBufferPtr = nullptr;

TypeInfo::TypeInfo(const char* name, const char* baseName, unsigned int attribute)
    : mID(Utils::hash(name)),
      mpName(nullptr),
      mpBase(nullptr),
      mpOffshoot(nullptr),
      mpLoop(nullptr),
      mBaseID(NoBase),
      mAttribute(attribute)
{
    prepareDataBase(name);
    if (find(mID))
        dev_assert("TypeInfo collision detected.", __FILE__, __LINE__);

    if (baseName)
        attachTo(baseName);
    adopt();

    *mpDataBasePtr++ = this;
    mpName = mpNameBufferPtr;
    mpNameBufferPtr = std::copy_n(name, std::strlen(name) + 1, mpNameBufferPtr);
}

TypeInfo::~TypeInfo()
{
    delete[] mpDataBase;
    delete[] mpNameBuffer;
    mpDataBase = nullptr;
    mpNameBuffer = nullptr;
}

ObjectBase* TypeInfo::newInstance() const
{
    return nullptr;
}

TypeInfo* TypeInfo::find(unsigned int id)
{
    if (!mpDataBase)
        dev_assert("Database is not constructed.", __FILE__, __LINE__);

    for (TypeInfo** record = mpDataBase; record != mpDataBasePtr; ++record)
    {
        if ((*record)->mID == id)
            return *record;
    }
    return nullptr;
}

TypeInfo* TypeInfo::find(const char* name)
{
    TypeInfo* record = find(Utils::hash(name));
    if (record && !AutoString::isEqual(record->mpName, name))
        dev_assert("TypeInfo Collision detected.", __FILE__, __LINE__);
    return record;
}

TypeInfo* TypeInfo::findForeign(const char* name)
{
    TypeInfo* record = find(Utils::hash(name));
    return record && AutoString::isEqual(record->mpName, name) ? record : nullptr;
}

bool TypeInfo::isDerivedFrom(const TypeInfo* other) const
{
    if (!other)
        return false;

    for (const TypeInfo* record = this; record; record = record->mpBase)
    {
        if (record == other)
            return true;
    }
    return false;
}

TypeInfo* TypeInfo::getTypeInfo(unsigned int index)
{
    return mpDataBase[index];
}

unsigned int TypeInfo::getDataBaseSize()
{
    return mpDataBase ? static_cast<unsigned int>(mpDataBasePtr - mpDataBase) : 0;
}

// Makes sure that there is room for one more record of that name.
void TypeInfo::prepareDataBase(const char* name)
{
    if (!mpDataBase)
        mpDataBasePtr = mpDataBase = allocate<TypeInfo*>(DataBaseCapacity);
    if (!mpNameBuffer)
        mpNameBufferPtr = mpNameBuffer = allocate<char>(NameBufferSize);

    if (mpDataBasePtr - mpDataBase >= DataBaseCapacity)
        dev_assert("TypeInfo database overflow.", __FILE__, __LINE__);
    if (mpNameBufferPtr - mpNameBuffer + static_cast<std::ptrdiff_t>(std::strlen(name)) + 1 >= NameBufferSize)
        dev_assert("TypeInfo name buffer overflow.", __FILE__, __LINE__);
}

// A parent that is not there yet is remembered by its id and adopts this record later.
void TypeInfo::attachTo(const char* baseName)
{
    if (TypeInfo* base = find(baseName))
    {
        mBaseID = base->mID;
        base->addOffshoot(this);
    }
    else
    {
        mBaseID = Utils::hash(baseName);
    }
}

// Takes in the records that named this one as their parent before it was there. A record without a parent holds the
// id of the empty name, so no class may have that name.
void TypeInfo::adopt()
{
    for (TypeInfo** record = mpDataBase; record != mpDataBasePtr; ++record)
    {
        if ((*record)->mBaseID != mID)
            continue;
        if ((*record)->mpBase)
            dev_assert("TypeInfo Collision detected.", __FILE__, __LINE__);
        addOffshoot(*record);
    }
}

// Children are listed newest first.
void TypeInfo::addOffshoot(TypeInfo* child)
{
    child->mpBase = this;
    child->mpLoop = mpOffshoot;
    mpOffshoot = child;
}
