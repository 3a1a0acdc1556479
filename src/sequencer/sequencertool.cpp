#include "sequencer/sequencertool.h"

#include "foundation/allocator.h"
#include "foundation/dev.h"
#include "foundation/utils.h"
#include "io/xmlreader.h"
#include "reflection/property.h"
#include "sequencer/controlform.h"
#include "sequencer/sequencecycle.h"
#include "sequencer/sequencer.h"
#include "sequencer/sequencerlane.h"
#include "sequencer/sequencermarker.h"
#include "sequencer/sequencerresourceintermediate.h"
#include "sequencer/sequencertrack.h"
#include "sequencer/trackform.h"
#include "sequencer/unkeyedvalues.h"
#include "ui/uiaxis.h"
#include "ui/uiparametercontrol.h"
#include "ui/uisplitter.h"
#include "ui/uisystem.h"

#include <algorithm>

REFLECT(SequencerTool, eTypeAttribute::None, "ToolBase");

namespace
{
constexpr sSize StartSize{512, 512};
constexpr sSize MinimumSize{256, 160};
constexpr unsigned int ControlFormSize = 128;
constexpr int HeaderHeight = 32;

constexpr unsigned int MinimumFPS = 15;
constexpr unsigned int MaximumFPS = 120;
}

SequencerTool::OwnEdit::~OwnEdit()
{
    if (mWasUpToDate)
        mTool.noteRevision();
}

SequencerTool::SequencerTool(SequencerResourceIntermediate* resource)
    : ToolBase(TitleBar | Movable | Sizable, true, true, true, 0)
{
    setManagedResource("Sequencer Resource", SequencerResourceIntermediate::getStaticTypeInfo(), this,
                       &SequencerTool::getResource, &SequencerTool::setResource);
    mpResource = resource;
    if (mpResource)
        mpResource->addRef();

    setTitle("Sequencer Tool");
    setSize(StartSize);
    setMinimumSize(MinimumSize);
    makeMainMenu();
    mpHeaderForm = makeHeaderForm();
    addClient(mpHeaderForm);

    mpTrackForm = new TrackForm(this);
    mpControlForm = new ControlForm(this);
    mpSplitter = new UISplitter(mpTrackForm, mpControlForm, UISplitter::eSplitDirection::Beside, ControlFormSize,
                                UISplitter::eSplitBase::Second);
    addClient(mpSplitter);
    addRows();
}

SequencerTool::~SequencerTool()
{
    delete mpSequencer;
    if (mpResource)
        mpResource->release();
}

const TypeInfo* SequencerTool::getSequencerTypeInfo() const
{
    return Sequencer::getStaticTypeInfo();
}

const TypeInfo* SequencerTool::getRootTypeInfo() const
{
    return ObjectBase::getStaticTypeInfo();
}

// The rows of the former resource go before their objects do.
void SequencerTool::setResource(ResourceBase* resource)
{
    commitEdit();
    SequencerResourceIntermediate* former = mpResource;
    mpResource = resource ? resource->cast<SequencerResourceIntermediate>() : nullptr;
    if (mpResource)
        mpResource->addRef();
    mRenamed = false;
    resetTrack();
    if (former)
        former->release();
    if (mpSequencer)
        mpSequencer->setResource(mpResource);
    seekStart();
}

ResourceBase* SequencerTool::getResource() const
{
    return mpResource;
}

ObjectBase* SequencerTool::getLiveObject(unsigned int trackIndex) const
{
    const Sequencer::sTrackData* track = getTrackData(trackIndex);
    return track ? track->object : nullptr;
}

const Sequencer::sTrackData* SequencerTool::getTrackData(unsigned int trackIndex) const
{
    const bool exists = mpSequencer && trackIndex < mpSequencer->getTrackNum();
    return exists ? &mpSequencer->getTrackArray()[trackIndex] : nullptr;
}

void SequencerTool::setControlList(UIBase* group, unsigned int trackIndex)
{
    const Sequencer::sTrackData* track = getTrackData(trackIndex);
    if (!track)
        return;
    for (unsigned int i = 0; i < track->laneNum; ++i)
    {
        ControlBase* control = track->lane[i].control;
        if (UIBase* widget = control ? Utils::makeUIFromControl(control) : nullptr)
            group->add(widget);
    }
}

// In a job the focus may not be touched; there it goes with the widget that has it.
void SequencerTool::commitEdit()
{
    UISystem* system = UISystem::getInstance();
    if (mUpdating || !system)
        return;
    if (UIBase* focus = system->getFocus(); focus && mpControlForm->find(focus))
        system->defocus();
}

