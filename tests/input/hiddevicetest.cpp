#include "input/hiddevice.h"

#include <gtest/gtest.h>

TEST(HIDDeviceTest, OneKeyboardIsAlwaysThere)
{
    EXPECT_TRUE(HIDBuildDeviceList(0, 0));
    const recDevice* device = HIDGetFirstDevice();
    EXPECT_STREQ(device->description.product, "Keyboard");
    EXPECT_EQ(HIDGetElementValue(device, &device->elements[5]), 0) << "before there is a platform";
    EXPECT_EQ(HIDGetElementValue(device, nullptr) + HIDGetElementValue(nullptr, &device->elements[5]), 0);
    EXPECT_FALSE(HIDBuildDeviceList(7, 0));
    HIDReleaseDeviceList();
}

TEST(HIDDeviceTest, RescalesBetweenTheExtentsAndTruncates)
{
    const recElement element = {.min = -100, .max = 100, .calMin = 10, .calMax = 40, .userMin = 0, .userMax = 255};
    EXPECT_EQ(HIDCalibrateValue(40, &element), 100);
    EXPECT_EQ(HIDCalibrateValue(24, &element), -6) << "of -6.67";
    EXPECT_EQ(HIDScaleValue(1, &element), 128) << "of 128.78";

    const recElement still = {.min = 5, .max = 5, .calMin = 7, .calMax = 7};
    EXPECT_EQ(HIDCalibrateValue(33, &still) + HIDScaleValue(33, &still), 66) << "without an extent";
}
