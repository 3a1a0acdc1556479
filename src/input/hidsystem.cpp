#include "input/hidsystem.h"

#include "application/systemmanager.h"
#include "foundation/dev.h"
#include "input/hiddevice.h"
#include "input/keyboardsystem.h"
#include "input/mousesystem.h"

REFLECT(HIDSystem, eTypeAttribute::Singleton, "System");

HIDSystem::HIDSystem() : Singleton("HIDSystem already instanced.")
{
    DEV_TRACE("HIDSystem : start.\n");
    setProcessEnable(false, false, false);
    if (!HIDBuildDeviceList(0, 0))
        DEV_ERROR("");
    SystemManager::getInstance()->addSystem(MouseSystem::create(this));
    SystemManager::getInstance()->addSystem(KeyboardSystem::create(this));
}

HIDSystem::~HIDSystem()
{
    HIDReleaseDeviceList();
    DEV_TRACE("HIDSystem : end.\n");
}

void HIDSystem::destroy()
{
    delete this;
}

void HIDSystem::setup()
{
    addDestroyDependency(MouseSystem::getInstance());
    addDestroyDependency(KeyboardSystem::getInstance());
}

bool HIDSystem::getDeviceList(Vector<recDevice>& list, int usagePage, int usage) const
{
    const unsigned int former = list.size();
    for (recDevice* device = HIDGetFirstDevice(); device; device = HIDGetNextDevice(device))
        if (device->description.usagePage == usagePage && device->description.usage == usage &&
            HIDIsValidDevice(device))
            list.addLast(device);
    return list.size() > former;
}
