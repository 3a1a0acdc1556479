#pragma once

#include "animation/animresource.h"
#include "foundation/list.h"

#include <memory>
#include <vector>

class ControlBase;

template <typename T>
struct sSampleKey
{
    unsigned int frame;
    eInterpolateType type;
    T value;
};

template <typename T>
using SampleKeys = std::vector<sSampleKey<T>>;

// Adds a track to an animation and fills it, lane by lane, as the editor does: the controls of a live object say
// which lanes there are.
class TrackBuilder
{
public:
    TrackBuilder(AnimResource& resource, const TypeInfo* type, const char* name);
    ~TrackBuilder();

    TrackBuilder(const TrackBuilder&) = delete;
    TrackBuilder& operator=(const TrackBuilder&) = delete;

    // T is the type of the control's value.
    template <typename T>
    void addLane(const char* control, const SampleKeys<T>& keys)
    {
        openLane(control);
        for (const sSampleKey<T>& key : keys)
            addKey(control, key.frame, key.type, &key.value);
    }

    // A value from the first frame to the last one.
    template <typename T>
    void setValue(const char* control, const T& value)
    {
        addLane<T>(control, {{0, eInterpolateType::Constant, value}});
    }

    void setResource(const char* control, ResourceBase* value);

private:
    void openLane(const char* control);
    void addKey(const char* control, unsigned int frame, eInterpolateType type, const void* value);

    AnimResource& mResource;
    AutoString mName;
    std::unique_ptr<ObjectBase> mObject;
    List<ControlBase> mControls;
};
