#include "input/keyboardsystem.h"

#include "application/systemmanager.h"
#include "input/hiddevice.h"
#include "input/hidsystem.h"
#include "input/mousesystem.h"
#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
unsigned char gSecondKeyboard[KeySet::KeyNum];
}

class KeyboardSystemTest : public testing::Test
{
protected:
    ~KeyboardSystemTest() override
    {
        KeyboardSystem::getInstance()->destroy();
        MouseSystem::getInstance()->destroy();
        mHID->destroy();
    }

    KeyboardSystem& update(std::initializer_list<unsigned char> keysDown)
    {
        for (unsigned int key = 0; key < KeySet::KeyNum; ++key)
            mApplication.getPlatform().setKey(static_cast<unsigned char>(key), false);
        for (unsigned char key : keysDown)
            mApplication.getPlatform().setKey(key, true);
        KeyboardSystem::getInstance()->update();
        return *KeyboardSystem::getInstance();
    }

    HeadlessApplication mApplication;
    HIDSystem* mHID = HIDSystem::create();
};

TEST_F(KeyboardSystemTest, TellsTheLowestKeyAndEachChangeForOneFrame)
{
    constexpr unsigned char Last = 255;
    const struct
    {
        std::initializer_list<unsigned char> down;
        int on;
        int trgOn;
        int trgOff;
    } frames[] = {
        {{}, -1, -1, -1},          {{5, 4}, 4, 4, -1},    {{4, 5}, 4, -1, -1},
        {{5, Last}, 5, Last, 4},   {{Last}, Last, -1, 5}, {{31, 32, Last}, 31, 31, -1},
        {{0, 31, 32}, 0, 0, Last}, {{}, -1, -1, 0},       {{}, -1, -1, -1},
    };
    for (const auto& frame : frames)
    {
        const KeyboardSystem& keyboard = update(frame.down);
        EXPECT_EQ(keyboard.getKeyOn(), frame.on);
        EXPECT_EQ(keyboard.getKeyTrgOn(), frame.trgOn);
        EXPECT_EQ(keyboard.getKeyTrgOff(), frame.trgOff);
    }
}

TEST_F(KeyboardSystemTest, AnswersForEachKey)
{
    update({KeyboardSystem::KeyA, KeyboardSystem::LeftShift});
    const KeyboardSystem& keyboard = update({KeyboardSystem::LeftShift, KeyboardSystem::RightGUI});
    const auto answers = [&keyboard](KeyboardSystem::eKeyCode key)
    {
        return std::string(keyboard.checkKeyOn(key) ? "on " : "") + (keyboard.checkKeyOff(key) ? "off " : "") +
               (keyboard.checkKeyTrgOn(key) ? "pressed " : "") + (keyboard.checkKeyTrgOff(key) ? "released " : "");
    };
    EXPECT_EQ(answers(KeyboardSystem::KeyA), "off released ");
    EXPECT_EQ(answers(KeyboardSystem::LeftShift), "on ");
    EXPECT_EQ(answers(KeyboardSystem::RightGUI), "on pressed ");
    EXPECT_EQ(answers(KeyboardSystem::RightAlt), "off ");
}

TEST_F(KeyboardSystemTest, AKeyIsDownAsLongAsItIsDownOnAnyKeyboard)
{
    KeyboardSystem::getInstance()->destroy();
    HIDAddDevice({"Second", 1, 6,
                  []
                  {
                      return static_cast<const unsigned char*>(gSecondKeyboard);
                  }});
    HIDAddDevice({"Mouse", 1, 2, nullptr});
    KeyboardSystem::create(mHID);

    gSecondKeyboard[KeyboardSystem::Return] = 1;
    EXPECT_EQ(update({KeyboardSystem::Return}).getKeyTrgOn(), KeyboardSystem::Return);
    EXPECT_EQ(update({}).getKeyOn(), KeyboardSystem::Return);
    EXPECT_EQ(update({}).getKeyTrgOff(), -1);
    gSecondKeyboard[KeyboardSystem::Return] = 0;
    EXPECT_EQ(update({}).getKeyTrgOff(), KeyboardSystem::Return);

    Vector<recDevice> devices;
    EXPECT_FALSE(mHID->getDeviceList(devices, 1, 5));
    EXPECT_TRUE(mHID->getDeviceList(devices, 1, 2));
    EXPECT_TRUE(mHID->getDeviceList(devices, 1, 6));
    ASSERT_EQ(devices.size(), 3u) << "found devices are appended";
    EXPECT_STREQ(devices[2]->description.product, "Second");
}
