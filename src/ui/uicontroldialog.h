#pragma once

#include "sequencer/control.h"
#include "ui/uipickdialog.h"

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
        ControlBase::eControlType getType() const { return static_cast<ControlBase::eControlType>(mType); }

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

    // Null for an empty name. A typed name leaves the type that was selected last.
    const char* getSelectedControlName() const { return mName.c_str(); }
    ControlBase::eControlType getSelectedControlType() const { return mSelectedType; }

protected:
    const char* getSubject() const override { return mTypeName; }

private:
    void initializeControlDialog(ObjectBase* object);
    void makeControlInfoList(ObjectBase* object);
    void notifyObjectSelect(unsigned int row);
    void notifyObjectDecide(unsigned int row);

    ControlBase::eControlType mSelectedType = ControlBase::eControlType::Property;

    // Of the object's class.
    const char* mTypeName = nullptr;
};
