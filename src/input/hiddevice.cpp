#include "input/hiddevice.h"

#include "foundation/dev.h"
#include "platform/platform.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace
{
constexpr int GenericDesktopPage = 1;
constexpr int KeyboardUsage = 6;
constexpr int KeyPage = 7;
constexpr int KeyNum = static_cast<int>(Platform::KeyNum);

recDevice* gFirstDevice = nullptr;

void HIDReportError(const char* message)
{
    DEV_TRACE("%s\n", message);
}

const unsigned char* readPlatform()
{
    static constexpr unsigned char Released[KeyNum] = {};
    return Platform::getInstance() ? Platform::getInstance()->getKeyboardState() : Released;
}

// The devices that the machine has.
constexpr sHIDDescription PresentDevices[] = {
    {"Keyboard", GenericDesktopPage, KeyboardUsage, readPlatform},
};

unsigned int getMask(eHIDElement type)
{
    switch (type)
    {
    case eHIDElement::InputMisc:
    case eHIDElement::InputButton:
    case eHIDElement::InputAxis:
    case eHIDElement::InputScanCodes: return HIDInputElements;
    case eHIDElement::Output: return HIDOutputElements;
    case eHIDElement::Feature: return HIDFeatureElements;
    case eHIDElement::Collection: return HIDCollectionElements;
    }
    return 0;
}

// The root of a device's elements, which stands for the device.
recElement makeCollection(const sHIDDescription& description)
{
    recElement element;
    element.type = eHIDElement::Collection;
    element.usagePage = description.usagePage;
    element.usage = description.usage;
    return element;
}

recElement makeKey(int usage)
{
    recElement element;
    element.type = eHIDElement::InputButton;
    element.usagePage = KeyPage;
    element.usage = usage;
    element.cookie = static_cast<unsigned int>(usage);
    element.max = 1;
    element.scaledMax = 1;
    element.size = 1;
    return element;
}

void addElements(recDevice* device)
{
    device->elementNum = 1 + KeyNum;
    device->elements = std::make_unique<recElement[]>(device->elementNum);

    recElement* root = device->elements.get();
    recElement* keys = root + 1;
    *root = makeCollection(device->description);
    root->firstChild = keys;
    for (int usage = 0; usage < KeyNum; ++usage)
    {
        keys[usage] = makeKey(usage);
        keys[usage].parent = root;
        if (usage + 1 < KeyNum)
            keys[usage].sibling = keys + usage + 1;
    }
}

bool isAsked(int asked, int present)
{
    return asked == 0 || asked == present;
}

// The element behind `element` and all that lies below it.
const recElement* skip(const recElement* element)
{
    while (element && !element->sibling)
        element = element->parent;
    return element ? element->sibling : nullptr;
}

const recElement* step(const recElement* element)
{
    if (element->type == eHIDElement::Collection && element->firstChild)
        return element->firstChild;
    if (element->firstChild)
        HIDReportError("Malformed element list: found child of element.");
    else if (element->type == eHIDElement::Collection && !element->sibling)
        HIDReportError("Malformed device: found collection at end of element chain.");
    return skip(element);
}

bool hasValue(const recElement& element)
{
    return getMask(element.type) & (HIDInputElements | HIDFeatureElements);
}

// A raw value is unsigned; of an element with negative values those above the largest one are the negative ones.
int correct(int value, const recElement& element)
{
    return element.min < 0 && value > element.max ? element.min + value - element.max - 1 : value;
}

int rescale(int value, int fromMin, int fromMax, int toMin, int toMax)
{
    const float range = static_cast<float>(fromMax) - static_cast<float>(fromMin);
    if (range == 0.0f)
        return value;
    const float extent = static_cast<float>(toMax) - static_cast<float>(toMin);
    const float offset = static_cast<float>(value) - static_cast<float>(fromMin);
    return static_cast<int>(extent * offset / range + static_cast<float>(toMin));
}
}

bool HIDBuildDeviceList(int usagePage, int usage)
{
    HIDReleaseDeviceList();
    for (const sHIDDescription& description : PresentDevices)
        if (isAsked(usagePage, description.usagePage) && isAsked(usage, description.usage))
            HIDAddDevice(description);
    return HIDHaveDeviceList();
}

void HIDReleaseDeviceList()
{
    while (recDevice* device = gFirstDevice)
    {
        gFirstDevice = device->next;
        delete device;
    }
}

bool HIDHaveDeviceList()
{
    return gFirstDevice != nullptr;
}

void HIDAddDevice(const sHIDDescription& description)
{
    recDevice* device = new recDevice{description, nullptr, 0, nullptr, {}};
    addElements(device);

    recDevice** place = &gFirstDevice;
    while (*place)
        place = &(*place)->next;
    *place = device;
}

recDevice* HIDGetFirstDevice()
{
    return gFirstDevice;
}

recDevice* HIDGetNextDevice(const recDevice* device)
{
    return device ? device->next : nullptr;
}

bool HIDIsValidDevice(const recDevice* device)
{
    for (const recDevice* present = gFirstDevice; present; present = present->next)
        if (present == device)
            return true;
    return false;
}

recElement* HIDGetFirstDeviceElement(const recDevice* device, unsigned int mask)
{
    if (!HIDIsValidDevice(device))
        return nullptr;
    recElement* root = device->elements.get();
    return getMask(root->type) & mask ? root : HIDGetNextDeviceElement(root, mask);
}

recElement* HIDGetNextDeviceElement(const recElement* element, unsigned int mask)
{
    if (!element)
        return nullptr;
    do
        element = step(element);
    while (element && !(getMask(element->type) & mask));
    return const_cast<recElement*>(element);
}

bool HIDIsValidElement(const recDevice* device, const recElement* element)
{
    if (!HIDIsValidDevice(device))
        return false;
    const recElement* first = device->elements.get();
    const std::less<const recElement*> before;
    return !before(element, first) && before(element, first + device->elementNum);
}

bool HIDCheckChange(recDevice* device)
{
    static_assert(sizeof(device->values) == KeyNum);
    if (!HIDIsValidDevice(device))
        return false;
    const unsigned char* values = device->description.readValues();
    if (std::memcmp(device->values, values, sizeof(device->values)) == 0)
        return false;
    std::memcpy(device->values, values, sizeof(device->values));
    return true;
}

int HIDGetElementValue(const recDevice* device, recElement* element)
{
    if (!HIDIsValidElement(device, element))
        return 0;
    const int raw = hasValue(*element) ? device->description.readValues()[element->cookie] : 0;
    const int value = correct(raw, *element);
    element->calMin = std::min(element->calMin, value);
    element->calMax = std::max(element->calMax, value);
    return value;
}

int HIDCalibrateValue(int value, const recElement* element)
{
    return rescale(value, element->calMin, element->calMax, element->min, element->max);
}

int HIDScaleValue(int value, const recElement* element)
{
    return rescale(value, element->min, element->max, element->userMin, element->userMax);
}
