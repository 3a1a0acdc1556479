#pragma once

#include "foundation/autostring.h"
#include "reflection/objectlist.h"
#include "ui/uidialog.h"
#include "ui/uilist.h"

#include <span>

// A modal dialog that picks one thing by its name: a list shows what there is, a box below it holds the name that was
// picked or typed, and a line above it says where the list stands. Which rows there are is up to the subclass.
class UIPickDialog : public UIDialog
{
public:
    void eventPaint(UIPainter* painter) override;

protected:
    struct sColumn
    {
        const char* name; // of a property of the rows, and the header
        unsigned int type;
        unsigned int width;
        UIList::eColumnAlignment alignment;
    };

    template <typename T>
    UIPickDialog(const char* title, T* object, void (T::*method)(UIDialog*), UIWindow* owner)
        : UIDialog(TitleBar | Movable | Modal, true, false, false, title, eButtons::OkCancel, object, method, owner)
    {
    }

    // The second half of the construction. The dialog owns the list.
    void initializeFrame(UIList* list, std::span<const sColumn> columns);

    // In the line of buttons above the list; the caption is not copied.
    template <typename T>
    void addButton(int left, unsigned int width, T* object, void (T::*method)(UIButton*), const char* caption)
    {
        placeButton(new UIButton(object, method, caption), left, width);
    }

    // A box in the frame's last line, for what the names are chosen from.
    void addFilterBox(UIBase* box);

    // Deletes all rows; the list is empty from then on and refers to none of them.
    void clearRows();

    // Owns the row, which the list shows with the next showRows().
    void addRow(ObjectBase* row) { mRows.addLast(row); }
    void showRows();

    // For when the rows are others than before: no selection, scrolled to the top.
    void refreshList();

    // Null for a number that is no row. All rows of a dialog are of one class.
    template <typename Row>
    const Row* getRow(unsigned int row) const
    {
        return row < mRows.size() ? static_cast<const Row*>(mRows[row]) : nullptr;
    }

    // What the line above the list says; null is nothing.
    virtual const char* getSubject() const = 0;

    // What the name box shows and edits.
    AutoString mName;

private:
    void placeButton(UIButton* button, int left, unsigned int width);
    static void place(UIBase* element, const sPoint& position, const sSize& size);

    ObjectList mRows;
    UIList* mList = nullptr;
};
