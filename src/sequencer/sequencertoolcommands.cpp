#include "sequencer/sequencertool.h"

#include "foundation/dev.h"
#include "foundation/utils.h"
#include "sequencer/control.h"
#include "sequencer/keytable.h"
#include "sequencer/liveobject.h"
#include "sequencer/sequencer.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/sequenceruniquekey.h"
#include "sequencer/trackform.h"
#include "ui/uicontroldialog.h"
#include "ui/uikeycode.h"
#include "ui/uimainmenu.h"
#include "ui/uimenu.h"
#include "ui/uiobjectdialog.h"
#include "ui/uisystem.h"

namespace
{
using Tool = SequencerTool;
using Row = UIMenu::sRow<SequencerTool>;

constexpr unsigned int F5 = UIKeyCode::F4 + 1;

constexpr Row MarkerRows[] = {
    {"Add Marker", &Tool::eventAddMarker}, {"Remove Marker", &Tool::eventRemoveMarker},
    UIMenu::SeparatorRow<SequencerTool>,   {"Remove All Marker", &Tool::eventRemoveAllMarker},
    UIMenu::SeparatorRow<SequencerTool>,   {"Reset Marker Count", &Tool::eventResetMarkerCount},
};

constexpr Row TrackRows[] = {
    {"Add Track", &Tool::eventAddTrack},
    {"Remove Track", &Tool::eventRemoveTrack},
    UIMenu::SeparatorRow<SequencerTool>,
    {"Add Sequencer Track", &Tool::eventAddSequencerTrack},
};

constexpr Row LaneRows[] = {
    {"Add Lane", &Tool::eventAddLane},
    {"Remove Lane", &Tool::eventRemoveLane},
    UIMenu::SeparatorRow<SequencerTool>,
    {"Add All Lane", &Tool::eventAddAllLane},
    {"Remove All Lane", &Tool::eventRemoveAllLane},
};

constexpr Row KeyRows[] = {
    {"Add Key", &Tool::eventAddKey},
    {"Remove Key", &Tool::eventRemoveKey},
    UIMenu::SeparatorRow<SequencerTool>,
    {"Add Key All Lane", &Tool::eventAddKeyAllLane},
};

constexpr Row TransportRows[] = {
    {"Play/Stop", &Tool::togglePlay},
    {"Seek Start", &Tool::seekStart},
    {"Seek End", &Tool::seekEnd},
};

// What a track can hold. A class that promises instances may still yield none.
bool isTrackType(const SequencerResource& resource, const TypeInfo& type, const TypeInfo& root)
{
    const bool concrete = type.getAttribute() == static_cast<unsigned int>(eTypeAttribute::None);
    if (!concrete || !type.isDerivedFrom(root) || !resource.isTrackType(type))
        return false;
    ObjectBase* object = type.newInstance();
    disposeObject(object);
    return object != nullptr;
}

// Calls the visitor with each control of the object, which it makes for that.
template <typename Visitor>
void forEachControl(ObjectBase& object, Visitor&& visitor)
{
    List<ControlBase> controls;
    object.makeControlList(controls);
    for (ControlBase* control : controls)
    {
        visitor(*control);
        delete control;
    }
}

// On purpose: no more than a word about it; the first element of the array is driven.
void warnOfArray(const ControlBase& control)
{
    if (control.getType() != ControlBase::eControlType::Property)
        return;
    const PropertyBase* property = static_cast<const PropertyControl&>(control).getProperty();
    if (property && property->getCount() != 0)
        DEV_TRACE("Causion : Array property not support.\n");
}

eInterpolateType getNewKeyType(const SequencerLane& lane)
{
    const bool trigger = lane.getControlType() == static_cast<unsigned int>(ControlBase::eControlType::Trigger);
    return trigger || lane.getKeyType() == KeyTable::ResourceType ? eInterpolateType::Trigger
                                                                  : eInterpolateType::Linear;
}

// The resource as far as a record can name it.
ResourceBase* getStorableResource(ResourceBase* resource)
{
    constexpr unsigned int MaximumPathSize = 255;
    const unsigned int size = resource ? Utils::getResourcePath(resource->getPath().c_str()).size() : 0;
    if (size > MaximumPathSize)
        dev_assert("Too long path.", __FILE__, __LINE__);
    if (size < sResourceKeyRecord::PathSize)
        return resource;
    DEV_TRACE("Path of %u characters does not fit into a key.\n", size);
    return nullptr;
}

void setResource(SequencerUniqueKey<ResourceBase>& key, const PropertyControl& control)
{
    const TypeInfo* type = control.getObjectTypeInfo();
    key.setResource(getStorableResource(control.getProperty()->getByType<ResourceBase*>(0)));
    key.setResourceTypeID(type ? type->getID() : sResourceKeyRecord::None);
}

void setValue(SequencerKey& key, const PropertyBase& property)
{
    visitValueType(ValueTypes{}, property.getType(),
                   [&]<typename T>()
                   {
                       const T value = property.getByType<T>(0);
                       key.setParameter(&value);
                   });
}

void clearValue(SequencerKey& key)
{
    static constexpr unsigned char Zero[KeyTable::WidestValue] = {};
    key.setTriggerOnly(true);
    key.setParameter(Zero);
}
}

