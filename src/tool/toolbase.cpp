#include "tool/toolbase.h"

#include "application/application.h"
#include "foundation/dev.h"
#include "foundation/utils.h"
#include "io/documentwriter.h"
#include "io/stream.h"
#include "io/xmlreader.h"
#include "resource/resourcebase.h"
#include "resource/resourcesystem.h"
#include "ui/uifiledialog.h"
#include "ui/uimenu.h"
#include "ui/uimessagedialog.h"
#include "ui/uisystem.h"

#include <cstring>

REFLECT(ToolBase, eTypeAttribute::Abstract, "UIWindow");

namespace
{
constexpr const char* QuestionTitle = "Causion";
constexpr const char* ModifiedQuestion = "Resource is modified.Do you save it?";
constexpr const char* OverwriteQuestion = "File already exists.Are you sure to overwrite?";

constexpr UIMenu::sRow<ToolBase> FileRows[] = {
    {"Open", &ToolBase::eventLoad}, {"Save", &ToolBase::eventSave}, {"Save as", &ToolBase::eventSaveAs},
    UIMenu::SeparatorRow<ToolBase>, {"Exit", &UIWindow::close},
};

bool isIntermediate(const ResourceBase& resource)
{
    return (resource.getAttribute() & ResourceBase::Intermediate) != 0;
}

// A resource that was never saved has the full path of a file that it might have one day, or none.
bool hasFile(const ResourceBase& resource)
{
    const char* path = resource.getPath().c_str();
    return path && (std::strncmp(path, "intermediate/", 13) == 0 || std::strncmp(path, "native/", 7) == 0);
}

AutoString getIntermediateFile(const AutoString& name, const AutoString& extension)
{
    return AutoString(Application::getInstance()->getIntermediatePath()) + name + "." + extension;
}

// What createResource() would fail on just as on a file that is not there.
bool isDamaged(const ResourceBase& kind, const char* name)
{
    if (!isIntermediate(kind) || (kind.getAttribute() & ResourceBase::BinaryIntermediate))
        return false;
    TextFileStream stream(getIntermediateFile(name, kind.getExtension()).c_str(), FileStream::Read);
    return !stream.eof() && !XmlReader::isWellFormed(&stream);
}

bool isEdited(const ResourceBase& resource)
{
    for (ObjectBase* window : UISystem::getInstance()->getWindowList())
        if (static_cast<UIWindow*>(window)->getManagedResource() == &resource)
            return true;
    return false;
}

bool readAgain(ResourceBase& resource, const AutoString& fullPath)
{
    TextFileStream stream(fullPath.c_str(), FileStream::Read);
    return resource.load(stream);
}
}

ToolBase::ToolBase() : ToolBase(TitleBar | Movable | Sizable, true, true, true, ScrollBars | FlowLayout)
{
}

ToolBase::ToolBase(unsigned int attribute, bool close, bool minimize, bool maximize, unsigned int formAttribute)
    : UIWindow(eStyle::Convex, attribute, close, minimize, maximize, formAttribute, nullptr)
{
}

ToolBase::~ToolBase() = default;

ResourceBase* ToolBase::getManagedResource() const
{
    return mpGetter ? (*mpGetter)() : nullptr;
}

bool ToolBase::isManagedResourceModified() const
{
    const ResourceBase* resource = getManagedResource();
    return resource && resource->isModified();
}

void ToolBase::makeFileMenu(UIMenu* menu)
{
    menu->addItems(this, FileRows);
}

void ToolBase::load(const char* path)
{
    const ResourceHold kind = getKind();
    if (!path || !mpSetter || (kind && isDamaged(*kind, path)))
        return;
    const ResourceHold loaded(ResourceSystem::getInstance()->createResource(path, mpResourceType));
    (*mpSetter)(loaded.get());
}

void ToolBase::load()
{
    if (!mDialogOpen && mpGetter && mpSetter)
        askForFile("Load", false, &ToolBase::notifyLoad);
}

void ToolBase::save()
{
    UISystem::getInstance()->defocus();
    if (mDialogOpen || !isManagedResourceModified())
        return;
    ResourceBase* resource = getManagedResource();
    if (!hasFile(*resource))
        saveAs();
    else if (isIntermediate(*resource) &&
             writeDocument(*resource, AutoString(Application::getInstance()->getRootPath()) + resource->getPath()))
    {
        resource->clearModify();
        eventSaved();
    }
}

void ToolBase::saveAs()
{
    UISystem::getInstance()->defocus();
    if (!mDialogOpen && getManagedResource())
        askForFile("Save", true, &ToolBase::notifySaving);
}

void ToolBase::eventLoad()
{
    UISystem::getInstance()->defocus();
    if (!mDialogOpen && !askWhetherToSave(&ToolBase::notifyLoadModifyWarning))
        load();
}

void ToolBase::eventClose()
{
    UISystem::getInstance()->defocus();
    if (!mDialogOpen && !askWhetherToSave(&ToolBase::notifyCloseModifyWarning))
        UIWindow::eventClose();
}

bool ToolBase::writeFile(ResourceBase& resource, const AutoString& fullPath)
{
    return DocumentWriter::write(&resource, false, fullPath.c_str(), DocumentWriter::ePrevious::Keep);
}

void ToolBase::sRelease::operator()(ResourceBase* resource) const
{
    resource->release();
}

ToolBase::ResourceHold ToolBase::getKind() const
{
    ResourceBase* resource = getManagedResource();
    if (resource)
        resource->addRef();
    else if (mpResourceType)
        resource = static_cast<ResourceBase*>(mpResourceType->newInstance());
    return ResourceHold(resource);
}

