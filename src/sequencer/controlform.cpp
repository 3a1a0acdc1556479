#include "sequencer/controlform.h"

#include "foundation/dev.h"
#include "sequencer/sequencecycle.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequenceruniquekey.h"
#include "ui/uigroup.h"

#include <cstring>

namespace
{
using ResourceKey = SequencerUniqueKey<ResourceBase>;

constexpr unsigned int FormAttribute = UIForm::ScrollBars | UIForm::FlowLayout | UIForm::FollowSize;

// Widgets that edit one object, as the children of a group.
void addEditors(UIGroup& group, ObjectBase* object)
{
    if (!object)
        return;
    List<UIBase> editors;
    object->makeUIList(editors);
    for (UIBase* editor : editors)
        group.add(editor);
}
}

SequencerTool::ControlForm::ControlForm(SequencerTool* tool) : UIForm(FormAttribute), mpTool(tool)
{
    addGroup("Control");
    addGroup("Key");
}

SequencerTool::ControlForm::~ControlForm()
{
    releaseCopy();
}

void SequencerTool::ControlForm::setupControlList(unsigned int trackIndex, SequencerKey* key)
{
    removeClient();
    mpMarker = nullptr;
    mpKey = key;
    takeCopy();
    makeTrackGroup(trackIndex);
    makeKeyGroup();
    showGroups();
}

void SequencerTool::ControlForm::setupControlList(SequencerMarker* marker)
{
    removeClient();
    mpMarker = marker;
    mpKey = nullptr;
    takeCopy();
    makeMarkerGroup();
    showGroups();
}

void SequencerTool::ControlForm::eventBeginEdit()
{
    takeCopy();
}

// Some widgets end an edit without having begun it, so there is always a copy of what was there last.
void SequencerTool::ControlForm::eventEndEdit()
{
    if (mpKey)
        endKeyEdit();
    if (mpMarker)
        endMarkerEdit();
    takeCopy();
}

UIGroup* SequencerTool::ControlForm::addGroup(const char* caption)
{
    UIGroup* group = new UIGroup(caption);
    group->setAttribute(RowElement);
    addClient(group);
    return group;
}

void SequencerTool::ControlForm::makeTrackGroup(unsigned int trackIndex)
{
    mpTool->setControlList(addGroup("Track"), trackIndex);
}

void SequencerTool::ControlForm::makeKeyGroup()
{
    addEditors(*addGroup("Key"), mpKey);
}

void SequencerTool::ControlForm::makeMarkerGroup()
{
    addEditors(*addGroup("Marker"), mpMarker);
}

// A pane that is alive already has to bring its new groups to life.
void SequencerTool::ControlForm::showGroups()
{
    if (isCreated())
        sendMessage(UICreateMessage());
}

void SequencerTool::ControlForm::takeCopy()
{
    releaseCopy();
    if (mpKey)
        copyKey();
    if (mpMarker)
        mMarkerCopy = *mpMarker;
}

void SequencerTool::ControlForm::copyKey()
{
    mKeyCopy.frame = mpKey->getFrame();
    mKeyCopy.interpolateType = mpKey->getInterpolateType();
    mpKey->copyParameter(mKeyCopy.parameter);
    if (const ResourceKey* key = mpKey->cast<ResourceKey>())
        mKeyCopy.resource = key->getResource();
    if (mKeyCopy.resource)
        mKeyCopy.resource->addRef();
}

void SequencerTool::ControlForm::releaseCopy()
{
    if (mKeyCopy.resource)
        mKeyCopy.resource->release();
    mKeyCopy.resource = nullptr;
}

void SequencerTool::ControlForm::endKeyEdit()
{
    refuseCycle();
    const unsigned int frame = mpKey->getFrame();
    if (frame != mKeyCopy.frame)
    {
        mpKey->setFrame(mKeyCopy.frame);
        mpTool->moveSelectKey(frame);
    }
    if (mpKey->getInterpolateType() != mKeyCopy.interpolateType)
        mpTool->copySelectKeyInterpolateTypeToNative();
    if (isKeyValueChanged())
        mpTool->copySelectKeyParameterToNative();
}

// The operations go by the marker's name, so the marker is what it was before the first of them.
void SequencerTool::ControlForm::endMarkerEdit()
{
    const SequencerMarker edited = *mpMarker;
    const SequencerMarker& old = mMarkerCopy;
    *mpMarker = old;

    if (edited.getMarkerType() != old.getMarkerType())
        mpTool->setSelectMarkerType(edited.getMarkerType());
    if (edited.getInitialCount() != old.getInitialCount())
        mpTool->setSelectMarkerCount(edited.getInitialCount());
    if (edited.getFrame() != old.getFrame())
        mpTool->moveSelectMarker(edited.getFrame());
    if (edited.getTargetFrame() != old.getTargetFrame())
        mpTool->setSelectMarkerTargetFrame(edited.getTargetFrame());
    if (edited.isReset() != old.isReset())
        mpTool->setSelectMarkerReset(edited.isReset());
    if (!(edited.getMarkerName() == old.getMarkerName()))
        mpTool->setSelectMarkerName(edited.getMarkerName());
    if (!(edited.getTargetMarkerName() == old.getTargetMarkerName()))
        mpTool->setSelectMarkerTargetName(edited.getTargetMarkerName());
}

bool SequencerTool::ControlForm::isKeyValueChanged() const
{
    if (const ResourceKey* key = mpKey->cast<ResourceKey>())
        return key->getResource() != mKeyCopy.resource;
    unsigned char parameter[sizeof(mKeyCopy.parameter)];
    mpKey->copyParameter(parameter);
    return std::memcmp(parameter, mKeyCopy.parameter, mpKey->getParameterSize()) != 0;
}

// A sequence that plays itself would never come to an end, so such a choice is taken back.
void SequencerTool::ControlForm::refuseCycle()
{
    ResourceKey* key = mpKey->cast<ResourceKey>();
    const SequencerResourceIntermediate* sequence = mpTool->getSequence();
    if (!key || !sequence || !leadsTo(key->getResource(), *sequence))
        return;
    DEV_TRACE("Sequence plays itself.\n");
    key->setResource(mKeyCopy.resource);
}
