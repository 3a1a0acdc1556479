#pragma once

#include "reflection/valuetraits.h"
#include "ui/uicontrol.h"

#include <utility>

class UINumericControl;

// Edits a value of several numbers: a frame that carries the name of the property, and in it a row for each number, a
// label and a box. A box edits through a property of the control's own, which picks its number out of the whole value,
// and puts the whole value back with that number replaced.
class UIComponentControl : public UIControl
{
public:
    void eventPaint(UIPainter* painter) override;

protected:
    UIComponentControl(PropertyBase* property, bool disable, unsigned int index);

    // Makes the rows of `T`, which is the type of the property's value, and takes the size that they need at least.
    template <CompositeValue T>
    void makeRows(unsigned int minimumWidth);

    // Where the upper edges of the boxes are.
    static constexpr int getRowTop(unsigned int row) { return FirstRowTop + RowDistance * static_cast<int>(row); }

    void placeBoxes(int left, unsigned int width);

    static constexpr unsigned int MaximumRowNum = 4;
    static constexpr unsigned int BoxHeight = 16;

    // Between the content of a frame and its right edge.
    static constexpr int FrameMargin = 8;

private:
    struct sRow
    {
        const char* label;
        UINumericControl* box;
    };

    static constexpr int FirstRowTop = 16;
    static constexpr int RowDistance = 18;

    template <typename T, std::size_t... Row>
    void addRows(std::index_sequence<Row...> rows);

    template <typename T, std::size_t Row>
    void addRow();

    template <typename T, std::size_t Row, typename Part>
    Part getPart() const;

    template <typename T, std::size_t Row, typename Part>
    void setPart(Part part);

    sRow mRow[MaximumRowNum] = {};
    unsigned int mRowNum = 0;
};

// The structures whose numbers are all that there is to edit.
template <CompositeValue T>
class UICompositeControl : public UIComponentControl
{
public:
    // Asserts a property of another type.
    UICompositeControl(PropertyBase* property, bool disable, unsigned int index = WholeValue);

    void align() override;
};

using UISizeControl = UICompositeControl<sSize>;
using UIPointControl = UICompositeControl<sPoint>;
using UIRectControl = UICompositeControl<sRect>;
using UITexcoordControl = UICompositeControl<sTexcoord>;
using UIVectorControl = UICompositeControl<sVector>;
