#pragma once

#include "foundation/autostring.h"
#include "foundation/functor.h"
#include "ui/uiwindow.h"

#include <memory>

class UIDialog;
class UIMenu;

// A window that edits one resource of one type, which it knows only through a getter and a setter of the class derived
// from it: the menu "File" with opening and saving, and the question before unsaved work would be lost. What has the
// focus is applied before anything is asked or written, and one dialog of the window is open at a time.
class ToolBase : public UIWindow
{
    REFLECTED(ToolBase)

public:
    ToolBase();
    ToolBase(unsigned int attribute, bool close, bool minimize, bool maximize, unsigned int formAttribute);
    ~ToolBase() override;

    // First of all in a derived constructor. The name, which is not copied, labels the file dialogs; the type is what
    // is made by opening. The setter may be given null, and takes a reference of its own.
    template <typename T>
    void setManagedResource(const char* name, const TypeInfo* type, T* object, ResourceBase* (T::*get)() const,
                            void (T::*set)(ResourceBase*))
    {
        mResourceName = name;
        mpResourceType = type;
        mpGetter.reset(new ConstFunctor<T, void, ResourceBase*>(object, get));
        mpSetter.reset(new Functor<T, ResourceBase*, void>(object, set));
    }

    ResourceBase* getManagedResource() const override;

    // Whether there is work that the resource's own file does not hold. A derived class adds what the resource does
    // not know of.
    virtual bool isManagedResourceModified() const;

    // Whether the managed resource contains `other`, however deep. It is not saved over what it contains.
    virtual bool isManagedResourceMadeOf(const ResourceBase& /*other*/) const { return false; }

    // Until the answer has arrived.
    bool hasOpenDialog() const { return mDialogOpen; }

    // Adds "Open", "Save", "Save as" and "Exit".
    void makeFileMenu(UIMenu* menu);

    // By its logical name. The setter gets null when there is no such resource; a damaged document is refused and
    // leaves the tool as it is.
    void load(const char* path);

    // Asks for the file, and not for what is unsaved.
    void load();

    // To the resource's own file; asks for one if there is none. A native resource is left alone.
    void save();

    // The tool goes over to the resource as it stands under the new name.
    void saveAs();

    void eventLoad();
    void eventSave() { save(); }
    void eventSaveAs() { saveAs(); }
    void eventClose() override;

protected:
    // The resource has been written to its own file.
    virtual void eventSaved() {}

    // Puts the document of the resource into the file, whole or not at all.
    [[nodiscard]] virtual bool writeFile(ResourceBase& resource, const AutoString& fullPath);

    // `to` has just been read from a file that was written from `from`, and is about to take its place: the time to
    // copy what no file holds. The copy does not count as an edit.
    virtual void carryOver(const ResourceBase& /*from*/, ResourceBase& /*to*/) {}

private:
    using Answer = void (ToolBase::*)(UIDialog*);
    using Finish = void (ToolBase::*)();

    struct sRelease
    {
        void operator()(ResourceBase* resource) const;
    };
    using ResourceHold = std::unique_ptr<ResourceBase, sRelease>;

    // The file that a dialog has been answered with, and what is to happen to it.
    struct sTarget
    {
        AutoString fullPath;
        AutoString resourcePath;
        Finish finish = nullptr;
    };

    // The managed resource or, for want of one, an instance of its type: for what is the same in all of them.
    ResourceHold getKind() const;

    void open(UIDialog* dialog);
    void ask(const char* question, Answer answer);
    [[nodiscard]] bool askWhetherToSave(Answer answer);
    void askForFile(const char* title, bool isSaving, Answer answer);

    void notifyLoad(UIDialog* dialog);
    void notifyLoadModifyWarning(UIDialog* dialog);
    void notifyLoadSaving(UIDialog* dialog) { acceptTarget(dialog, &ToolBase::saveAndLoad); }
    void notifyCloseModifyWarning(UIDialog* dialog);
    void notifyCloseSaving(UIDialog* dialog) { acceptTarget(dialog, &ToolBase::saveAndClose); }
    void notifySaving(UIDialog* dialog) { acceptTarget(dialog, &ToolBase::saveAndSwitch); }
    void notifyOverwrite(UIDialog* dialog);

    // Once it is certain that an existing file may be replaced, mTarget is finished.
    void acceptTarget(UIDialog* dialog, Finish finish);
    bool isForeignFile(const AutoString& fullPath) const;
    void saveAndLoad();
    void saveAndClose();
    void saveAndSwitch();
    [[nodiscard]] bool saveTarget();
    [[nodiscard]] bool writeDocument(ResourceBase& resource, const AutoString& fullPath);

    const char* mResourceName = nullptr;
    const TypeInfo* mpResourceType = nullptr;
    std::unique_ptr<ConstFunctorIntermediate<void, ResourceBase*>> mpGetter;
    std::unique_ptr<FunctorIntermediate<ResourceBase*, void>> mpSetter;
    sTarget mTarget;
    bool mDialogOpen = false;
};
