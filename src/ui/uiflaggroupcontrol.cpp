#include "ui/uiflaggroupcontrol.h"

#include "reflection/typeset.h"
#include "ui/uiflagcontrol.h"
#include "ui/uiform.h"
#include "ui/uigroupform.h"

#include <algorithm>

namespace
{
constexpr unsigned int AcceptedTypes = typeRange(2, 11) | typeRange(18, 18);
constexpr sSize MinimumSize{64, 32};
}

UIFlagGroupControl::UIFlagGroupControl(PropertyBase* property, const sMaskInfo* table, unsigned int count, bool disable,
                                       unsigned int index)
    : UIControl(property, disable, index, RowElement), mpForm(new UIForm(UIForm::FlowLayout))
{
    requireType(AcceptedTypes);
    setMinimumSize(MinimumSize);
    unsigned int widest = 0;
    for (unsigned int i = 0; i < count; ++i)
    {
        PropertyBase* flag = new IndirectProperty<unsigned int>(table[i].name, this, &UIFlagGroupControl::getNumeric,
                                                                &UIFlagGroupControl::setNumeric);
        UIBase* control = new UIFlagControl(flag, table[i].mask, disable, WholeValue);
        widest = std::max(widest, control->getSize().width);
        mpForm->addClient(control);
    }
    add(mpForm);
    setDefaultSize();
    setSize({std::max(getSize().width, UIGroupForm::getFrameWidth(widest)), getSize().height});
}

unsigned int UIFlagGroupControl::getNumeric() const
{
    return static_cast<unsigned int>(getProperty()->getNumeric(getIndex()));
}

void UIFlagGroupControl::setNumeric(unsigned int value)
{
    getProperty()->setNumeric(value, getIndex());
}

void UIFlagGroupControl::eventSize()
{
    UIGroupForm::fit(*this, *mpForm);
}

void UIFlagGroupControl::eventPaint(UIPainter* painter)
{
    paintGroup(painter);
}
