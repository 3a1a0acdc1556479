#pragma once

#include "reflection/reflect.h"
#include "sequencer/control.h"
#include "sequencer/sequencer.h"
#include "tests/support/lanes.h"
#include "tests/support/values.h"

#include <random>
#include <string>
#include <tuple>
#include <vector>

template <typename List>
struct AsTuple;

template <typename... Ts>
struct AsTuple<TypeList<Ts...>>
{
    using Values = std::tuple<Ts...>;
};

// Something to be driven: it has a property of each plain type, named after it, a resource that nobody sets, and
// triggers. What the triggers bring is noted.
class SequenceProbe : public ObjectBase
{
    REFLECTED(SequenceProbe)

public:
    SequenceProbe() { ++sLive; }
    ~SequenceProbe() override { --sLive; }

    template <typename T>
    T& get()
    {
        return std::get<T>(mValues);
    }

    // The triggers fired since the last call, as "name value" words.
    std::string takeFired() { return std::exchange(mFired, ""); }

    void makeControlList(List<ControlBase>& list) override;

    static inline int sLive = 0;

private:
    ResourceBase* getResource() const { return nullptr; }
    void setResource(ResourceBase*) {}

    void note(unsigned int value) { mFired += std::to_string(value) + " "; }
    void noteVoid() { mFired += "void "; }

    AsTuple<ValueTypes>::Values mValues{};
    std::string mFired;
};

template <typename T>
struct sTestKey
{
    unsigned int frame;
    T value;
    eInterpolateType type = eInterpolateType::Linear;
};

struct sTestMarker
{
    unsigned int frame;
    eMarkerType type = eMarkerType::Target;
    unsigned int target = 0; // a frame or an index
    unsigned int count = 0;
    bool reset = false;
};

// A sequence of one track "T" with a probe, edited as the editor does it.
class TestSequence : public SequencerResourceIntermediate
{
public:
    TestSequence(unsigned int start = 0, unsigned int end = 4095);

    // The lane of the probe's control of that name.
    void addProbeLane(const char* control, const char* track = "T") { ::addLane(*this, track, control); }

    template <typename T>
    void addKeys(const std::vector<sTestKey<T>>& keys, const char* control = ValueTraits<T>::name)
    {
        addProbeLane(control);
        for (const sTestKey<T>& key : keys)
        {
            addKey("T", control, key.frame, key.type);
            setKeyParameter("T", control, key.frame, &key.value);
        }
        clearUpdate();
    }

    // In this order, sorted or not.
    void addMarkers(const std::vector<sTestMarker>& markers);

    // Gives one record another frame, as a move that leaves the records out of order does.
    void setRecordFrame(unsigned int index, unsigned int frame) { mpMarker[index].frame = frame & MaximumFrame; }
};

// Plays a sequence from its start.
class TestPlayer : public Sequencer
{
public:
    explicit TestPlayer(SequencerResource& sequence, AllocatorBase* allocator = nullptr) : Sequencer(allocator)
    {
        sequence.clearUpdate();
        setResource(&sequence);
        play();
    }

    SequenceProbe& getProbe(unsigned int track = 0) const
    {
        return *getTrackArray()[track].object->cast<SequenceProbe>();
    }
};

struct TestRandom : std::mt19937
{
    explicit TestRandom(unsigned int seed) : std::mt19937(seed) {}
    unsigned int below(unsigned int limit) { return static_cast<unsigned int>((*this)() % limit); }
};

// Head, previous head, index of the current marker, next marker frame, whether it plays, and the counters.
std::string describe(const Sequencer& sequencer);
