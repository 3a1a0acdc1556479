#include "ui/uicontroldialog.h"

#include "reflection/propertylist.h"
#include "sequencer/control.h"
#include "ui/uipicklist.h"

#include <iterator>

namespace
{
using eAlignment = UIList::eColumnAlignment;

constexpr const char* TypeTexts[] = {"Property", "Trigger"};
constexpr unsigned int NameColumn = 0;

const char* getTypeText(unsigned int type)
{
    return type < std::size(TypeTexts) ? TypeTexts[type] : nullptr;
}
}

class UIControlDialog::UIControlList : public UIPickList<UIControlDialog>
{
public:
    using UIPickList::UIPickList;

    void drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                    unsigned int row, unsigned int column) override
    {
        if (column == NameColumn)
            UIList::drawColumn(painter, property, rect, alignment, row, column);
        else
            drawText(painter, getTypeText(property->getByType<unsigned int>()), rect, alignment, row);
    }
};

UIControlDialog::ControlInfo::ControlInfo(const ControlBase& control)
    : mName(control.getName()), mType(static_cast<unsigned int>(control.getType()))
{
}

void UIControlDialog::ControlInfo::makePropertyList(PropertyList& list)
{
    list.addReference("Name", mName);
    list.addReference("Type", mType);
}

void UIControlDialog::initializeControlDialog(ObjectBase* object)
{
    static constexpr sColumn Columns[] = {
        {"Name", PropertyBase::getPropertyType<AutoString>(), 144, eAlignment::Left},
        {"Type", PropertyBase::getPropertyType<unsigned int>(), 142, eAlignment::Left},
    };
    initializeFrame(new UIControlList(this, &UIControlDialog::notifyObjectSelect, &UIControlDialog::notifyObjectDecide),
                    Columns);
    if (!object)
        return;
    mTypeName = object->getTypeInfo()->getName();
    makeControlInfoList(object);
}

void UIControlDialog::makeControlInfoList(ObjectBase* object)
{
    List<ControlBase> controls;
    object->makeControlList(controls);
    for (const ControlBase* control : controls)
    {
        addRow(new ControlInfo(*control));
        delete control;
    }
    showRows();
}

void UIControlDialog::notifyObjectSelect(unsigned int row)
{
    if (const ControlInfo* control = getRow<ControlInfo>(row))
    {
        mName = control->getName();
        mSelectedType = control->getType();
    }
}

void UIControlDialog::notifyObjectDecide(unsigned int row)
{
    if (!getRow<ControlInfo>(row))
        return;
    notifyObjectSelect(row);
    eventOk();
}
