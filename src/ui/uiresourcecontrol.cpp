#include "ui/uiresourcecontrol.h"

#include "foundation/dev.h"
#include "reflection/typeset.h"
#include "resource/resourcebase.h"
#include "ui/uiaxis.h"
#include "ui/uifiledialog.h"
#include "ui/uimenu.h"
#include "ui/uisystem.h"
#include "ui/uitextcontrol.h"

#include <vector>

namespace
{
constexpr unsigned int ResourceType = PropertyBase::getPropertyType<ResourceBase*>();
constexpr int BoxHeight = 16;
constexpr int ButtonWidth = 16;
constexpr unsigned int MinimumWidth = 64;

constexpr UIMenu::sRow<UIResourceControl> MenuRows[] = {{"Empty", &UIResourceControl::setEmpty}};

using Filters = std::vector<const char*>;

// Nothing for a null type and for a class without files.
void addFilter(Filters& filters, const TypeInfo* type)
{
    ResourceBase* instance = type ? static_cast<ResourceBase*>(type->newInstance()) : nullptr;
    if (!instance)
        return;
    if (const char* filter = instance->getFilter())
        filters.push_back(filter);
    instance->release();
}

// The files of the class, and for a native one those that it can be built from. Ends with null.
Filters makeFilters(const TypeInfo* type)
{
    ResourceBase* instance = static_cast<ResourceBase*>(type->newInstance());
    if (!instance)
        dev_assert("Invalid TypoeInfo.", __FILE__, __LINE__);

    Filters filters;
    addFilter(filters, type);
    if (instance->getAttribute() & ResourceBase::Native)
    {
        addFilter(filters, instance->getIntermediateType());
        for (unsigned int i = 0; const TypeInfo* extra = instance->getExtraIntermediateType(i); ++i)
            addFilter(filters, extra);
    }
    instance->release();
    filters.push_back(nullptr);
    return filters;
}
}

UIResourceControl::UIResourceControl(PropertyBase* property, const TypeInfo* type, bool disable, unsigned int index)
    : UIControl(property, disable, WholeValue),
      mType(type),
      mBox(new UITextControl(property, true, index)),
      mButton(new UIButton(this, &UIResourceControl::openFile, ".."))
{
    requireType(typeRange(ResourceType, ResourceType));
    if (!type || !type->isDerivedFrom(ResourceBase::getStaticTypeInfo()))
        dev_assert("Invalid typeinfo.", __FILE__, __LINE__);

    add(mBox);
    add(mButton);
    setMinimumSize({MinimumWidth, mBox->getMinimumSize().height + NameHeight});
    setDefaultSize();
    UIMenu* menu = new UIMenu;
    menu->addItems(this, MenuRows);
    setMenu(menu);
}

void UIResourceControl::align()
{
    const int boxWidth = static_cast<int>(getSize().width) - ButtonWidth;
    place(mBox, sPoint(0, getBoxTop()), makeSize(boxWidth, BoxHeight));
    place(mButton, sPoint(boxWidth, getBoxTop()), makeSize(ButtonWidth, BoxHeight));
}

void UIResourceControl::eventPaint(UIPainter* painter)
{
    paintName(painter);
}

void UIResourceControl::openFile(UIButton*)
{
    if (!isEnabled())
        return;
    const Filters filters = makeFilters(mType);
    UISystem::getInstance()->addWindow(new UIFileDialog("Resource open", this, &UIResourceControl::notifySelectFile,
                                                        "All", filters.data(), false, getWindow()));
}

void UIResourceControl::setEmpty()
{
    if (isEnabled())
        setResource(nullptr);
}

void UIResourceControl::notifySelectFile(UIDialog* dialog)
{
    if (dialog->getReturnValue() != UIDialog::Ok)
        return;
    ResourceBase* resource = static_cast<UIFileDialog*>(dialog)->createResource();
    if (!resource)
        return;
    setResource(resource);
    resource->release();
}

int UIResourceControl::getBoxTop() const
{
    return NameHeight;
}

ResourceBase* UIResourceControl::getResource() const
{
    return getProperty()->getByType<ResourceBase*>(getIndex());
}

void UIResourceControl::setResource(ResourceBase* resource)
{
    sendMessage(UIBeginEditMessage(), this);
    getProperty()->setByType(resource, getIndex());
    sendMessage(UIEndEditMessage(), this);
}

// Null below the desktop, which stands in no window.
UIWindow* UIResourceControl::getWindow()
{
    UIBase* root = this;
    while (UIBase* parent = root->getParent())
        root = parent;
    return root->cast<UIWindow>();
}
