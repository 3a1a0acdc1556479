#include "ui/uiobjectdialog.h"

#include "reflection/propertylist.h"
#include "ui/uipicklist.h"

#include <iterator>

namespace
{
using eAlignment = UIList::eColumnAlignment;

constexpr const char* AttributeTexts[] = {"None", "Abstruct", "Singleton"};

// The columns, in their order.
enum eColumn : unsigned int
{
    TypeName,
    Attribute,
    Derivation,
};

const char* getAttributeText(unsigned int attribute)
{
    return attribute < std::size(AttributeTexts) ? AttributeTexts[attribute] : nullptr;
}
}

class UIObjectDialog::UIObjectList : public UIPickList<UIObjectDialog>
{
public:
    using UIPickList::UIPickList;

    void drawColumn(UIPainter* painter, PropertyBase* property, const sRect& rect, unsigned int alignment,
                    unsigned int row, unsigned int column) override
    {
        switch (column)
        {
        case Attribute:
            drawText(painter, getAttributeText(property->getByType<unsigned int>()), rect, alignment, row);
            break;
        case Derivation:
            if (row == 0)
                drawText(painter, "*", rect, alignment, row);
            else
                UIList::drawColumn(painter, property, rect, alignment, row, column);
            break;
        default: UIList::drawColumn(painter, property, rect, alignment, row, column); break;
        }
    }
};

UIObjectDialog::ObjectInfo::ObjectInfo(const TypeInfo* type)
    : mType(type), mTypeName(type->getName()), mAttribute(type->getAttribute()), mDerivation(type->getOffshoot())
{
}

void UIObjectDialog::ObjectInfo::makePropertyList(PropertyList& list)
{
    list.addReference("TypeName", mTypeName);
    list.addReference("Attribute", mAttribute);
    list.addReference("Derivation", mDerivation);
}

const TypeInfo* UIObjectDialog::getSelectedTypeInfo() const
{
    return mName.empty() ? nullptr : TypeInfo::findForeign(mName.c_str());
}

void UIObjectDialog::updateObjectList()
{
    clearRows();
    addRow(new ObjectInfo(mCurrent));
    for (const TypeInfo* type = mCurrent->getOffshoot(); type; type = type->getLoop())
        addRow(new ObjectInfo(type));
    showRows();
}

void UIObjectDialog::enterOffshoot(const TypeInfo* type)
{
    mName = AutoString::Null;
    mCurrent = type;
    updateObjectList();
}

const char* UIObjectDialog::getSubject() const
{
    return mCurrent->getName();
}

void UIObjectDialog::initializeObjectDialog()
{
    static constexpr sColumn Columns[] = {
        {"TypeName", PropertyBase::getPropertyType<AutoString>(), 144, eAlignment::Left},
        {"Attribute", PropertyBase::getPropertyType<unsigned int>(), 72, eAlignment::Left},
        {"Derivation", PropertyBase::getPropertyType<bool>(), 70, eAlignment::Left},
    };
    initializeFrame(new UIObjectList(this, &UIObjectDialog::notifyObjectSelect, &UIObjectDialog::notifyObjectDecide),
                    Columns);
    addButton(16, 48, this, &UIObjectDialog::eventUp, "Up");
    updateObjectList();
}

// On purpose: the name box keeps its text.
void UIObjectDialog::eventUp(UIButton*)
{
    if (mCurrent == mRoot)
        return;
    mCurrent = mCurrent->getBase();
    updateObjectList();
    refreshList();
}

void UIObjectDialog::notifyObjectSelect(unsigned int row)
{
    if (const ObjectInfo* object = getRow<ObjectInfo>(row))
        mName = object->getType()->getName();
}

// On purpose: the first row enters its own class again, so a class that others derive from is picked by its name and
// "Ok" alone.
void UIObjectDialog::notifyObjectDecide(unsigned int row)
{
    const ObjectInfo* object = getRow<ObjectInfo>(row);
    if (!object)
        return;
    const TypeInfo* type = object->getType();
    if (type->getOffshoot())
    {
        enterOffshoot(type);
        refreshList();
        return;
    }
    mName = type->getName();
    eventOk();
}
