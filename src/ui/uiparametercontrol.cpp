#include "ui/uiparametercontrol.h"

#include "ui/uipainter.h"

namespace
{
constexpr unsigned int MinimumWidth = 48;

bool isText(const PropertyBase* property)
{
    return property->getType() == PropertyBase::getPropertyType<AutoString>();
}

// Brackets, the largest index and a blank.
unsigned int getIndexWidth(unsigned int count)
{
    unsigned int characters = 4;
    for (; count >= 10; count /= 10)
        ++characters;
    return characters * UIPainter::getFontSize().width;
}
}

UIParameterControl::UIParameterControl(PropertyBase* property, bool disable, unsigned int index)
    : UIParameterControl(property, disable, index,
                         isText(property) ? new UITextControl(property, disable, index)
                                          : new UINumericControl(property, disable, index))
{
}

UIParameterControl::UIParameterControl(PropertyBase* property, uNumeric minimum, uNumeric maximum, bool disable,
                                       unsigned int index)
    : UIParameterControl(property, disable, index,
                         isText(property) ? new UITextControl(property, disable, index)
                                          : new UINumericControl(property, minimum, maximum, disable, index))
{
}

UIParameterControl::UIParameterControl(PropertyBase* property, bool disable, unsigned int index, UIBase* editor)
    : UIControl(property, disable, index), mpEditor(editor)
{
    const unsigned int height = editor->getMinimumSize().height;
    if (index == WholeValue)
        setMinimumSize({MinimumWidth, height + NameHeight});
    else
    {
        mLabelWidth = getIndexWidth(property->getCount());
        setMinimumSize({mLabelWidth + MinimumWidth, height});
    }
    setDefaultSize();
    add(editor);
    align();
}

void UIParameterControl::align()
{
    const sSize& size = getSize();
    const unsigned int top = mLabelWidth ? 0 : NameHeight;
    place(mpEditor, sPoint(static_cast<int>(mLabelWidth), static_cast<int>(top)),
          {size.width - mLabelWidth, size.height - top});
}

void UIParameterControl::eventPaint(UIPainter* painter)
{
    if (mLabelWidth)
        paintName(painter, sRect(mLabelWidth, getSize().height));
    else
        paintName(painter);
}
