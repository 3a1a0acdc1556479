#pragma once

#include "application/system.h"
#include "foundation/singleton.h"
#include "foundation/vector.h"

struct recDevice;

// Owns the list of input devices, and brings the systems of mouse and keyboard into the program, in front of itself.
class HIDSystem : public System, public Singleton<HIDSystem>
{
    REFLECTED(HIDSystem)

    friend class Singleton<HIDSystem>;

public:
    void destroy() override;
    void setup() override;

    // Appends the devices with that usage; false if there is none. The devices stay with the list.
    bool getDeviceList(Vector<recDevice>& list, int usagePage, int usage) const;

private:
    // SystemManager must exist by now.
    HIDSystem();
    ~HIDSystem() override;
};
