#include "application/gallerytool.h"

#include "foundation/replacereference.h"
#include "reflection/property.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uiparametercontrol.h"

namespace
{
constexpr unsigned int LastFrame = 4095;
}

GalleryTool::GalleryTool(ResourceBase* resource)
{
    setManagedResource("Sequencer Resource", SequencerResourceIntermediate::getStaticTypeInfo(), this,
                       &GalleryTool::getResource, &GalleryTool::setResource);
    setResource(resource);
    setTitle("Tool");
    setSize({240, 96});

    UIMenu* menu = new UIMenu;
    makeFileMenu(menu);
    UIMainMenu* mainMenu = new UIMainMenu;
    mainMenu->addItem("File", menu);
    setMainMenu(mainMenu);

    using Frame = IndirectProperty<unsigned int>;
    for (PropertyBase* frame : {new Frame("Start", this, &GalleryTool::getStartFrame, &GalleryTool::setStartFrame, 0),
                                new Frame("End", this, &GalleryTool::getEndFrame, &GalleryTool::setEndFrame, 0)})
        addClient(new UIParameterControl(frame, 0u, LastFrame, false, PropertyBase::CurrentElement));
}

GalleryTool::~GalleryTool()
{
    setResource(nullptr);
}

void GalleryTool::setResource(ResourceBase* resource)
{
    replaceReference(mpSequence, resource ? resource->cast<SequencerResourceIntermediate>() : nullptr);
}

ResourceBase* GalleryTool::getResource() const
{
    return mpSequence;
}

unsigned int GalleryTool::getStartFrame() const
{
    return mpSequence ? mpSequence->getStartFrame() : 0;
}

unsigned int GalleryTool::getEndFrame() const
{
    return mpSequence ? mpSequence->getEndFrame() : 0;
}

void GalleryTool::setStartFrame(unsigned int frame)
{
    if (mpSequence)
        mpSequence->setStartFrame(frame);
}

void GalleryTool::setEndFrame(unsigned int frame)
{
    if (mpSequence)
        mpSequence->setEndFrame(frame);
}
