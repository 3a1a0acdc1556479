#pragma once

#include "ui/uipickdialog.h"

// Picks a class from the tree of type records below a root, which is walked like a tree of directories: the list shows
// the present class and those that derive from it directly.
class UIObjectDialog : public UIPickDialog
{
public:
    // A row of the list.
    class ObjectInfo : public ObjectBase
    {
    public:
        explicit ObjectInfo(const TypeInfo* type);

        void makePropertyList(PropertyList& list) override;

        const TypeInfo* getType() const { return mType; }

    private:
        const TypeInfo* mType;
        AutoString mTypeName;
        unsigned int mAttribute;
        bool mDerivation;
    };

    class UIObjectList;

    template <typename T>
    UIObjectDialog(const char* title, T* object, void (T::*method)(UIDialog*), const TypeInfo* root, UIWindow* owner)
        : UIPickDialog(title, object, method, owner), mRoot(root), mCurrent(root)
    {
        initializeObjectDialog();
    }

    // Null for an empty name and for one that names no class, which can be typed. It may lie outside of the root.
    const TypeInfo* getSelectedTypeInfo() const;

    void updateObjectList();
    void enterOffshoot(const TypeInfo* type);

protected:
    const char* getSubject() const override;

private:
    void initializeObjectDialog();
    void eventUp(UIButton* button);
    void notifyObjectSelect(unsigned int row);
    void notifyObjectDecide(unsigned int row);

    const TypeInfo* mRoot;
    const TypeInfo* mCurrent;
};