constinit const UIShortcut<SequencerTool> SequencerTool::mShortcutTable[] = {
    {F5, 0, &SequencerTool::togglePlay},
    {UIKeyCode::Home, UIKeyCode::WithCommand, &SequencerTool::seekStart},
    {UIKeyCode::End, UIKeyCode::WithCommand, &SequencerTool::seekEnd},
    {UIKeyCode::LeftArrow, UIKeyCode::WithCommand, &SequencerTool::seekPreviousTargetMarker},
    {UIKeyCode::RightArrow, UIKeyCode::WithCommand, &SequencerTool::seekNextTargetMarker},
};

const UIShortcutBase* SequencerTool::findShortcut(unsigned int keyCode, unsigned int combinationKey) const
{
    if (const UIShortcutBase* shortcut = UIWindow::findShortcut(keyCode, combinationKey))
        return shortcut;
    for (const UIShortcut<SequencerTool>& shortcut : mShortcutTable)
        if (shortcut.identify(keyCode, combinationKey))
            return &shortcut;
    return nullptr;
}

void SequencerTool::makeMainMenu()
{
    UIMenu* file = new UIMenu;
    makeFileMenu(file);
    UIMainMenu* menu = new UIMainMenu;
    menu->addItem("File", file);
    const auto addMenu = [&](const char* name, const auto& rows)
    {
        UIMenu* dropDown = new UIMenu;
        dropDown->addItems(this, rows);
        menu->addItem(name, dropDown);
    };
    addMenu("Marker", MarkerRows);
    addMenu("Track", TrackRows);
    addMenu("Lane", LaneRows);
    addMenu("Key", KeyRows);
    addMenu("Transport", TransportRows);
    setMainMenu(menu);
}

void SequencerTool::eventAddMarker()
{
    const unsigned int frame = getCurrentFrame();
    if (!mpResource || mpResource->findMarker(frame))
        return;
    {
        const OwnEdit edit(*this);
        mpResource->addMarker(getNewMarkerName(), frame);
    }
    setSelectMarker(mpResource->findMarker(frame));
}

// Here as below: what is being edited is committed while its object still lives.
void SequencerTool::eventRemoveMarker()
{
    commitEdit();
    if (!mpResource || !mpSelectMarker)
        return;
    const AutoString name = mpSelectMarker->getMarkerName();
    setSelectMarker(nullptr);
    const OwnEdit edit(*this);
    mpResource->removeMarker(name);
}

void SequencerTool::eventRemoveAllMarker()
{
    if (!mpResource)
        return;
    setSelectMarker(nullptr);
    const OwnEdit edit(*this);
    mpResource->removeAllMarker();
}

void SequencerTool::eventResetMarkerCount()
{
    if (mpSequencer)
        mpSequencer->resetMarkerCount();
}

void SequencerTool::eventAddTrack()
{
    if (mpResource)
        UISystem::getInstance()->addWindow(
            new UIObjectDialog("Select Object", this, &SequencerTool::notifySelectObject, getRootTypeInfo(), this));
}

void SequencerTool::eventRemoveTrack()
{
    commitEdit();
    if (!mpResource || !mpSelectTrack)
        return;
    {
        const OwnEdit edit(*this);
        mpResource->removeTrack(mpSelectTrack->getTrackName());
    }
    resetTrack();
}

void SequencerTool::eventAddSequencerTrack()
{
    if (mpResource)
        addTrack(getSequencerTypeInfo());
}

