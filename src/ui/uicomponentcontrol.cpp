#include "ui/uicomponentcontrol.h"

#include "reflection/typeset.h"
#include "ui/uicolor.h"
#include "ui/uinumericcontrol.h"
#include "ui/uipainter.h"

#include <array>

namespace
{
constexpr unsigned int MinimumWidth = 80;

// The height of a frame is that of the boxes, so much between them, and the rest around them.
constexpr unsigned int RowGap = 2;
constexpr unsigned int FrameHeight = 24;

constexpr int LabelLeft = 8;
constexpr int LabelSize = 16;
constexpr int BoxLeft = 24;

constexpr char toUpper(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// A number is called as in documents, with a capital, and that letter stands in front of its box.
template <typename T, std::size_t Row>
struct sRowText
{
    static constexpr const char* Source = ValueTraits<T>::components[Row].name;

    static constexpr auto name = []
    {
        std::array<char, 8> text{};
        for (std::size_t i = 0; Source[i]; ++i)
            text[i] = i ? Source[i] : toUpper(Source[i]);
        return text;
    }();

    static constexpr char label[] = {toUpper(Source[0]), ':', '\0'};
};

template <typename T, std::size_t Row>
constexpr auto Member = ValueTraits<T>::components[Row].target;
}

UIComponentControl::UIComponentControl(PropertyBase* property, bool disable, unsigned int index)
    : UIControl(property, disable, index)
{
}

void UIComponentControl::eventPaint(UIPainter* painter)
{
    paintGroup(painter);
    const sRect first(LabelLeft, 0, LabelLeft + LabelSize, LabelSize);
    for (unsigned int row = 0; row < mRowNum; ++row)
        painter->drawString(first + sPoint(0, getRowTop(row)), mRow[row].label, UIPainter::getColors().mFontColor,
                            UIPainter::eAlignment::LeftMiddle);
}

template <CompositeValue T>
void UIComponentControl::makeRows(unsigned int minimumWidth)
{
    addRows<T>(std::make_index_sequence<ValueTraits<T>::components.size()>{});
    const unsigned int rowHeight = mRow[0].box->getMinimumSize().height + RowGap;
    setMinimumSize({minimumWidth, mRowNum * rowHeight + FrameHeight});
    setDefaultSize();
}

void UIComponentControl::placeBoxes(int left, unsigned int width)
{
    for (unsigned int row = 0; row < mRowNum; ++row)
        place(mRow[row].box, sPoint(left, getRowTop(row)), {width, BoxHeight});
}

template <typename T, std::size_t... Row>
void UIComponentControl::addRows(std::index_sequence<Row...>)
{
    (addRow<T, Row>(), ...);
}

template <typename T, std::size_t Row>
void UIComponentControl::addRow()
{
    using Part = std::remove_cvref_t<decltype(std::declval<T>().*Member<T, Row>)>;
    auto* part =
        new IndirectProperty<Part>(sRowText<T, Row>::name.data(), this, &UIComponentControl::getPart<T, Row, Part>,
                                   &UIComponentControl::setPart<T, Row, Part>);
    UINumericControl* box = new UINumericControl(part, !isEnabled(), WholeValue);
    add(box);
    mRow[mRowNum++] = {sRowText<T, Row>::label, box};
}

template <typename T, std::size_t Row, typename Part>
Part UIComponentControl::getPart() const
{
    return getProperty()->getByType<T>(getIndex()).*Member<T, Row>;
}

template <typename T, std::size_t Row, typename Part>
void UIComponentControl::setPart(Part part)
{
    PropertyBase* property = getProperty();
    if (getIndex() != WholeValue)
        property->setIndex(getIndex());
    T value = property->getByType<T>();
    value.*Member<T, Row> = part;
    property->setByType(value);
}

template <CompositeValue T>
UICompositeControl<T>::UICompositeControl(PropertyBase* property, bool disable, unsigned int index)
    : UIComponentControl(property, disable, index)
{
    requireType(typeRange(ValueTraits<T>::type, ValueTraits<T>::type));
    makeRows<T>(MinimumWidth);
    align();
}

template <CompositeValue T>
void UICompositeControl<T>::align()
{
    placeBoxes(BoxLeft, getSize().width - (BoxLeft + FrameMargin));
}

template void UIComponentControl::makeRows<sColor>(unsigned int);
template void UIComponentControl::makeRows<sColorF>(unsigned int);

template class UICompositeControl<sSize>;
template class UICompositeControl<sPoint>;
template class UICompositeControl<sRect>;
template class UICompositeControl<sTexcoord>;
template class UICompositeControl<sVector>;
