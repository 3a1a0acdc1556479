#include "ui/uinumericcontrol.h"

#include "foundation/minmax.h"
#include "reflection/typeset.h"
#include "reflection/valuetext.h"
#include "ui/uikeycode.h"

#include <cstdlib>
#include <limits>

namespace
{
// Everything that is one number, and by way of their texts bool and resources.
constexpr unsigned int AcceptedTypes = typeRange(1, 11) | typeRange(18, 18) | typeRange(22, 22);

constexpr double RealStep = 0.1;

struct sLimits
{
    uNumeric lower;
    uNumeric upper;
};

sLimits makeLimits(const PropertyBase* property)
{
    sLimits limits;
    const auto take = [&limits]<typename T>()
    {
        if constexpr (std::is_same_v<T, sFixed>)
            limits = {uNumeric(sFixed::Min), uNumeric(sFixed::Max)};
        else if constexpr (std::is_arithmetic_v<T>)
            limits = {uNumeric(std::numeric_limits<T>::lowest()), uNumeric(std::numeric_limits<T>::max())};
    };
    visitValueType(ValueTypes{}, property->getType(), take);
    return limits;
}

// On purpose: in this order, and with the smaller of the one and the larger of the other, every number goes to the
// upper limit. Only limits that stand the other way round let it step.
template <typename T>
T limit(T value, T lower, T upper)
{
    return maximum(minimum(value, lower), upper);
}

template <typename T>
double toDouble(uNumeric value)
{
    if constexpr (std::is_same_v<T, sFixed>)
        return static_cast<double>(static_cast<float>(value.get<T>()));
    else
        return static_cast<double>(value.get<T>());
}

// By one, up or down; the ends of the type meet.
long long step(unsigned long long value, bool up)
{
    return static_cast<long long>(up ? value + 1 : value - 1);
}
}

UINumericControl::UINumericControl(PropertyBase* property, bool disable, unsigned int index)
    : UINumericControl(property, makeLimits(property).lower, makeLimits(property).upper, disable, index)
{
}

UINumericControl::UINumericControl(PropertyBase* property, uNumeric minimum, uNumeric maximum, bool disable,
                                   unsigned int index)
    : UITextControl(property, disable, index), mLower(minimum), mUpper(maximum)
{
    requireType(AcceptedTypes, "Invalid property type.");
}

// A step is an edit of its own, so that who watches the edits hears of each.
void UINumericControl::eventKeyDown(unsigned int keyCode, unsigned int combinationKey)
{
    if (keyCode != UIKeyCode::UpArrow && keyCode != UIKeyCode::DownArrow)
    {
        UITextControl::eventKeyDown(keyCode, combinationKey);
        return;
    }
    if (!isEditing())
        return;
    setEditText(makeStepped(keyCode == UIKeyCode::UpArrow));
    apply();
    sendMessage(UIEndEditMessage());
    sendMessage(UIBeginEditMessage());
}

// Steps what the property holds, not what has been typed.
AutoString UINumericControl::makeStepped(bool up) const
{
    char buffer[ValueTextSize];
    const char* text = getProperty()->getString(buffer, getIndex());
    AutoString result;
    const auto format = [&]<typename T>()
    {
        if constexpr (RealValue<T>)
            result.format("%f", limit(std::strtod(text, nullptr) + (up ? RealStep : -RealStep), toDouble<T>(mLower),
                                      toDouble<T>(mUpper)));
        // On purpose: this type has no limits.
        else if constexpr (std::is_same_v<T, unsigned long long>)
            result.format("%llu", static_cast<T>(step(std::strtoull(text, nullptr, 10), up)));
        else if constexpr (std::is_integral_v<T>)
            result.format("%lld",
                          limit<long long>(step(static_cast<unsigned long long>(std::strtoll(text, nullptr, 10)), up),
                                           mLower.get<T>(), mUpper.get<T>()));
    };
    visitValueType(ValueTypes{}, getProperty()->getType(), format);
    return result;
}
