#pragma once

#include <memory>

// Input devices as the USB HID Usage Tables describe them: a list of devices, each with a tree of elements, and polled
// values. The one device that is always there is a keyboard whose keys are those of the platform. All of it belongs
// to the main thread, and nothing here stops the program.

// What a device is called and is for, and where its values come from.
struct sHIDDescription
{
    const char* product;
    int usagePage;
    int usage;

    // One value for each usage of the device's elements, valid until the events are pumped again.
    const unsigned char* (*readValues)();
};

enum class eHIDElement : unsigned int
{
    InputMisc = 1,
    InputButton = 2,
    InputAxis = 3,
    InputScanCodes = 4,
    Output = 129,
    Feature = 257,
    Collection = 513,
};

// Which elements a walk visits.
enum eHIDElementMask : unsigned int
{
    HIDInputElements = 2,
    HIDOutputElements = 4,
    HIDFeatureElements = 8,
    HIDCollectionElements = 16,
    HIDValueElements = HIDInputElements | HIDOutputElements | HIDFeatureElements,
};

struct recElement
{
    eHIDElement type = eHIDElement::InputMisc;
    int usagePage = 0;
    int usage = 0;
    unsigned int cookie = 0; // The place of its value.
    int min = 0;
    int max = 0;
    int scaledMin = 0;
    int scaledMax = 0;
    int size = 0; // In bits.

    // The extent of all values so far, and the one that is offered to users.
    int calMin = 0;
    int calMax = 0;
    int userMin = 0;
    int userMax = 255;

    recElement* parent = nullptr;
    recElement* firstChild = nullptr;
    recElement* sibling = nullptr;
};

struct recDevice
{
    sHIDDescription description;
    std::unique_ptr<recElement[]> elements; // All of them; the first is the root of the tree.
    unsigned int elementNum;
    recDevice* next;

    // As they were when a change was last asked for.
    unsigned char values[256];
};

// Makes the list anew. A usage page or a usage of 0 takes all. False if the list is empty.
bool HIDBuildDeviceList(int usagePage, int usage);
void HIDReleaseDeviceList();
bool HIDHaveDeviceList();

// Adds a device to the end of the list, with 256 buttons: one for each usage of the keyboard page. The text is not
// copied.
void HIDAddDevice(const sHIDDescription& description);

// Null at the end.
recDevice* HIDGetFirstDevice();
recDevice* HIDGetNextDevice(const recDevice* device);
bool HIDIsValidDevice(const recDevice* device);

// The elements of the mask, depth first; null at the end and for a device that is not in the list.
recElement* HIDGetFirstDeviceElement(const recDevice* device, unsigned int mask);
recElement* HIDGetNextDeviceElement(const recElement* element, unsigned int mask);
bool HIDIsValidElement(const recDevice* device, const recElement* element);

// 0 for a device or an element that is not in the list. Widens the element's calibration to the value.
int HIDGetElementValue(const recDevice* device, recElement* element);

// Whether a value has changed since this was asked last; all of them were 0 when the device came. False for a device
// that is not in the list.
bool HIDCheckChange(recDevice* device);

// From the calibrated extent to that of the element, and from there to that of the user. Without an extent to come
// from, the value stays as it is.
int HIDCalibrateValue(int value, const recElement* element);
int HIDScaleValue(int value, const recElement* element);