// A dialog for which there is no memory, or no functor that could bring its answer, leaves the tool as it is.
void ToolBase::open(UIDialog* dialog)
{
    mDialogOpen = dialog && dialog->hasReceiver();
    UISystem::getInstance()->addWindow(dialog);
}

void ToolBase::ask(const char* question, Answer answer)
{
    open(new UIMessageDialog(QuestionTitle, question, UIDialog::eButtons::YesNoCancel, this, answer));
}

// False when there is nothing to save.
bool ToolBase::askWhetherToSave(Answer answer)
{
    if (!isManagedResourceModified())
        return false;
    ask(ModifiedQuestion, answer);
    return true;
}

void ToolBase::askForFile(const char* title, bool isSaving, Answer answer)
{
    const ResourceHold kind = getKind();
    if (!kind)
        return;
    const char* const filters[] = {kind->getExtension(), nullptr};
    open(new UIFileDialog(title, this, answer, mResourceName, filters, isSaving, this));
}

void ToolBase::notifyLoad(UIDialog* dialog)
{
    mDialogOpen = false;
    if (dialog->getReturnValue() == UIDialog::Ok)
        load(static_cast<UIFileDialog*>(dialog)->getResourcePath().c_str());
}

void ToolBase::notifyLoadModifyWarning(UIDialog* dialog)
{
    mDialogOpen = false;
    if (dialog->getReturnValue() == UIDialog::Yes)
        askForFile("Save", true, &ToolBase::notifyLoadSaving);
    else if (dialog->getReturnValue() == UIDialog::No)
        load();
}

void ToolBase::notifyCloseModifyWarning(UIDialog* dialog)
{
    mDialogOpen = false;
    if (dialog->getReturnValue() == UIDialog::Yes)
        askForFile("Save", true, &ToolBase::notifyCloseSaving);
    else if (dialog->getReturnValue() == UIDialog::No)
        UIWindow::eventClose();
}

void ToolBase::notifyOverwrite(UIDialog* dialog)
{
    mDialogOpen = false;
    if (dialog->getReturnValue() == UIDialog::Yes)
        (this->*mTarget.finish)();
}

// A name without extension gets one behind the file dialog's own question, and the file dialog is gone by now.
void ToolBase::acceptTarget(UIDialog* dialog, Finish finish)
{
    mDialogOpen = false;
    const UIFileDialog* answered = static_cast<UIFileDialog*>(dialog);
    mTarget = {answered->getFullPath(), answered->getResourcePath(), finish};
    if (dialog->getReturnValue() != UIDialog::Ok || mTarget.fullPath.empty() || mTarget.resourcePath.empty())
        return;
    if (!answered->isOverwriteConfirmed() && isForeignFile(mTarget.fullPath))
        ask(OverwriteQuestion, &ToolBase::notifyOverwrite);
    else
        (this->*finish)();
}

bool ToolBase::isForeignFile(const AutoString& fullPath) const
{
    const ResourceBase* resource = getManagedResource();
    return Utils::isFileExist(fullPath.c_str()) &&
           !(resource && AutoString::isEqual(resource->getPath().c_str(), Utils::getPath(fullPath.c_str())));
}

void ToolBase::saveAndLoad()
{
    const ResourceBase* resource = getManagedResource();
    if (!resource || !isIntermediate(*resource) || saveTarget())
        load();
}

// On purpose: a native resource is written as well.
void ToolBase::saveAndClose()
{
    if (saveTarget())
        UIWindow::eventClose();
}

// The resource under the new name is the one that is edited from here on. A file that does not make one, such as a
// document below "native/", is a copy beside the resource, which stays.
void ToolBase::saveAndSwitch()
{
    ResourceBase* resource = getManagedResource();
    if (!resource || !isIntermediate(*resource) || !writeDocument(*resource, mTarget.fullPath) || !mpSetter)
        return;
    const ResourceHold written(
        ResourceSystem::getInstance()->createResource(mTarget.resourcePath.c_str(), mpResourceType));
    if (!written || !AutoString::isEqual(written->getPath().c_str(), Utils::getPath(mTarget.fullPath.c_str())))
        return;
    if (written.get() != resource)
    {
        carryOver(*resource, *written);
        written->clearModify();
    }
    (*mpSetter)(written.get());
}

// By the logical name, as what is read back would be found: a document below "native/" would not.
bool ToolBase::saveTarget()
{
    ResourceBase* resource = getManagedResource();
    if (!resource)
        return false;
    if (!(getIntermediateFile(mTarget.resourcePath, resource->getExtension()) == mTarget.fullPath))
    {
        DEV_TRACE("ToolBase : \"%s\" is no place for a source.\n", mTarget.fullPath.c_str());
        return false;
    }
    return writeDocument(*resource, mTarget.fullPath);
}

// Puts the document of a resource into a file, of which another resource may be the content in memory: that one reads
// the file again. If it has changes or a window of its own, nothing is written, since it would write over this later;
// nor if it is part of what is written, which would then contain itself.
bool ToolBase::writeDocument(ResourceBase& resource, const AutoString& fullPath)
{
    ResourceSystem* system = ResourceSystem::getInstance();
    const ResourceHold holder(system->findResource(Utils::getPath(fullPath.c_str())));
    const bool isForeign = holder && holder.get() != &resource;
    if (isForeign && (holder->isModified() || isEdited(*holder) || isManagedResourceMadeOf(*holder)))
    {
        DEV_TRACE("ToolBase : \"%s\" is in use.\n", fullPath.c_str());
        return false;
    }
    return writeFile(resource, fullPath) && (!isForeign || readAgain(*holder, fullPath));
}
