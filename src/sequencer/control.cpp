#include "sequencer/control.h"

#include "reflection/typeset.h"

#include <algorithm>
#include <limits>

namespace
{
constexpr unsigned int AnyType = typeRange(1, 22);
constexpr unsigned int IntegerTypes = typeRange(1, 9);
constexpr unsigned int NumberTypes = typeRange(1, 11) | typeRange(18, 18);
constexpr unsigned int FixedType = typeRange(18, 18);
constexpr unsigned int ObjectTypes = typeRange(21, 22);

struct sLimits
{
    uNumeric minimum;
    uNumeric maximum;
};

// The range of a type, of which widgets that step a lane's value show the oddities.
template <typename T>
sLimits makeLimits()
{
    using Limits = std::numeric_limits<T>;

    // On purpose: the two stand the other way round, so that nothing falls between them.
    if constexpr (std::is_same_v<T, int> || std::is_same_v<T, long long>)
        return {uNumeric(Limits::max()), uNumeric(Limits::min())};
    // On purpose: one value is all there is.
    else if constexpr (std::is_same_v<T, sFixed>)
        return {uNumeric(sFixed::Min), uNumeric(sFixed::Min)};
    else if constexpr (std::is_same_v<T, bool> || CompositeValue<T>)
        return makeLimits<long long>();
    else
        return {uNumeric(Limits::lowest()), uNumeric(Limits::max())};
}

sLimits makeLimits(const PropertyBase* property)
{
    sLimits limits = makeLimits<long long>();
    if (property)
        visitValueType(ValueTypes{}, property->getType(), [&]<typename T>() { limits = makeLimits<T>(); });
    return limits;
}

template <typename Info>
std::unique_ptr<Info[]> copyTable(const Info* table, unsigned int count)
{
    if (!table)
        return nullptr;
    std::unique_ptr<Info[]> copy(new Info[count]);
    if (!copy)
        dev_assert("Not enough memory.", __FILE__, __LINE__);
    std::copy_n(table, count, copy.get());
    return copy;
}
}

PropertyControl::PropertyControl(PropertyBase* property, unsigned int acceptedTypes, uNumeric minimum, uNumeric maximum)
    : ControlBase(eControlType::Property), mpProperty(property), mMinimum(minimum), mMaximum(maximum)
{
    if (!property)
        return;
    if (!containsType(acceptedTypes, property->getType()))
        dev_assert("Invalid property type.", __FILE__, __LINE__);
    property->addRef();
}

PropertyControl::PropertyControl(PropertyBase* property)
    : PropertyControl(property, AnyType, makeLimits(property).minimum, makeLimits(property).maximum)
{
}

PropertyControl::PropertyControl(PropertyBase* property, const TypeInfo* type)
    : PropertyControl(property, ObjectTypes, makeLimits(nullptr).minimum, makeLimits(nullptr).maximum)
{
    mpObjectTypeInfo = type;
}

PropertyControl::PropertyControl(PropertyBase* property, sFixed minimum, sFixed maximum)
    : PropertyControl(property, FixedType, uNumeric(minimum), uNumeric(maximum))
{
}

PropertyControl::PropertyControl(PropertyBase* property, uNumeric minimum, uNumeric maximum)
    : PropertyControl(property, NumberTypes, minimum, maximum)
{
}

PropertyControl::PropertyControl(PropertyBase* property, const sMaskInfo* table, unsigned int count)
    : PropertyControl(property, IntegerTypes, uNumeric(0u), uNumeric(~0u))
{
    mpMask = copyTable(table, count);
    mArrayNum = count;
}

PropertyControl::PropertyControl(PropertyBase* property, const sEnumInfo* table, unsigned int count)
    : PropertyControl(property, IntegerTypes, uNumeric(0u), uNumeric(~0u))
{
    mpEnum = copyTable(table, count);
    mArrayNum = count;
}

PropertyControl::PropertyControl(const PropertyControl& other)
    : ControlBase(other),
      mpProperty(other.mpProperty),
      mpMask(copyTable(other.mpMask.get(), other.mArrayNum)),
      mpEnum(copyTable(other.mpEnum.get(), other.mArrayNum)),
      mArrayNum(other.mArrayNum),
      mMinimum(other.mMinimum),
      mMaximum(other.mMaximum),
      mpObjectTypeInfo(other.mpObjectTypeInfo)
{
    if (mpProperty)
        mpProperty->addRef();
}

PropertyControl::~PropertyControl()
{
    if (mpProperty)
        mpProperty->release();
}

const char* PropertyControl::getName() const
{
    return mpProperty ? mpProperty->getName() : ControlBase::getName();
}

unsigned int PropertyControl::getNameHash() const
{
    return mpProperty ? mpProperty->getNameHash() : ControlBase::getNameHash();
}
