#include "tests/sequencer/sequenceprobe.h"

#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"

#include <cstdio>

REFLECT(SequenceProbe, eTypeAttribute::None, "ObjectBase");

void SequenceProbe::makeControlList(List<ControlBase>& list)
{
    const auto addValue = [&]<typename T>(T& value)
    {
        list.addLast(new PropertyControl(new ReferenceProperty<T>(ValueTraits<T>::name, &value)));
    };
    std::apply([&](auto&... values) { (addValue(values), ...); }, mValues);

    list.addLast(new PropertyControl(
        new IndirectResourceProperty("resource", this, &SequenceProbe::getResource, &SequenceProbe::setResource),
        ResourceBase::getStaticTypeInfo()));

    list.addLast(new TriggerControl<void>("fire_void", this, &SequenceProbe::noteVoid));
    list.addLast(new TriggerControl<unsigned int>("fire_u32", this, &SequenceProbe::note));
}

TestSequence::TestSequence(unsigned int start, unsigned int end)
{
    setStartFrame(start);
    setEndFrame(end);
    addTrack(SequenceProbe::getStaticTypeInfo(), "T");
    clearUpdate();
}

void TestSequence::addMarkers(const std::vector<sTestMarker>& markers)
{
    for (unsigned int i = 0; i < markers.size(); ++i)
    {
        AutoString name;
        name.format("M%u", i);
        addMarker(name, MaximumFrame);
        setMarkerType(name, markers[i].type);
        setMarkerTargetFrame(name, markers[i].target);
        setMarkerCount(name, markers[i].count);
        setMarkerReset(name, markers[i].reset);
        setRecordFrame(i, markers[i].frame);
        if (markers[i].type == eMarkerType::JumpTarget)
            mpMarker[i].targetIndex = markers[i].target & sMarkerRecord::NoTarget;
    }
    clearUpdate();
}

std::string describe(const Sequencer& sequencer)
{
    const SequencerResource* resource = sequencer.getResource()->cast<SequencerResource>();
    const sMarkerRecord* current = sequencer.getCurrentMarker();
    char text[128];
    std::snprintf(text, sizeof(text), "%g %g %d %g %d",
                  static_cast<double>(static_cast<float>(sequencer.getCurrentFrame())),
                  static_cast<double>(static_cast<float>(sequencer.getPreviousFrame())),
                  current ? static_cast<int>(current - resource->getMarkerArray()) : -1,
                  static_cast<double>(static_cast<float>(sequencer.getNextMarkerFrame())), sequencer.isPlaying());
    std::string all = text;
    for (unsigned int i = 0; i < resource->getMarkerNum(); ++i)
        all += (i ? "," : " c=") + std::to_string(sequencer.getMarkerCount()[i]);
    return all;
}
