#include "application/galleryreferences.h"

#include "application/exhibitwindow.h"
#include "foundation/utils.h"
#include "reflection/objectproperty.h"
#include "reflection/resourceproperty.h"
#include "render/texture.h"
#include "resource/textureresource.h"
#include "sequencer/control.h"
#include "tool/toolsystem.h"
#include "ui/uicontroldialog.h"
#include "ui/uifiledialog.h"
#include "ui/uimainmenu.h"
#include "ui/uiobjectcontrol.h"
#include "ui/uiobjectdialog.h"
#include "ui/uisystem.h"
#include "ui/uitexturecontrol.h"
#include "ui/uitextureresourcecontrol.h"

namespace
{
constexpr unsigned int Whole = UIControl::WholeValue;
constexpr sSize LineSize{104, 32};
constexpr sSize PictureSize{104, 96};

constexpr const char* FileFilters[] = {"tga|Targa", "bmp|Bitmap", "asq.xml|Animation", nullptr};

constexpr UIMenu::sRow<GalleryReferences> PickRows[] = {
    {"File", &GalleryReferences::pickFile},
    {"File to save", &GalleryReferences::saveFile},
    {"Class", &GalleryReferences::pickClass},
    {"Control", &GalleryReferences::pickControl},
};

void open(UIWindow* dialog)
{
    UISystem::getInstance()->addWindow(dialog);
}
}

GalleryReferences::GalleryReferences(ExhibitWindow* window)
    : UIGroup("References"), mpWindow(window), mTexture(ToolSystem::getInstance()->getFontTexture())
{
    setAttribute(RowElement);
    List<ControlBase> controls;
    makeControlList(controls);
    for (ControlBase* control : controls)
    {
        add(Utils::makeUIFromControl(control));
        delete control;
    }

    const auto makeObject = [this](const char* name)
    {
        return new ObjectProperty(name, &mTexture, false);
    };
    const auto makeResource = [this](const char* name)
    {
        return new ResourceProperty(name, &mPicture);
    };
    addControl(new UIObjectControl(makeObject("Object"), false, Whole), LineSize);
    addControl(new UIObjectControl(makeObject("Element"), false, 0), sSize::Zero);
    addControl(new UITextureControl(makeObject("Texture"), Whole), PictureSize);
    addControl(new UITextureResourceControl(makeResource("Picture"), false, Whole), PictureSize);
    for (const bool disable : {false, true})
        addControl(new UIResourceControl(makeResource(disable ? "Read-only" : "Resource"),
                                         TextureResource::getStaticTypeInfo(), disable, Whole),
                   LineSize);

    UIMenu* menu = new UIMenu;
    menu->addItems(this, PickRows);
    UIMainMenu* mainMenu = new UIMainMenu;
    mainMenu->addItem("Pick", menu);
    mpWindow->setMainMenu(mainMenu);
}

GalleryReferences::~GalleryReferences()
{
    if (mPicture)
        mPicture->release();
}

void GalleryReferences::makeControlList(List<ControlBase>& list)
{
    list.addLast(new PropertyControl(new ReferenceProperty<int>("Steps", &mStepNum), 0, 99));
    list.addLast(new TriggerControl<void>("Rewind", this, &GalleryReferences::rewind));
    list.addLast(new TriggerControl<int>("Step", this, &GalleryReferences::step));
    list.addLast(new TriggerControl<bool>("Loop", this, &GalleryReferences::loop));
}

void GalleryReferences::pickFile()
{
    open(new UIFileDialog("Pick a file", this, &GalleryReferences::noteFile, "All", FileFilters, false, mpWindow));
}

void GalleryReferences::saveFile()
{
    open(new UIFileDialog("Save a file", this, &GalleryReferences::noteFile, "All", FileFilters, true, mpWindow));
}

void GalleryReferences::pickClass()
{
    open(new UIObjectDialog("Pick a class", this, &GalleryReferences::noteClass, ObjectBase::getStaticTypeInfo(),
                            mpWindow));
}

void GalleryReferences::pickControl()
{
    open(new UIControlDialog("Pick a control", this, &GalleryReferences::noteControl, this, mpWindow));
}

void GalleryReferences::addControl(UIBase* control, const sSize& size)
{
    control->setSize(size);
    add(control);
}

void GalleryReferences::noteFile(UIDialog* dialog)
{
    const AutoString path = static_cast<UIFileDialog*>(dialog)->getFullPath();
    report(dialog->getReturnValue() == UIDialog::Ok ? Utils::getPath(path.c_str()) : nullptr);
}

void GalleryReferences::noteClass(UIDialog* dialog)
{
    const TypeInfo* type = static_cast<UIObjectDialog*>(dialog)->getSelectedTypeInfo();
    report(dialog->getReturnValue() == UIDialog::Ok && type ? type->getName() : nullptr);
}

void GalleryReferences::noteControl(UIDialog* dialog)
{
    const char* name = static_cast<UIControlDialog*>(dialog)->getSelectedControlName();
    report(dialog->getReturnValue() == UIDialog::Ok ? name : nullptr);
}

void GalleryReferences::report(const char* name)
{
    mpWindow->report(name ? name : "Nothing picked");
}

void GalleryReferences::rewind()
{
    mStepNum = 0;
    report("Rewind");
}

void GalleryReferences::step(int count)
{
    mStepNum += count;
    report("Step");
}

void GalleryReferences::loop(bool)
{
}