void SequencerTool::resetTrack()
{
    removeRows();
    addRows();
}

unsigned int SequencerTool::getStartFrame() const
{
    return mpResource ? mpResource->getStartFrame() : 0;
}

void SequencerTool::setStartFrame(unsigned int frame)
{
    if (!mpResource)
        return;
    const OwnEdit edit(*this);
    mpResource->setStartFrame(std::min(frame, MaximumFrame));
}

unsigned int SequencerTool::getEndFrame() const
{
    return mpResource ? mpResource->getEndFrame() : 0;
}

void SequencerTool::setEndFrame(unsigned int frame)
{
    if (!mpResource)
        return;
    const OwnEdit edit(*this);
    mpResource->setEndFrame(std::min(frame, MaximumFrame));
}

unsigned int SequencerTool::getFPS() const
{
    return mpResource ? mpResource->getFPS() : 0;
}

void SequencerTool::setFPS(unsigned int fps)
{
    if (!mpResource)
        return;
    const OwnEdit edit(*this);
    mpResource->setFPS(std::clamp(fps, MinimumFPS, MaximumFPS));
}

unsigned int SequencerTool::getCurrentFrame() const
{
    return mpSequencer ? static_cast<unsigned int>(static_cast<int>(mpSequencer->getCurrentFrame())) : 0;
}

void SequencerTool::setCurrentFrame(unsigned int frame)
{
    moveSequencer([frame](Sequencer& sequencer) { sequencer.seek(std::min(frame, MaximumFrame)); });
}

void SequencerTool::renameTrack(SequencerTrack& track, const AutoString& name)
{
    if (!mpResource || !XmlReader::isValue(name) || mpResource->isExistTrack(name))
        return;
    track.setTrackName(name);
    mRenamed = true;
}

unsigned int SequencerTool::getSelectTrackIndex() const
{
    return mpResource && mpSelectTrack ? mpResource->getTrackIndex(mpSelectTrack) : NoTrack;
}

bool SequencerTool::isManagedResourceModified() const
{
    return mRenamed || ToolBase::isManagedResourceModified();
}

bool SequencerTool::isManagedResourceMadeOf(const ResourceBase& other) const
{
    return leadsTo(mpResource, other);
}

void SequencerTool::eventCreate()
{
    ToolBase::eventCreate();
    const TypeInfo* type = getSequencerTypeInfo();
    if (!type->isDerivedFrom(Sequencer::getStaticTypeInfo()))
        dev_assert("TypeInfo is not derived from Sequencer.", __FILE__, __LINE__);
    mpSequencer = static_cast<Sequencer*>(type->newInstance());
    if (mpSequencer)
        mpSequencer->setResource(mpResource);
    placeHeader();
    updateLayout();
}

// Widgets that edit live objects go before these do.
void SequencerTool::update(float deltaTime)
{
    mUpdating = true;
    if (!isUpToDate())
        resetTrack();
    mControlFormStale = mControlFormStale || (mpSequencer && mpSequencer->isRebuildDue());
    if (mControlFormStale)
        mpControlForm->removeClient();

    UIForm::update(deltaTime);
    moveSequencer([deltaTime](Sequencer& sequencer) { sequencer.update(deltaTime); });
    if (mControlFormStale)
    {
        refreshControlForm();
        // What is new in the tree is behind in the layout; it would be painted where it does not belong.
        mpControlForm->update(0.0f);
    }
    placeHeader();
    updateLayout();
    mUpdating = false;
}

void SequencerTool::updateLayout()
{
    const sRect region = getPaneRegion();
    mpSplitter->setPosition(sPoint(region.left, region.top));
    mpSplitter->setSize({region.getWidth(), region.getHeight()});
}

sRect SequencerTool::getPaneRegion() const
{
    const int width = static_cast<int>(getClientRegion().getWidth());
    const int height = static_cast<int>(getClientRegion().getHeight());
    return {0, HeaderHeight, width, std::max(HeaderHeight, height)};
}

// The document of very many tracks does not fit beside their rows.
bool SequencerTool::writeFile(ResourceBase& resource, const AutoString& fullPath)
{
    constexpr unsigned int ShortPart = 4;
    const AllocatorBase& heap = *AllocatorBase::getGlobalAllocator();
    if (ToolBase::writeFile(resource, fullPath))
        return true;
    if (heap.getFreeSize() > heap.getHeapSize() / ShortPart)
        return false;
    removeRows();
    const bool isWritten = ToolBase::writeFile(resource, fullPath);
    addRows();
    return isWritten;
}

