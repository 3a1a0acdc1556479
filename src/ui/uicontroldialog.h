#pragma once

#include "ui/uipickdialog.h"

class ControlBase;

// Picks one of the controls by which an object can be driven.
class UIControlDialog : public UIPickDialog
{
public:
    // A row of the list.
    class ControlInfo : public ObjectBase
    {
    public:
        explicit ControlInfo(const ControlBase& control);

        void makePropertyList(PropertyList& list) override;

        const AutoString& getName() const { return mName; }
        unsigned int getType() const { return mType; }

    private:
        AutoString mName;
        unsigned int mType;
    };

    class UIControlList;

    // The object is read here and not kept; null shows no controls.
    template <typename T>
    UIControlDialog(const char* title, T* receiver, void (T::*method)(UIDialog*), ObjectBase* object, UIWindow* owner)
        : UIPickDialog(title, receiver, method, owner)
    {
        initializeControlDialog(object);
    }

    // Null for an empty name. The type, a ControlBase::eControlType, is that of the row that was selected last, also
    // when another name was typed since.
    const char* getSelectedControlName() const { return mName.c_str(); }
    unsigned int getSelectedControlType() const { return mSelectedType; }

protected:
    const char* getSubject() const override { return mTypeName; }

private:
    void initializeControlDialog(ObjectBase* object);
    void makeControlInfoList(ObjectBase* object);
    void notifyObjectSelect(unsigned int row);
    void notifyObjectDecide(unsigned int row);

    unsigned int mSelectedType = 0;

    // Of the object's class.
    const char* mTypeName = nullptr;
};