void SequencerTool::eventAddLane()
{
    if (ObjectBase* object = getSelectLiveObject())
        UISystem::getInstance()->addWindow(
            new UIControlDialog("Select Control", this, &SequencerTool::notifySelectControl, object, this));
}

void SequencerTool::eventRemoveLane()
{
    commitEdit();
    if (!mpResource || !mpSelectTrack || !mpSelectLane)
        return;
    {
        const OwnEdit edit(*this);
        mpResource->removeLane(mpSelectTrack->getTrackName(), mpSelectLane->getControlName());
    }
    resetTrack();
}

void SequencerTool::eventAddAllLane()
{
    ObjectBase* object = getSelectLiveObject();
    if (!object)
        return;
    const OwnEdit edit(*this);
    forEachControl(*object,
                   [this](ControlBase& control)
                   {
                       addLane(*mpSelectTrack, control);
                       // On purpose: asked twice; the second lane of one name is refused.
                       mpResource->addLane(mpSelectTrack->getTrackName(), &control);
                   });
}

void SequencerTool::eventRemoveAllLane()
{
    commitEdit();
    if (!mpResource || !mpSelectTrack)
        return;
    {
        const OwnEdit edit(*this);
        mpResource->removeAllLane(mpSelectTrack->getTrackName());
    }
    resetTrack();
}

void SequencerTool::eventAddKey()
{
    commitEdit();
    if (!mpResource || !mpSelectTrack || !mpSelectLane)
        return;
    if (SequencerKey* key = addKey(*mpSelectTrack, *mpSelectLane))
        setSelectKey(key);
}

void SequencerTool::eventRemoveKey()
{
    SequencerKey* key = mpSelectKey;
    if (!mpResource || !mpSelectTrack || !mpSelectLane || !key)
        return;
    setSelectKey(nullptr);
    const OwnEdit edit(*this);
    mpResource->removeKey(mpSelectTrack->getTrackName(), mpSelectLane->getControlName(), *key);
}

void SequencerTool::eventAddKeyAllLane()
{
    commitEdit();
    if (!mpResource || !mpSelectTrack)
        return;
    for (ObjectBase* lane : mpSelectTrack->getLaneList())
        addKey(*mpSelectTrack, *static_cast<SequencerLane*>(lane));
}

void SequencerTool::eventRemoveAllKey()
{
    if (!mpResource || !mpSelectTrack || !mpSelectLane)
        return;
    setSelectKey(nullptr);
    const OwnEdit edit(*this);
    mpResource->removeAllKey(mpSelectTrack->getTrackName(), mpSelectLane->getControlName());
}

void SequencerTool::togglePlay()
{
    if (!mpSequencer)
        return;
    if (mpSequencer->isPlaying())
        mpSequencer->stop();
    else
        mpSequencer->play();
}

void SequencerTool::seekStart()
{
    stopAt(getStartFrame());
}

void SequencerTool::seekEnd()
{
    stopAt(getEndFrame());
}

void SequencerTool::seekPreviousTargetMarker()
{
    if (!mpResource)
        return;
    SequencerMarker* nearest = nullptr;
    for (ObjectBase* object : mpResource->getMarkerList())
    {
        SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        if (marker->getFrame() >= getCurrentFrame())
            break;
        if (marker->getMarkerType() == eMarkerType::Target)
            nearest = marker;
    }
    seekMarker(nearest);
}

void SequencerTool::seekNextTargetMarker()
{
    if (!mpResource)
        return;
    SequencerMarker* nearest = nullptr;
    const ObjectList& list = mpResource->getMarkerList();
    for (ObjectList::ReverseIterator place = list.rbegin(); place != list.rend(); ++place)
    {
        SequencerMarker* marker = static_cast<SequencerMarker*>(*place);
        if (marker->getFrame() <= getCurrentFrame())
            break;
        if (marker->getMarkerType() == eMarkerType::Target)
            nearest = marker;
    }
    seekMarker(nearest);
}

void SequencerTool::seekMarker(SequencerMarker* marker)
{
    if (!marker)
        return;
    stopAt(marker->getFrame());
    setSelectMarker(marker);
}

void SequencerTool::stopAt(unsigned int frame)
{
    if (mpSequencer)
        mpSequencer->stop();
    setCurrentFrame(frame);
}

