#pragma once

#include "ui/uilist.h"

// The list of a dialog that picks something. It tells the dialog which row was selected, by a press or Return, and
// which was decided on, by a double click; the number is UIRowList::NoRow where no row is selected.
template <typename Dialog>
class UIPickList : public UIList
{
public:
    using Handler = void (Dialog::*)(unsigned int row);

    UIPickList(Dialog* dialog, Handler select, Handler decide) : mDialog(dialog), mSelect(select), mDecide(decide)
    {
        setFunction(this, &UIPickList::notifySelect);
    }

    void notifySelect() { (mDialog->*mSelect)(getSelectRow()); }

    // On purpose: it is the selected row that is decided on, wherever the click falls.
    void eventMouseDoubleClick(const sPoint&, unsigned int button) override
    {
        if (button == UIMouseDownMessage::FirstButton)
            (mDialog->*mDecide)(getSelectRow());
    }

private:
    Dialog* mDialog;
    Handler mSelect;
    Handler mDecide;
};
