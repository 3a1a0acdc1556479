#include "foundation/utils.h"
#include "resource/resourcebase.h"
#include "sequencer/control.h"
#include "ui/uicolorcontrol.h"
#include "ui/uienumcontrol.h"
#include "ui/uiflagcontrol.h"
#include "ui/uiflaggroupcontrol.h"
#include "ui/uiparametercontrol.h"
#include "ui/uiresourcecontrol.h"
#include "ui/uitriggercontrol.h"

namespace
{
constexpr bool Disable = false;
constexpr unsigned int Index = UIControl::WholeValue;

template <typename T>
UIBase* makeFromValue(const PropertyControl& control)
{
    PropertyBase* property = control.getProperty();
    if constexpr (std::is_same_v<T, bool>)
        return new UIFlagControl(property, UIFlagControl::WholeMask, Disable, Index);
    else if constexpr (std::is_same_v<T, sColor> || std::is_same_v<T, sColorF>)
        return new UIColorControl(property, Disable, Index);
    else if constexpr (CompositeValue<T>)
        return new UICompositeControl<T>(property, Disable, Index);
    else
        return new UIParameterControl(property, control.getMinimum(), control.getMaximum(), Disable, Index);
}

// The class may be what a document says; without one of resources there is nothing to pick from.
UIBase* makeFromResource(const PropertyControl& control)
{
    const TypeInfo* type = control.getObjectTypeInfo();
    if (!type || !type->isDerivedFrom(ResourceBase::getStaticTypeInfo()))
        return nullptr;
    return new UIResourceControl(control.getProperty(), type, Disable, Index);
}

UIBase* makeFromType(const PropertyControl& control)
{
    PropertyBase* property = control.getProperty();
    const unsigned int type = property->getType();
    if (type == PropertyBase::getPropertyType<AutoString>())
        return new UITextControl(property, Disable, Index);
    if (type == PropertyBase::getPropertyType<ResourceBase*>())
        return makeFromResource(control);

    UIBase* element = nullptr;
    visitValueType(ValueTypes{}, type, [&]<typename T>() { element = makeFromValue<T>(control); });
    return element;
}

UIBase* makeFromProperty(const PropertyControl& control)
{
    PropertyBase* property = control.getProperty();
    if (!property)
        return nullptr;
    if (const sMaskInfo* table = control.getMaskInfo())
        return new UIFlagGroupControl(property, table, control.getArrayNum(), Disable, Index);
    if (const sEnumInfo* table = control.getEnumInfo())
        return new UIEnumControl(property, table, control.getArrayNum(), Disable, Index);
    return makeFromType(control);
}
}

// A control that has been taken out of use may be of either kind, and has no widget.
UIBase* Utils::makeUIFromControl(ControlBase* control)
{
    switch (control->getType())
    {
    case ControlBase::eControlType::Property: return makeFromProperty(*static_cast<PropertyControl*>(control));
    case ControlBase::eControlType::Trigger:
        return new UITriggerControl(static_cast<TriggerControlBase*>(control), Disable);
    case ControlBase::eControlType::Invalid: break;
    }
    return nullptr;
}
