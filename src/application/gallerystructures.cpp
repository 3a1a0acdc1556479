#include "application/gallerystructures.h"

#include "reflection/property.h"
#include "ui/uicolorcontrol.h"
#include "ui/uicontrolarray.h"

#include <iterator>

GalleryStructures::GalleryStructures(const char* caption) : UIGroup(caption)
{
    setAttribute(RowElement);
    addControls(mValues, false);
}

GalleryStructures::GalleryStructures(const char* caption, GalleryStructures& other) : UIGroup(caption)
{
    setAttribute(RowElement);
    addControls(other.mValues, true);
}

void GalleryStructures::addControls(sValues& values, bool disable)
{
    addControl<UISizeControl>("Size", values.size, disable);
    addControl<UIPointControl>("Point", values.point, disable);
    addControl<UITexcoordControl>("Texcoord", values.texcoord, disable);
    addControl<UIVectorControl>("Vector", values.vector, disable);
    addControl<UIRectControl>("Rect", values.rect, disable);
    addControl<UIColorControl>("Color", values.color, disable);
    addControl<UIColorControl>("ColorF", values.colorF, disable);
    add(new UIControlArray(new ReferenceProperty<short>("Numbers", values.numbers, std::size(values.numbers)),
                           disable));
}

template <typename Control, typename T>
void GalleryStructures::addControl(const char* name, T& value, bool disable)
{
    add(new Control(new ReferenceProperty<T>(name, &value), disable));
}
