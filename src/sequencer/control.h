#pragma once

#include "foundation/functor.h"
#include "foundation/utils.h"
#include "reflection/numeric.h"
#include "reflection/property.h"
#include "reflection/valuelabel.h"

#include <memory>

class TypeInfo;

// A handle by which a lane or a widget drives an object from outside: a property with its limits and labels, or a
// named callback. ObjectBase::makeControlList makes controls on demand; who keeps a binding duplicates its control.
class ControlBase
{
public:
    enum class eControlType : unsigned int
    {
        Property = 0,
        Trigger = 1,
        Invalid = 2,
    };

    explicit ControlBase(eControlType type) : mType(type) {}

    ControlBase& operator=(const ControlBase&) = delete;

    // Takes the control out of use: its type matches no lane any more.
    virtual void invalidate() { mType = eControlType::Invalid; }
    virtual ~ControlBase() = default;

    virtual const char* getName() const { return nullptr; }
    virtual unsigned int getNameHash() const { return 0xFFFFFFFF; }

    // A new control of the same kind on the same target; the caller owns it.
    virtual ControlBase* duplicate() const = 0;

    eControlType getType() const { return mType; }

protected:
    ControlBase(const ControlBase&) = default;

private:
    eControlType mType;
};

// A property that may be set, shared with whoever else refers to it. Each form of construction accepts certain types
// of properties and asserts "Invalid property type." on others.
class PropertyControl : public ControlBase
{
public:
    using sMaskInfo = ::sMaskInfo;
    using sEnumInfo = ::sEnumInfo;

    // Any type; the limits are those of the type, as far as lanes know any. A null property gives a nameless control.
    explicit PropertyControl(PropertyBase* property);

    // An object or a resource, to be of class `type`; without limits.
    PropertyControl(PropertyBase* property, const TypeInfo* type);

    // A number between two limits, both included.
    template <typename T>
    requires IntegerValue<T> PropertyControl(PropertyBase* property, T minimum, T maximum)
        : PropertyControl(property, uNumeric(minimum), uNumeric(maximum))
    {
    }
    PropertyControl(PropertyBase* property, sFixed minimum, sFixed maximum);
    PropertyControl(PropertyBase* property, uNumeric minimum, uNumeric maximum);

    // An integer of named bits, or of named values. The table is copied, its names are kept.
    PropertyControl(PropertyBase* property, const sMaskInfo* table, unsigned int count);
    PropertyControl(PropertyBase* property, const sEnumInfo* table, unsigned int count);

    ~PropertyControl() override;

    const char* getName() const override;
    unsigned int getNameHash() const override;
    PropertyControl* duplicate() const override { return new PropertyControl(*this); }

    PropertyBase* getProperty() const { return mpProperty; }
    const sMaskInfo* getMaskInfo() const { return mpMask.get(); }
    const sEnumInfo* getEnumInfo() const { return mpEnum.get(); }
    unsigned int getArrayNum() const { return mArrayNum; }
    uNumeric getMinimum() const { return mMinimum; }
    uNumeric getMaximum() const { return mMaximum; }
    const TypeInfo* getObjectTypeInfo() const { return mpObjectTypeInfo; }

private:
    PropertyControl(const PropertyControl& other);
    PropertyControl(PropertyBase* property, unsigned int acceptedTypes, uNumeric minimum, uNumeric maximum);

    PropertyBase* mpProperty;
    std::unique_ptr<sMaskInfo[]> mpMask;
    std::unique_ptr<sEnumInfo[]> mpEnum;
    unsigned int mArrayNum = 0;
    uNumeric mMinimum;
    uNumeric mMaximum;
    const TypeInfo* mpObjectTypeInfo = nullptr;
};

// The arguments that a trigger can take, in the order of their numbers. Structures are not among them.
using TriggerTypes = TypeList<void, bool, unsigned char, unsigned short, unsigned int, unsigned long long, signed char,
                              short, int, long long, float, double, sFixed>;

// `type` is 129 for the first of TriggerTypes and counts up.
template <typename T>
struct TriggerTraits
{
    static constexpr unsigned int FirstType = 129;

    template <typename... Ts>
    static constexpr unsigned int indexIn(TypeList<Ts...>)
    {
        unsigned int index = 0;
        static_cast<void>(((std::is_same_v<T, Ts> || (++index, false)) || ...));
        return index;
    }

    static constexpr unsigned int type = FirstType + indexIn(TriggerTypes{});
};

// A named callback of an object.
class TriggerControlBase : public ControlBase
{
public:
    const char* getName() const override { return mpName; }
    unsigned int getNameHash() const override { return mNameHash; }
    TriggerControlBase* duplicate() const override = 0;

    // The `type` of TriggerTraits.
    unsigned int getArgumentType() const { return mArgumentType; }

protected:
    // `name` is kept, not copied.
    TriggerControlBase(const char* name, unsigned int argumentType)
        : ControlBase(eControlType::Trigger), mpName(name), mNameHash(Utils::hash(name)), mArgumentType(argumentType)
    {
    }

private:
    const char* mpName;
    unsigned int mNameHash;
    unsigned int mArgumentType;
};

// The callback with its argument; `void` takes none.
template <typename T>
class TriggerControl : public TriggerControlBase
{
public:
    struct sNothing
    {
    };
    using Argument = std::conditional_t<std::is_void_v<T>, sNothing, T>;

    // Owns the functor. A null one, from a pool that is used up, makes a control that does nothing.
    TriggerControl(const char* name, FunctorIntermediate<T, void>* functor)
        : TriggerControlBase(name, TriggerTraits<T>::type), mpFunctor(functor)
    {
    }

    template <typename X, typename Method>
    TriggerControl(const char* name, X* object, Method method)
        : TriggerControl(name, new Functor<X, T, void>(object, method))
    {
    }

    TriggerControl* duplicate() const override
    {
        return new TriggerControl(getName(), mpFunctor ? mpFunctor->duplicate() : nullptr);
    }

    void trigger() requires std::is_void_v<T>
    {
        if (mpFunctor)
            (*mpFunctor)();
    }

    void trigger(Argument argument) requires(!std::is_void_v<T>)
    {
        if (mpFunctor)
            (*mpFunctor)(argument);
    }

private:
    std::unique_ptr<FunctorIntermediate<T, void>> mpFunctor;
};
