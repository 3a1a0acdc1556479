#include "input/keyboardsystem.h"

#include "foundation/dev.h"
#include "input/hiddevice.h"
#include "input/hidsystem.h"

REFLECT(KeyboardSystem, eTypeAttribute::Singleton, "System");

namespace
{
constexpr int GenericDesktopPage = 1;
constexpr int KeyboardUsage = 6;
}

KeyboardSystem::KeyboardSystem(HIDSystem* hidSystem) : Singleton("KeyboardSystem already instanced.")
{
    DEV_TRACE("KeyboardSystem : start.\n");
    setProcessEnable(false, true, false);
    if (!hidSystem->getDeviceList(mKeyboard, GenericDesktopPage, KeyboardUsage))
        DEV_ERROR("Keyboard device not found.");
}

KeyboardSystem::~KeyboardSystem()
{
    DEV_TRACE("KeyboardSystem : end.\n");
}

void KeyboardSystem::destroy()
{
    delete this;
}

void KeyboardSystem::update()
{
    mKeyPrevious = mKeyOn;
    if (checkChange())
        readDevices();
    mKeyTrgOn = mKeyOn - mKeyPrevious;
    mKeyTrgOff = mKeyPrevious - mKeyOn;
}

// Nearly all frames have the keys of the one before.
bool KeyboardSystem::checkChange()
{
    bool changed = false;
    for (recDevice* device : mKeyboard)
        changed |= HIDCheckChange(device);
    return changed;
}

// Several keyboards are one: a key that is down on any of them is down.
void KeyboardSystem::readDevices()
{
    mKeyOn = KeySet();
    for (recDevice* device : mKeyboard)
        readDevice(device);
}

void KeyboardSystem::readDevice(recDevice* device)
{
    for (recElement* element = HIDGetFirstDeviceElement(device, HIDValueElements); element;
         element = HIDGetNextDeviceElement(element, HIDValueElements))
    {
        const unsigned int usage = static_cast<unsigned int>(element->usage);
        if (usage < KeySet::KeyNum && HIDGetElementValue(device, element) != 0)
            mKeyOn.add(usage);
    }
}
