#include "application/galleryvalues.h"

#include "ui/uienumcontrol.h"
#include "ui/uiflagcontrol.h"
#include "ui/uiflaggroupcontrol.h"
#include "ui/uiparametercontrol.h"

#include <iterator>

namespace
{
constexpr unsigned int Whole = UIControl::WholeValue;
constexpr sSize BoxSize{84, 32};

// The first bit belongs to two flags.
constexpr sMaskInfo MaskTable[] = {{"First", 1}, {"Second", 2}, {"Third", 4}, {"First and last", 9}};
constexpr sEnumInfo EnumTable[] = {{"Nothing", 0}, {"Something", 1}, {"All", 2}};

template <typename T>
PropertyBase* makeProperty(const char* name, T& value)
{
    return new ReferenceProperty<T>(name, &value);
}
}

GalleryValues::GalleryValues(const char* caption) : UIGroup(caption)
{
    setAttribute(RowElement);
    addControls(mValues, false);
}

GalleryValues::GalleryValues(const char* caption, GalleryValues& other) : UIGroup(caption)
{
    setAttribute(RowElement);
    addControls(other.mValues, true);
}

void GalleryValues::addControls(sValues& values, bool disable)
{
    addParameter("s8", values.s8, disable);
    addParameter("s16", values.s16, disable);
    addParameter("s32", values.s32, disable);
    addParameter("s64", values.s64, disable);
    addParameter("u8", values.u8, disable);
    addParameter("u16", values.u16, disable);
    addParameter("u32", values.u32, disable);
    addParameter("u64", values.u64, disable);
    addParameter("f32", values.f32, disable);
    addParameter("f64", values.f64, disable);
    addParameter("fixed", values.fixed, disable);
    addParameter("string", values.text, disable);

    PropertyBase* array = new ReferenceProperty<short>("Array", values.array, std::size(values.array));
    for (unsigned int index = 0; index < std::size(values.array); ++index)
        add(new UIParameterControl(array, disable, index));

    add(new UIFlagControl(makeProperty("bool", values.flag), UIFlagControl::WholeMask, disable, Whole));
    add(new UIEnumControl(makeProperty("Choice", values.choice), EnumTable, std::size(EnumTable), disable, Whole));
    add(new UIEnumControl(makeProperty("No choice", values.noChoice), EnumTable, std::size(EnumTable), disable, Whole));
    add(new UIEnumControl(makeProperty(nullptr, values.choice), EnumTable, std::size(EnumTable), disable, Whole));
    add(new UIFlagGroupControl(makeProperty("Flags", values.mask), MaskTable, std::size(MaskTable), disable, Whole));
}

template <typename T>
void GalleryValues::addParameter(const char* name, T& value, bool disable)
{
    UIBase* control = new UIParameterControl(makeProperty(name, value), disable, Whole);
    control->setSize(BoxSize);
    add(control);
}
