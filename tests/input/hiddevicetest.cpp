#include "input/hiddevice.h"

#include "input/hidname.h"
#include "tests/support/tracecapture.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace
{
unsigned char gValues[256];

const unsigned char* readValues()
{
    return gValues;
}
}

class HIDDeviceTest : public testing::Test
{
protected:
    HIDDeviceTest()
    {
        HIDReleaseDeviceList();
        HIDAddDevice({"Keys", 1, 6, readValues});
    }
    ~HIDDeviceTest() override { HIDReleaseDeviceList(); }

    static std::vector<int> walk(unsigned int mask)
    {
        std::vector<int> usages;
        const recElement* element = HIDGetFirstDeviceElement(HIDGetFirstDevice(), mask);
        for (; element; element = HIDGetNextDeviceElement(element, mask))
            usages.push_back(element->usage);
        return usages;
    }

    static recElement& key(unsigned int usage) { return HIDGetFirstDevice()->elements[1 + usage]; }
};

TEST_F(HIDDeviceTest, OneKeyboardIsAlwaysThere)
{
    EXPECT_TRUE(HIDBuildDeviceList(0, 0));
    EXPECT_STREQ(HIDGetFirstDevice()->description.product, "Keyboard");
    EXPECT_EQ(HIDGetNextDevice(HIDGetFirstDevice()), nullptr) << "a former list is gone";
    EXPECT_EQ(HIDGetElementValue(HIDGetFirstDevice(), &key(4)), 0) << "before there is a platform";
    EXPECT_FALSE(HIDBuildDeviceList(1, 2));
    EXPECT_FALSE(HIDBuildDeviceList(7, 0));
}

TEST_F(HIDDeviceTest, WalksTheElementsOfAMaskDepthFirst)
{
    const std::vector<int> keys = walk(HIDValueElements);
    ASSERT_EQ(keys.size(), 256u);
    EXPECT_EQ(keys.front() + keys.back(), 255);
    EXPECT_EQ(walk(HIDCollectionElements), std::vector{6});

    // The collection 2 holds 3 and 4.
    key(2).type = eHIDElement::Collection;
    key(2).firstChild = &key(3);
    key(2).sibling = &key(9);
    key(3).parent = key(4).parent = &key(2);
    key(4).sibling = nullptr;
    key(4).type = eHIDElement::Feature;
    key(9).sibling = nullptr;
    key(9).type = eHIDElement::Output;
    EXPECT_EQ(walk(HIDValueElements | HIDCollectionElements), (std::vector{6, 0, 1, 2, 3, 4, 9}));
    EXPECT_EQ(walk(HIDInputElements), (std::vector{0, 1, 3}));
    EXPECT_EQ(walk(HIDFeatureElements | HIDOutputElements), (std::vector{4, 9}));

    key(1).firstChild = &key(3);
    key(9).type = eHIDElement::Collection;
    TraceCapture trace;
    EXPECT_EQ(walk(HIDInputElements), (std::vector{0, 1, 3})) << "malformed trees are walked as well";
    EXPECT_EQ(trace.take(), "Malformed element list: found child of element.\n"
                            "Malformed device: found collection at end of element chain.\n");
}

TEST_F(HIDDeviceTest, ReadsCorrectsAndCalibratesValues)
{
    using eType = eHIDElement;
    recElement& element = key(7);
    const struct
    {
        eType type;
        int min, max;
        unsigned char raw;
        std::array<int, 3> valueAndCalibration;
    } rows[] = {
        {eType::InputAxis, 0, 255, 20, {20, 0, 20}},       {eType::InputAxis, 0, 255, 10, {10, 0, 20}},
        {eType::InputAxis, -128, 127, 127, {127, 0, 127}}, {eType::InputAxis, -128, 127, 128, {-128, -128, 127}},
        {eType::Feature, -128, 127, 255, {-1, -128, 127}}, {eType::Output, 0, 255, 200, {0, -128, 127}},
    };
    for (const auto& row : rows)
    {
        gValues[7] = row.raw;
        element.type = row.type;
        element.min = row.min;
        element.max = row.max;
        const int value = HIDGetElementValue(HIDGetFirstDevice(), &element);
        EXPECT_EQ((std::array{value, element.calMin, element.calMax}), row.valueAndCalibration);
    }

    recElement stranger = {.type = eHIDElement::InputButton};
    gValues[0] = 1;
    EXPECT_EQ(HIDGetElementValue(HIDGetFirstDevice(), &stranger), 0);
    EXPECT_EQ(HIDGetElementValue(HIDGetFirstDevice(), nullptr), 0);
    EXPECT_EQ(HIDGetElementValue(nullptr, &key(0)), 0);
    EXPECT_EQ(HIDGetElementValue(HIDGetFirstDevice(), &key(0)), 1);
}

TEST_F(HIDDeviceTest, RescalesBetweenTheExtentsAndTruncates)
{
    const recElement element = {.min = -100, .max = 100, .calMin = 10, .calMax = 40, .userMin = 0, .userMax = 255};
    EXPECT_EQ(HIDCalibrateValue(40, &element), 100);
    EXPECT_EQ(HIDCalibrateValue(24, &element), -6) << "of -6.67";
    EXPECT_EQ(HIDScaleValue(1, &element), 128) << "of 128.78";

    const recElement still = {.min = 5, .max = 5, .calMin = 7, .calMax = 7};
    EXPECT_EQ(HIDCalibrateValue(33, &still) + HIDScaleValue(33, &still), 66) << "without an extent";
}

TEST_F(HIDDeviceTest, NamesUsagesAndKindsOfElements)
{
    const struct
    {
        int usagePage, usage;
        const char* name;
    } rows[] = {
        {0x01, 0x00, "Generic Desktop"},
        {0x01, 0x03, "Generic Desktop Usage 0x3"},
        {0x07, 0x81, "Volume Down"},
        {0x07, 0xE8, "Keyboard Usage 0xe8"},
        {0x09, 12, "Button #12"},
        {0xFF01, 0x1F, "Vendor Defined Usage 0x1f"},
        {0x77, 0x1F, "Page: 0x77, Usage: 0x1f"},
    };
    for (const auto& row : rows)
        EXPECT_STREQ(HIDGetUsageName(row.usagePage, row.usage).c_str(), row.name);

    EXPECT_STREQ(HIDGetTypeName(eHIDElement::InputScanCodes), "Scan Code Input");
    EXPECT_STREQ(HIDGetTypeName(static_cast<eHIDElement>(5)), "Unknown Type");
}
