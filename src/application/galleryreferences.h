#pragma once

#include "ui/uigroup.h"

class ExhibitWindow;
class ResourceBase;
class Texture;
class UIDialog;

// The controls of objects, resources and triggers, and in the menu of the window the dialogs that pick files, classes
// and controls; the window reports what was picked and fired.
class GalleryReferences : public UIGroup
{
public:
    explicit GalleryReferences(ExhibitWindow* window);
    ~GalleryReferences() override;

    void makeControlList(List<ControlBase>& list) override;

    void pickFile();
    void saveFile();
    void pickClass();
    void pickControl();

private:
    void addControl(UIBase* control, const sSize& size);
    void noteFile(UIDialog* dialog);
    void noteClass(UIDialog* dialog);
    void noteControl(UIDialog* dialog);
    void report(const char* name);
    void rewind();
    void step(int count);
    void loop(bool on);

    ExhibitWindow* mpWindow;
    ResourceBase* mPicture = nullptr;
    Texture* mTexture;
    int mStepNum = 0;
};
