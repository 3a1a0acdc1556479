#pragma once

#include "foundation/autostring.h"
#include "ui/uirowlist.h"

// Texts that float above their surroundings until the focus is lost. The owner shows the list and gives it the focus;
// when its functor is called, the list is about to hide, and getSelectItem() is what was chosen, or NoRow.
class UIPulldownList : public UIRowList
{
public:
    struct sItem
    {
        AutoString name;
        unsigned int index;
    };

    UIPulldownList();

    // The method is called when the list closes.
    template <typename T>
    UIPulldownList(T* object, void (T::*method)()) : UIPulldownList()
    {
        bind(object, method);
    }

    ~UIPulldownList() override;

    // Each of these clears the selection.
    void addItem(const char* name);
    void removeItem(unsigned int index);
    void clearItem();

    unsigned int getItemCount() const { return mItemList.size(); }

    // Empty for what is no item.
    AutoString getItemName(unsigned int index) const;

    // Highlights an item and brings it into view. Both ignore what is no item; NoRow is none.
    void setSelectItem(unsigned int index);

    // Chooses an item, which closes the list.
    void selectItem(unsigned int index);
    unsigned int getSelectItem() const { return mSelectRow; }

    void updateRegion(const sRect& absolute, const sRect& clip) override;
    void eventDefocus() override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseMove(const sPoint& position) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;

protected:
    void highlight(unsigned int row) override { setSelectItem(row); }
    void choose(unsigned int row) override { selectItem(row); }

private:
    void deleteItems();
    void setScrollBarParam();
    void scrollTo(unsigned int index);
    void notifyItemChange();

    List<sItem> mItemList;
    bool mChoosing = false;
};
