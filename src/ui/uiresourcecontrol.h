#pragma once

#include "ui/uicontrol.h"

class ResourceBase;
class TypeInfo;
class UIButton;
class UIDialog;
class UITextControl;
class UIWindow;

// Shows the path of the resource that a property holds, and picks another one with a file dialog. The context menu
// takes it away. Each change is an edit of its own.
class UIResourceControl : public UIControl
{
public:
    // On purpose: the index is that of the shown path alone; what is picked goes to the current element.
    UIResourceControl(PropertyBase* property, const TypeInfo* type, bool disable, unsigned int index);

    void align() override;
    void eventPaint(UIPainter* painter) override;

    void openFile(UIButton* button);
    void setEmpty();

    // The file dialog was closed.
    void notifySelectFile(UIDialog* dialog);

protected:
    // The box and its button stand there.
    virtual int getBoxTop() const;

    ResourceBase* getResource() const;

private:
    void setResource(ResourceBase* resource);
    UIWindow* getWindow();

    const TypeInfo* mType;
    UITextControl* mBox;
    UIButton* mButton;
};
