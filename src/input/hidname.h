#pragma once

#include "foundation/autostring.h"
#include "input/hiddevice.h"

// What a kind of element is called.
const char* HIDGetTypeName(eHIDElement type);

// What a usage is called in the USB HID Usage Tables. The usage 0, which no table uses, names the page; what the tables
// here do not hold is named by its number.
AutoString HIDGetUsageName(int usagePage, int usage);
