#include "ui/uicontrolarray.h"

#include "reflection/property.h"
#include "ui/uicolor.h"
#include "ui/uicolorcontrol.h"
#include "ui/uiform.h"
#include "ui/uigroupform.h"
#include "ui/uiobjectcontrol.h"
#include "ui/uipainter.h"
#include "ui/uiparametercontrol.h"

#include <algorithm>

namespace
{
constexpr sSize MinimumSize{64, 32};

template <typename Control>
UIBase* make(PropertyBase* property, bool disable, unsigned int index)
{
    return new Control(property, disable, index);
}

// The types whose elements are no single number or text.
struct sElementRow
{
    unsigned int type;
    UIBase* (*make)(PropertyBase* property, bool disable, unsigned int index);
};

constexpr sElementRow ElementTable[] = {
    {ValueTraits<sSize>::type, make<UISizeControl>},     {ValueTraits<sPoint>::type, make<UIPointControl>},
    {ValueTraits<sRect>::type, make<UIRectControl>},     {ValueTraits<sColor>::type, make<UIColorControl>},
    {ValueTraits<sColorF>::type, make<UIColorControl>},  {ValueTraits<sTexcoord>::type, make<UITexcoordControl>},
    {ValueTraits<sVector>::type, make<UIVectorControl>}, {ValueTraits<ObjectBase*>::type, make<UIObjectControl>},
};
}

UIControlArray::UIControlArray(PropertyBase* property, bool disable) : UIBase(RowElement), mpProperty(property)
{
    if (property->getType() == ValueTraits<ResourceBase*>::type)
        dev_assert("Not support resource array.", __FILE__, __LINE__);
    mpProperty->addRef();
    if (disable)
        UIBase::disable();
    setMinimumSize(MinimumSize);
    setSize(MinimumSize);
}

UIControlArray::~UIControlArray()
{
    mpProperty->release();
}

void UIControlArray::eventSize()
{
    if (!mpForm || mCount != mpProperty->getCount())
        createArray();
    UIGroupForm::fit(*this, *mpForm);
}

void UIControlArray::eventPaint(UIPainter* painter)
{
    if (!mpProperty->getName())
        dev_assert("Nameless property.", __FILE__, __LINE__);
    painter->drawGroup(getOwnRegion(), mpProperty->getName(), UIPainter::getColors().mFontColor);
}

void UIControlArray::createArray()
{
    removeChildren();
    mpForm = new UIForm(UIForm::FlowLayout);
    add(mpForm);
    mCount = mpProperty->getCount();
    for (unsigned int index = 0; index < std::max(mCount, 1u); ++index)
        mpForm->addClient(makeElement(index));
}

UIBase* UIControlArray::makeElement(unsigned int index) const
{
    for (const sElementRow& row : ElementTable)
        if (row.type == mpProperty->getType())
            return row.make(mpProperty, !isEnabled(), index);
    return new UIParameterControl(mpProperty, !isEnabled(), index);
}
