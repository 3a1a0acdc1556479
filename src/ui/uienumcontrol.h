#pragma once

#include "foundation/functor.h"
#include "reflection/valuelabel.h"
#include "ui/uicontrol.h"

#include <memory>

class UIButton;
class UIPulldownButton;
class UIPulldownList;

// The named values of an integer, to choose from a list that opens below. A value without a name is shown as nothing.
class UIEnumControl : public UIControl
{
public:
    using sEnumInfo = ::sEnumInfo;

    // The table is copied. Asserts "Property type missmatch." for structures, strings and objects.
    UIEnumControl(PropertyBase* property, const sEnumInfo* table, unsigned int count, bool disable, unsigned int index);

    // The method hears of each choice, with its row, when it has been written. The object outlives the control.
    template <typename T>
    UIEnumControl(PropertyBase* property, const sEnumInfo* table, unsigned int count, bool disable, unsigned int index,
                  T* object, void (T::*method)(unsigned int))
        : UIEnumControl(property, table, count, disable, index)
    {
        mpFunctor.reset(new Functor<T, unsigned int, void>(object, method));
    }

    ~UIEnumControl() override;

    // The name of the present value; null if it has none.
    AutoString getItemName() const;

    // Writes the value of that name, if there is one.
    void setItemName(AutoString name);

    void eventSize() override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseUp(const sPoint& position, unsigned int button) override;
    void eventKeyDown(unsigned int keyCode, unsigned int combinationKey) override;

    // Opens the list.
    void notifyPulldown(UIButton* button);

    // The list closes.
    void notifySelect();

private:
    // The row of the present value, or UIPulldownList::NoRow.
    unsigned int getRow() const;

    // Below the name, if there is one.
    sRect getBox() const;

    UIPulldownButton* mpPulldownButton;

    // A child only while it is open: many closed ones would burden each frame, and the search for what the pointer
    // hits.
    UIPulldownList* mpPulldownList;
    std::unique_ptr<unsigned int[]> mpValues;
    std::unique_ptr<FunctorIntermediate<unsigned int, void>> mpFunctor;
};
