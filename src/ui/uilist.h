#pragma once

#include "ui/uirowlist.h"

class ObjectList;
class PropertyBase;
class PropertyList;
class UIButton;

// A table of objects. Its columns name properties, and each cell prints its object's property of that name: which
// objects there are is a snapshot, what they show is live.
class UIList : public UIRowList
{
public:
    enum class eColumnAlignment : unsigned char
    {
        Left = 0,
        Center = 1,
        Right = 2,
    };

    struct Column
    {
        UIButton* header;
        const char* name;
        unsigned int nameHash;
        unsigned char type;
        unsigned char width;
        eColumnAlignment alignment;
    };

    UIList();
    ~UIList() override;

    // The name is kept, not copied; it is the header and the name of the property. `width` is in pixels, below 256.
    void addColumn(const char* name, unsigned int propertyType, unsigned int width, eColumnAlignment alignment);

    // The list is not owned; null is an empty one. Takes the snapshot of its objects, and keeps the selection.
    void setObjectList(ObjectList* list);
    ObjectList* getObjectList() const { return mObjectList; }

    // Called when a row is chosen.
    template <typename T>
    void setFunction(T* object, void (T::*method)())
    {
        bind(object, method);
        // On purpose: gives the list a second bar and leaves the first one as a hidden child.
        initialize();
    }

    // Both ignore what is no row; NoRow is no selection. Selecting does not call the functor, choosing does.
    void setSelectRow(unsigned int row);
    void selectRow(unsigned int row);
    unsigned int getSelectRow() const { return mSelectRow; }

    // Back to the first row, without a selection.
    void refresh();

    void updateRegion(const sRect& absolute, const sRect& clip) override;
    void eventPaint(UIPainter* painter) override;
    void eventMouseDown(const sPoint& position, unsigned int button) override;
    void eventMouseWheel(const sPoint& amount) override;

    // Nothing is drawn of a row without properties.
    virtual void drawRow(UIPainter* painter, PropertyList* properties, const sRect& rect, unsigned int row);
    virtual void drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                            unsigned int row, unsigned int column);

protected:
    void highlight(unsigned int row) override { setSelectRow(row); }
    void choose(unsigned int row) override { selectRow(row); }

    // How drawColumn() draws its text, for lists that word a value in their own way.
    void drawText(UIPainter* painter, const char* text, const sRect& rect, unsigned int alignment, unsigned int row);

private:
    void notifyColumnButton(UIButton*) {}
    void updateProperties();
    void deleteProperties();
    void updateButtonLayout();
    void setScrollBarParam();
    bool isRow(unsigned int row) const;

    List<Column> mColumnList;
    ObjectList* mObjectList = nullptr;
    List<PropertyList> mPropertyListList;
};
