#include "input/keyboardsystem.h"

#include "input/hidsystem.h"
#include "input/mousesystem.h"
#include "tests/support/headlessapplication.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

class KeyboardSystemTest : public testing::Test
{
protected:
    ~KeyboardSystemTest() override
    {
        KeyboardSystem::getInstance()->destroy();
        MouseSystem::getInstance()->destroy();
        mHID->destroy();
    }

    const KeyboardSystem& update(const std::vector<unsigned char>& keysDown)
    {
        for (unsigned char key : mKeysDown)
            mApplication.getPlatform().setKey(key, false);
        for (unsigned char key : mKeysDown = keysDown)
            mApplication.getPlatform().setKey(key, true);
        KeyboardSystem::getInstance()->update();
        return *KeyboardSystem::getInstance();
    }

    HeadlessApplication mApplication;
    HIDSystem* mHID = HIDSystem::create();
    std::vector<unsigned char> mKeysDown;
};

TEST_F(KeyboardSystemTest, TellsTheLowestKeyAndEachChangeForOneFrame)
{
    constexpr unsigned char Last = 255;
    const struct
    {
        std::vector<unsigned char> down;
        std::array<int, 3> lowest;
    } frames[] = {
        {{}, {-1, -1, -1}},          {{5, 4}, {4, 4, -1}},    {{4, 5}, {4, -1, -1}},
        {{5, Last}, {5, Last, 4}},   {{Last}, {Last, -1, 5}}, {{31, 32, Last}, {31, 31, -1}},
        {{0, 31, 32}, {0, 0, Last}}, {{}, {-1, -1, 0}},       {{}, {-1, -1, -1}},
    };
    for (const auto& frame : frames)
    {
        const KeyboardSystem& keyboard = update(frame.down);
        EXPECT_EQ((std::array{keyboard.getKeyOn(), keyboard.getKeyTrgOn(), keyboard.getKeyTrgOff()}), frame.lowest);
    }

    update({KeyboardSystem::KeyA});
    const KeyboardSystem& keyboard = update({KeyboardSystem::RightGUI});
    EXPECT_TRUE(keyboard.checkKeyTrgOff(KeyboardSystem::KeyA) && keyboard.checkKeyOff(KeyboardSystem::KeyA));
    EXPECT_FALSE(keyboard.checkKeyTrgOn(KeyboardSystem::KeyA) || keyboard.checkKeyOn(KeyboardSystem::KeyA));
    EXPECT_TRUE(keyboard.checkKeyTrgOn(KeyboardSystem::RightGUI) && keyboard.checkKeyOn(KeyboardSystem::RightGUI));
    EXPECT_FALSE(keyboard.checkKeyTrgOff(KeyboardSystem::RightGUI) || keyboard.checkKeyOff(KeyboardSystem::RightGUI));
}