AutoString SequencerTool::getNewTrackName()
{
    AutoString name;
    do
        name.format("Track%d", static_cast<int>(mNextTrackNumber++));
    while (mpResource->isExistTrack(name));
    return name;
}

// On purpose: a name that is taken makes it go on with those of tracks.
AutoString SequencerTool::getNewMarkerName()
{
    AutoString name;
    name.format("Marker%d", static_cast<int>(mNextMarkerNumber++));
    while (mpResource->findMarker(name))
        name.format("Track%d", static_cast<int>(mNextMarkerNumber++));
    return name;
}

void SequencerTool::notifySelectObject(UIDialog* dialog)
{
    if (!mpResource || dialog->getReturnValue() != UIDialog::Ok)
        return;
    const TypeInfo* type = static_cast<UIObjectDialog*>(dialog)->getSelectedTypeInfo();
    if (type && isTrackType(*mpResource, *type, *getRootTypeInfo()))
        addTrack(type);
}

void SequencerTool::notifySelectControl(UIDialog* dialog)
{
    const UIControlDialog* answer = static_cast<UIControlDialog*>(dialog);
    ObjectBase* object = getSelectLiveObject();
    if (!object || answer->getReturnValue() != UIDialog::Ok)
        return;
    const unsigned int hash = Utils::hash(answer->getSelectedControlName());
    const OwnEdit edit(*this);
    forEachControl(*object,
                   [&](ControlBase& control)
                   {
                       const unsigned int type = static_cast<unsigned int>(control.getType());
                       if (control.getNameHash() == hash && type == answer->getSelectedControlType())
                           addLane(*mpSelectTrack, control);
                   });
}

void SequencerTool::addTrack(const TypeInfo* type)
{
    const AutoString name = getNewTrackName();
    const OwnEdit edit(*this);
    mpResource->addTrack(type, name);
    if (SequencerTrack* track = mpResource->findTrack(name))
        mpTrackForm->addTrack(track);
}

void SequencerTool::addLane(SequencerTrack& track, const ControlBase& control)
{
    warnOfArray(control);
    if (track.findLane(control.getName()))
        return;
    mpResource->addLane(track.getTrackName(), &control);
    if (SequencerLane* lane = track.findLane(control.getName()))
        mpTrackForm->addLane(lane, &track);
}

// Null when there is a key already, and for a lane whose type has none.
SequencerKey* SequencerTool::addKey(SequencerTrack& track, SequencerLane& lane)
{
    const unsigned int frame = getCurrentFrame();
    if (lane.findKey(frame))
        return nullptr;
    const OwnEdit edit(*this);
    mpResource->addKey(track.getTrackName(), lane.getControlName(), frame, getNewKeyType(lane));
    SequencerKey* key = lane.findKey(frame);
    if (key)
        initializeKeyParameter(track, lane, *key);
    return key;
}

void SequencerTool::initializeKeyParameter(const SequencerTrack& track, const SequencerLane& lane, SequencerKey& key)
{
    const ControlBase* control = findLiveControl(track, lane);
    const sKeyRow* row = control ? KeyTable::find(KeyTable::getType(*control)) : nullptr;
    // A lane may be bound to a control of another type whose keys are of the same shape.
    if (!row || row->getTypeInfo() != key.getTypeInfo())
        return;

    if (control->getType() == ControlBase::eControlType::Trigger)
        clearValue(key);
    else if (row->type == KeyTable::ResourceType)
        ::setResource(static_cast<SequencerUniqueKey<ResourceBase>&>(key),
                      static_cast<const PropertyControl&>(*control));
    else
        setValue(key, *static_cast<const PropertyControl*>(control)->getProperty());
    mpResource->updateKeyParameter(track.getTrackName(), lane.getControlName(), key);
}

// What the lane drives on the live object of the track, or null.
const ControlBase* SequencerTool::findLiveControl(const SequencerTrack& track, const SequencerLane& lane) const
{
    const unsigned int index = mpResource->getTrackIndex(&track);
    if (!mpSequencer || index >= mpSequencer->getTrackNum())
        return nullptr;
    const Sequencer::sTrackData& data = mpSequencer->getTrackArray()[index];
    const unsigned int hash = lane.getControlName().hash();
    for (unsigned int i = 0; i < data.laneNum; ++i)
        if (const ControlBase* control = data.lane[i].control; control && control->getNameHash() == hash)
            return control;
    return nullptr;
}