// On purpose: a marker that shares its name with another one leaves what it has to the first of them.
void SequencerTool::carryOver(const ResourceBase& from, ResourceBase& to)
{
    const SequencerResourceIntermediate* source = from.cast<SequencerResourceIntermediate>();
    SequencerResourceIntermediate* target = to.cast<SequencerResourceIntermediate>();
    if (!source || !target)
        return;
    for (ObjectBase* object : source->getMarkerList())
    {
        const SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        target->addMarker(marker->getMarkerName(), marker->getFrame());
    }
    // A jump finds the marker that it leads to only once all of them are there.
    for (ObjectBase* object : source->getMarkerList())
    {
        const SequencerMarker* marker = static_cast<SequencerMarker*>(object);
        const AutoString& name = marker->getMarkerName();
        target->setMarkerType(name, marker->getMarkerType());
        target->setMarkerTargetName(name, marker->getTargetMarkerName());
        target->setMarkerTargetFrame(name, marker->getTargetFrame());
        target->setMarkerCount(name, marker->getInitialCount());
        target->setMarkerReset(name, marker->isReset());
    }
}

UIForm* SequencerTool::makeHeaderForm()
{
    struct sRow
    {
        const char* name;
        unsigned int (SequencerTool::*get)() const;
        void (SequencerTool::*set)(unsigned int);
        unsigned int minimum;
        unsigned int maximum;
    };
    constexpr sRow Rows[] = {
        {"Start", &SequencerTool::getStartFrame, &SequencerTool::setStartFrame, 0, MaximumFrame},
        {"End", &SequencerTool::getEndFrame, &SequencerTool::setEndFrame, 0, MaximumFrame},
        {"Current", &SequencerTool::getCurrentFrame, &SequencerTool::setCurrentFrame, 0, MaximumFrame},
        {"FPS", &SequencerTool::getFPS, &SequencerTool::setFPS, MinimumFPS, MaximumFPS},
    };

    UIForm* form = new UIForm(FlowLayout);
    for (const sRow& row : Rows)
        form->addClient(new UIParameterControl(new IndirectProperty<unsigned int>(row.name, this, row.get, row.set),
                                               row.minimum, row.maximum, false, UIControl::WholeValue));
    return form;
}

void SequencerTool::placeHeader()
{
    mpHeaderForm->setSize(makeSize(static_cast<int>(getClientRegion().getWidth()), HeaderHeight));
    mpHeaderForm->setClientRegion(mpHeaderForm->getOwnRegion());
}

bool SequencerTool::isUpToDate() const
{
    return !mpResource || mpResource->getRevision() == mKnownRevision;
}

void SequencerTool::noteRevision()
{
    if (mpResource)
        mKnownRevision = mpResource->getRevision();
}

void SequencerTool::clearSelection()
{
    mpSelectMarker = nullptr;
    mpSelectTrack = nullptr;
    mpSelectLane = nullptr;
    mpSelectKey = nullptr;
    mMarkerTrackSelected = false;
}

void SequencerTool::removeRows()
{
    commitEdit();
    mNextTrackNumber = 0;
    mNextMarkerNumber = 0;
    clearSelection();
    mpTrackForm->reset();
    mpControlForm->setupControlList(NoTrack, nullptr);
}

void SequencerTool::addRows()
{
    noteRevision();
    if (!mpResource)
        return;
    for (ObjectBase* object : mpResource->getTrackList())
    {
        mpTrackForm->addTrack(static_cast<SequencerTrack*>(object));
        if (!AllocatorBase::getGlobalAllocator()->hasRoom())
        {
            DEV_TRACE("Not enough memory for all rows.\n");
            return;
        }
    }
}

void SequencerTool::refreshControlForm()
{
    mControlFormStale = false;
    if (mMarkerTrackSelected)
        mpControlForm->setupControlList(mpSelectMarker);
    else
        mpControlForm->setupControlList(getSelectTrackIndex(), mpSelectKey);
}

template <typename Move>
void SequencerTool::moveSequencer(Move move)
{
    if (!mpSequencer)
        return;
    commitEdit();
    const bool rebuilds = mpSequencer->isRebuildDue();
    UnkeyedValues values;
    if (rebuilds)
        values.note(*mpSequencer);
    move(*mpSequencer);
    if (!rebuilds)
        return;
    values.restore(*mpSequencer);
    mControlFormStale = true;
    if (!mUpdating)
        refreshControlForm();
}
